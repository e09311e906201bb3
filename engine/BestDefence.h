#pragma once
// Black's best defence in a position with Black to move, found without a full search: the
// defences are struck out one by one, in rounds of growing mate depth, as soon as White is
// shown to mate within that depth after them, and the temporary register is asked last. The
// defence that survives longest is Black's best; among equals, the one generated first.
#include <cstdint>

#include "core/Chessboard.h"
#include "core/Move.h"
#include "engine/SearchContext.h"

struct TBestDefence {
  TMove move{0, 0, 0, 0};  // no move (all zero) when Black has none
  // The round that settled the choice: the plies White was given, kRegisterRound for the
  // register, 0 when a single defence (or none) needed no round.
  int nRound = 0;
  int nRegisterAnswers = 0;  // register lookups that found a stored answer

  static constexpr int kRegisterRound = 65533;
};

// The deepest round searches mate in 7; deeper ones cost more than the choice is worth.
inline constexpr int kMaxBestDefencePlies = 13;

// position: Black to move, its ply the half-moves left. The search runs on the calling
// thread with the context's register and run state; a stop returns the defence being tried.
// The context must not be used by a running solve.
TBestDefence FindBestDefence(const TChessboard& position, SearchContext& context);
