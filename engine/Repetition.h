#pragma once
#include <cstdint>

#include "core/Chessboard.h"

namespace repetition {

// The ply of the nearest position above `board` on its line that has the same side to move
// and the same placement, reached only through reversible moves; 0 when there is none.
// Captures, pawn moves and moves touching a castling home square are irreversible, and a
// position with an en passant right never counts as equal to one without it. The root (the
// start position) is never a repeated ancestor: each first move must be judged on its own.
std::uint16_t RepeatedAncestorPly(const TChessboard& board);

}  // namespace repetition
