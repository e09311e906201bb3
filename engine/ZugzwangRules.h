#pragma once
#include <cstdint>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"

// The restrictions for positions in which Black has hardly a move and White wins by zugzwang
// or by a long walk while Black stays tied: SH_SWEEPINGWHITEROOK, SH_ZUGZWANGTRIANGLES and
// SH_SEASNAKE. Each only ever leaves White moves out, so a mate found under them is a mate.
// The pattern tests serve the automatic choice of passes as well.
namespace zugzwangrules {

// Black's legal moves in board; a board with White to move is looked at as if Black were to
// move (0 when White's king is in check there).
int CountBlackMoves(const TChessboard& board);

// A lone white rook (no queen) against king and pawns, Black left with at most three moves.
bool SweepingRookPattern(const TChessboard& board);
// Black's moves other than pawn steps are one piece's, to one square: a pendulum between two
// squares, which a king that loses a tempo on a triangle puts in zugzwang.
bool PendulumPattern(const TChessboard& board);
// A long walk against a tied Black: six men or more, at most six moves, the king at most two.
bool SeaSnakePattern(const TChessboard& board);

// after: the position White's move made, below the root. The bit of the restriction the move
// breaks, 0 when none. nRootBlackMoves: Black's moves in the start position.
std::uint32_t WhiteMoveBreaks(const TChessboard& after, const THeuristicSet& set,
                              int nRootBlackMoves);

}  // namespace zugzwangrules
