#pragma once
#include <atomic>
#include <cstdint>

#include "engine/HeuristicRules.h"
#include "engine/MateGoal.h"
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
  // What White plays for; a selfmate has no heuristics, tables or advice of its own.
  EMateGoal goal = EMateGoal::kDirectMate;
  TChessboardRegister<bool>* pRegister = nullptr;
  // Where the doubtful answers of this pass's heuristics selection are found and filed; null
  // in a pass that must search such positions out (pass 2). A stored cut makes a node doubtful.
  TAggregatedTemporaryChessboardRegister* pDoubtful = nullptr;
  // The selection those answers are filed under: the pass's heuristics and their parameters.
  THeuristicsKey doubtfulSelection = 0;
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

  // The pass: 1 for the passes under heuristics (1, 1b, 1c ...), 2 for the pass without.
  int nPass = 2;
  // The restrictions of this pass; an empty mask restricts nothing.
  THeuristicContext heuristics;
  // Why the last node that turned out doubtful did: a heuristic's bit, or 0xFFFFFFFF for a
  // doubtful answer found in the store.
  std::atomic<std::uint32_t> doubtfulReason{0};
  // Set when a pass under heuristics has used up its time: its searches give up, and the
  // solve goes on with the next pass.
  std::atomic<bool> bPassTimeUp{false};

  bool HasHeuristics() const { return heuristics.set.mask != 0; }
  bool IsSelfmate() const { return goal == EMateGoal::kSelfmate; }
  void NoteDoubtful(std::uint32_t reason) {
    doubtfulReason.store(reason, std::memory_order_relaxed);
  }
  // Where each thread writes the tree it walks; null when the moves are not logged.
  const TMovesLogSettings* pMovesLog = nullptr;
};

// The doubtful reason of an answer taken from the store of doubtful answers.
inline constexpr std::uint32_t kDoubtfulFromStore = 0xFFFFFFFF;
