#include "engine/MoveOrdering.h"

#include <algorithm>

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"

namespace ordering {

int MakeOrderedWhiteChildren(const TChessboard& board, TChessboard* children, TMove killer) {
  TMove moves[kMoveBufferSize];
  const int nMoves = movegen::GenerateAllMoves(board, moves);
  struct TScored {
    int score;
    int index;
  } scored[kMoveBufferSize];
  TChessboard made[kMoveBufferSize];
  int n = 0;
  for (int i = 0; i < nMoves; ++i) {
    TChessboard& child = made[n];
    child = board;
    child.parent = &board;
    if (movemaking::MakeWhiteMove(child, moves[i]) <= 0) continue;
    int score = 0;
    if (child.IsBlackInCheck()) score = 4;
    else if (board.squares[moves[i].to] != piece::kEmpty || moves[i].promotion != 0) score = 2;
    if (moves[i].SameMove(killer)) score = 8;
    scored[n] = {score, n};
    ++n;
  }
  std::stable_sort(scored, scored + n, [](const TScored& a, const TScored& b) { return a.score > b.score; });
  for (int i = 0; i < n; ++i) children[i] = made[scored[i].index];
  return n;
}

}  // namespace ordering
