#pragma once
#include "engine/RunControl.h"
#include "registers/ChessboardRegister.h"

// What the threads of one solve share: the run state, the register and the search settings.
struct SearchContext {
  CRunControl run;
  TChessboardRegister<bool>* pRegister = nullptr;
  // Cut a line that returns to a position already on it (see CMateSearch). The exact search
  // does better without: a depth-limited line ends anyway, and only uncut answers can be
  // filed in the register, which perpetual checks would otherwise keep from filling.
  bool bCutRepetitions = false;
};
