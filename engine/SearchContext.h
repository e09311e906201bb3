#pragma once
#include "engine/MovesLogger.h"
#include "engine/RunControl.h"
#include "engine/WhiteMoveAdvice.h"
#include "engine/WhiteMoveHints.h"
#include "registers/AggregatedTemporaryChessboardRegister.h"
#include "registers/ChessboardRegister.h"
#include "registers/TableProbe.h"

// What the threads of one solve share: the run state, the register and the search settings.
struct SearchContext {
  CRunControl run;
  TChessboardRegister<bool>* pRegister = nullptr;
  // Where the doubtful answers of this pass's heuristics selection are found and filed; null
  // in a pass that must search such positions out. A stored cut makes a node doubtful.
  TAggregatedTemporaryChessboardRegister* pDoubtful = nullptr;
  THeuristicsKey heuristics = 0;
  // The problem's sort indications for White's moves; null when it gives none.
  const CWhiteMoveHints* pHints = nullptr;
  // Exact values of small endings; null when the solve has no tables.
  CTableProbe* pTables = nullptr;
  // The White moves that cannot win, asked in the positions of the first nAdviceLevels levels
  // of White moves (1: the root only); null when the solve has no such oracle.
  CWhiteMoveAdvice* pAdvice = nullptr;
  int nAdviceLevels = 0;
  // Cut a line that returns to a position already on it (see CMateSearch). The exact search
  // does better without: a depth-limited line ends anyway, and only uncut answers can be
  // filed in the register, which perpetual checks would otherwise keep from filling.
  bool bCutRepetitions = false;
  // Where each thread writes the tree it walks; null when the moves are not logged.
  const TMovesLogSettings* pMovesLog = nullptr;
};
