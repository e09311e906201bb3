#pragma once
#include "core/Chessboard.h"

// Whole-board transformations offered by the editor. Each re-analyses with reset and
// changes the board only when the analysis accepts the result; otherwise the
// analysis' ChessException passes through (a turned board may put pawns on rank 1 or 8).
namespace transforms {

// Swaps files a<->h ... and returns whether castling was irrelevant before
// (no king on its e- or d-file home square together with a rook in a home corner).
bool MirrorFiles(TChessboard& board);
// Square (f, r) receives the piece of (f, 7 - r) with its colour exchanged.
void SwapColours(TChessboard& board);
// Quarter turn clockwise (a1 -> a8) and half turn.
void Rotate90(TChessboard& board);
void Rotate180(TChessboard& board);
// The file mirror of one square, 255 staying 255 (for stored variant moves).
SquareIndex MirrorSquare(SquareIndex s);

}  // namespace transforms
