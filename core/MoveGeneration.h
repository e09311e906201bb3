#pragma once
#include "core/CastlingRule.h"
#include "core/Chessboard.h"
#include "core/Move.h"

// Pseudo-legal moves of one piece, in the fixed orders the search relies on:
// rook rays up, down, right, left; bishop rays up-right, up-left, down-right,
// down-left; queen = rook then bishop; pawn step(s), captures towards the lower
// then the higher file, en passant; promotions as Q R B N (type bits only);
// king steps, then short and long castling. Writes into out, returns the count.
namespace movegen {

// Dispatches on the exact piece code on from; a piece not of the side to move gives 0.
int GeneratePieceMoves(const TChessboard& board, SquareIndex from, TMove* out);
// The generated form of move (with its promotion code) when the piece of the side to move on
// move.from has it among its pseudo-legal moves.
bool FindPieceMove(const TChessboard& board, TMove move, TMove* found);
// Every pseudo-legal move of the side to move, square by square from a1 to h8.
int GenerateAllMoves(const TChessboard& board, TMove* out);
// Legal replies of the side to move when it is in check (all at once), in generation order.
int GenerateEvasions(const TChessboard& board, TMove* out);
// Whether the castling is allowed now: its right, empty squares between king and rook, and
// neither the king's square nor the squares it crosses and lands on attacked.
bool CanCastle(const TChessboard& board, const TCastlingRule& rule);

// Castling rights as the line judges them (king and rook at home now and at the root, no
// move of the line ended on either square), ignoring checks and pieces in between: the
// castling::kWhiteShort ... bits of the rules that have them.
std::uint8_t CastlingRights(const TChessboard& board);

// The square behind a pawn that has just made its double step, when an enemy pawn beside it
// may take it en passant now; square::kNone otherwise (always at the root).
SquareIndex EnPassantTarget(const TChessboard& board);

}  // namespace movegen
