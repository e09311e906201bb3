#include "core/Perft.h"

#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"

namespace perft {

CPerftPosition::CPerftPosition(const std::string& fenText, int depth) {
  ClearChessboard(root);
  fen::TFenExtras extras;
  if (!fen::ReadFen(root, fenText, &extras)) throw ChessException("Improper FEN code");
  // Enough plies for the depth, with the parity of the side to move (odd: White).
  root.ply = static_cast<std::uint16_t>(2 * depth + (extras.bBlackToMove ? 2 : 1));
  root.rootPlies = root.ply;
  // A king in check on the side not to move could be taken: such a position has no moves.
  fen::CheckStartPosition(root);
}

std::uint64_t Perft(const TChessboard& board, int depth) {
  if (depth == 0) return 1;
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateAllMoves(board, moves);
  std::uint64_t nodes = 0;
  TChessboard child;
  for (int i = 0; i < n; ++i)
    if (movemaking::MakeSuccessor(board, moves[i], child)) nodes += Perft(child, depth - 1);
  return nodes;
}

std::vector<std::pair<TMove, std::uint64_t>> Divide(const TChessboard& board, int depth) {
  std::vector<std::pair<TMove, std::uint64_t>> counts;
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateAllMoves(board, moves);
  TChessboard child;
  for (int i = 0; i < n; ++i)
    if (movemaking::MakeSuccessor(board, moves[i], child))
      counts.emplace_back(moves[i], Perft(child, depth - 1));
  return counts;
}

}  // namespace perft
