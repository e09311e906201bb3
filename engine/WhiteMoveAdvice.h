#pragma once
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"

// What an outside oracle (the online tablebase) knows of White's moves in a position: the
// moves that cannot win, which the search skips. The search asks at the White positions of
// its first levels only; the oracle decides which positions it can answer. Safe to call
// from several threads.
class CWhiteMoveAdvice {
 public:
  virtual ~CWhiteMoveAdvice() = default;
  // White's moves from board (White to move) that lead to a draw or a loss; empty when
  // nothing is known.
  virtual std::vector<TMove> MovesThatCannotWin(const TChessboard& board) = 0;
};
