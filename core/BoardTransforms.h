#pragma once
#include "core/Chessboard.h"

// Whole-board transformations offered by the editor. Each re-analyses with reset and
// changes the board only when the analysis accepts the result; otherwise the
// analysis' ChessException passes through (a turned board may put pawns on rank 1 or 8).
namespace transforms {

// The four transformations, each a map of squares (and, for the colour swap, of colours).
enum class ETransform { kMirrorFiles, kSwapColours, kRotate90, kRotate180 };
constexpr ETransform kTransforms[] = {ETransform::kMirrorFiles, ETransform::kSwapColours,
                                      ETransform::kRotate90, ETransform::kRotate180};
// How often a transformation must be applied to give back what it started from.
constexpr int Period(ETransform transform) {
  return transform == ETransform::kRotate90 ? 4 : 2;
}

// Where a transformation takes a square; the absent square 255 stays absent (for stored
// moves). Files a<->h for the mirror; ranks 1<->8 for the colour swap; a quarter turn
// clockwise takes a1 to a8; the half turn a1 to h8.
SquareIndex MapSquare(ETransform transform, SquareIndex s);

// Puts each piece of the 64 squares from on the square MapSquare gives in the 64 squares to
// (the colour swap also exchanges colours); nothing is checked.
void MapPieces(ETransform transform, const PieceCode* from, PieceCode* to);

// Moves every piece to the square MapSquare gives (the colour swap also exchanges colours).
void Apply(ETransform transform, TChessboard& board);

// Swaps files a<->h ... and returns whether castling was irrelevant before
// (no king on its e- or d-file home square together with a rook in a home corner).
bool MirrorFiles(TChessboard& board);
// The file mirror of one square, 255 staying 255 (for stored variant moves).
SquareIndex MirrorSquare(SquareIndex s);

}  // namespace transforms
