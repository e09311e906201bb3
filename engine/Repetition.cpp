#include "engine/Repetition.h"

#include <cstring>

#include "core/CastlingRule.h"
#include "engine/RegisterKey.h"

namespace repetition {
namespace {

// Whether the move that produced `board` can never be undone (the root counts as such).
bool IsIrreversible(const TChessboard& board) {
  if (board.parent == nullptr) return true;
  const TMove m = board.lastMove;
  if (m.promotion != 0 || piece::TypeOf(board.squares[m.to]) == piece::kPawn) return true;
  if (board.parent->squares[m.to] != piece::kEmpty) return true;
  return ((castling::kHomeSquares >> m.from) & 1) || ((castling::kHomeSquares >> m.to) & 1);
}

}  // namespace

std::uint16_t RepeatedAncestorPly(const TChessboard& board) {
  const TChessboard* current = &board;
  for (;;) {
    if (IsIrreversible(*current)) return 0;
    const TChessboard* above = current->parent;
    if (IsIrreversible(*above)) return 0;
    current = above->parent;
    // Every first move is judged on its own, so a return to the root is no repetition for it:
    // a key whose only mates pass through the start position again is still a key.
    if (current->parent == nullptr) return 0;
    if (std::memcmp(current->squares, board.squares, sizeof board.squares) == 0 &&
        !registerkey::HasEnPassantRight(*current))
      return current->ply;
  }
}

}  // namespace repetition
