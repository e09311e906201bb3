#pragma once
#include "core/Chessboard.h"
#include "core/Move.h"

namespace attacks {

// Whether a move of the side to move checks the enemy king, decided without making it.
// Exact for ordinary moves and promotions; castling and en passant answer true (the caller
// makes the move and reads the check value), so a false answer is always safe to skip.
bool MayGiveCheck(const TChessboard& board, TMove move);

}  // namespace attacks
