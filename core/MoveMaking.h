#pragma once
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"

// A successor is a copy of the current position, linked to it and changed by the mover's
// move maker; the current position itself is never changed.
namespace movemaking {

// Apply a generated move to a copy (the successor). Keeps every derived field,
// the last move and the ply current. Returns 1 when the mover's king is left
// unattacked, 0 when the move is illegal (the copy is then garbage).
int MakeWhiteMove(TChessboard& child, TMove move);
int MakeBlackMove(TChessboard& child, TMove move);

// Copies board into child, links it and applies move with the right maker. False when
// no plies are left or the move leaves the mover's king attacked (child is then garbage).
bool MakeSuccessor(const TChessboard& board, TMove move, TChessboard& child);

// Legality test of a move code: the piece of the side to move, a generated move
// agreeing in from, to and promotion type. On success the successor has been built.
bool IsMoveValid(const TChessboard& board, std::uint32_t moveCode, TChessboard& successor);

// The legal moves of the side to move in generation order (evasions when in check). Works at
// ply 0 too, for the positions where the stipulation has just ended.
std::vector<TMove> LegalMoves(const TChessboard& board);

// Whether the side to move has at least one legal move (works at ply 0 too).
bool HasLegalMove(const TChessboard& board);

}  // namespace movemaking
