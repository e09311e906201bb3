#pragma once
#include "core/Chessboard.h"
#include "core/Move.h"

// Successors are built in the position line: copied into line[ply] of the current
// position, linked to it, then changed by the mover's move maker.
namespace movemaking {

// Apply a generated move to a copy (the successor). Keeps every derived field,
// the last move and the ply current. Returns 1 when the mover's king is left
// unattacked, 0 when the move is illegal (the copy is then garbage).
int MakeWhiteMove(TChessboard& child, TMove move);
int MakeBlackMove(TChessboard& child, TMove move);

// Copies board into its line slot, links it and applies move with the right maker.
// Returns the successor, or null when the move leaves the mover's king attacked.
TChessboard* MakeSuccessor(const TChessboard& board, TMove move);

// Legality test of a move code: the piece of the side to move, a generated move
// agreeing in from, to and promotion type. On success the successor is in the line.
bool IsMoveValid(const TChessboard& board, std::uint32_t moveCode);

// Whether the side to move has at least one legal move (uses the line slot).
bool HasLegalMove(const TChessboard& board);

}  // namespace movemaking
