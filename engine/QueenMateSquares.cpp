#include "engine/QueenMateSquares.h"

#include <algorithm>
#include <deque>

#include "core/Attacks.h"
#include "engine/HeuristicRules.h"
#include "engine/KingSteps.h"

namespace queenmate {
namespace {

// Whether the queen on q mates the king on k among the fixed pieces of board (which holds
// neither). Interpositions and captures by the fixed black pieces are not looked at: the
// squares found are the ones where mate is possible, a few more than where it is sure.
bool QueenMates(PieceCode* board, SquareIndex q, SquareIndex k) {
  board[q] = piece::kWhiteQueen;
  bool bMate = attacks::IsAttacked(board, k, piece::kWhite) &&
               (heuristicrules::Distance(q, k) > 1 || attacks::IsAttacked(board, q, piece::kWhite));
  ForKingSteps(k, [&](SquareIndex flight) {
    if (bMate && !piece::IsBlack(board[flight]) &&
        !attacks::IsAttacked(board, flight, piece::kWhite))
      bMate = false;
  });
  board[q] = piece::kEmpty;
  return bMate;
}

std::array<std::uint8_t, 64> Unreachable() {
  std::array<std::uint8_t, 64> distances;
  distances.fill(kUnreachable);
  return distances;
}

}  // namespace

std::array<std::uint8_t, 64> MateSquareDistances(const TChessboard& start) {
  std::array<std::uint8_t, 64> distances = Unreachable();
  if (start.nPieces[kWhiteQueens] != 1) return distances;
  PieceCode fixed[64];
  std::copy(std::begin(start.squares), std::end(start.squares), fixed);
  for (PieceCode& p : fixed)
    if (p == piece::kWhiteQueen || p == piece::kBlackKing) p = piece::kEmpty;
  std::deque<SquareIndex> queue;
  for (SquareIndex k = 0; k < 64; ++k) {
    if (fixed[k] != piece::kEmpty) continue;
    for (SquareIndex q = 0; q < 64; ++q)
      if (q != k && fixed[q] == piece::kEmpty && QueenMates(fixed, q, k)) {
        distances[k] = 0;
        queue.push_back(k);
        break;
      }
  }
  // The king's walk to them: it cannot pass its own pieces, which stay where they are.
  while (!queue.empty()) {
    const SquareIndex s = queue.front();
    queue.pop_front();
    ForKingSteps(s, [&](SquareIndex next) {
      if (distances[next] != kUnreachable || piece::IsBlack(fixed[next])) return;
      distances[next] = static_cast<std::uint8_t>(distances[s] + 1);
      queue.push_back(next);
    });
  }
  return distances;
}

bool SingleQueenPattern(const TChessboard& start, int nMoves) {
  if (start.nPieces[kWhiteQueens] != 1 || start.nPieces[kWhiteRooks] != 0) return false;
  return MateSquareDistances(start)[start.BlackKing()] < nMoves;
}

}  // namespace queenmate
