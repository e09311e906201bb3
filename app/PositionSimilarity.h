#pragma once
// How alike two placements are, for "Find similar positions".
//
// The measure: every piece of one position is paired with at most one piece of the same
// colour and type in the other. A pair on the same square scores 1; a pair a king's step
// apart scores 1/2 (a piece moved by one square, a version that shifts a piece). Exact pairs
// are made first, then the near ones, each piece taken once. The similarity is the score
// divided by the piece count of the fuller position, so that extra or missing pieces lower
// it: 1 for the same placement, 0 for nothing in common. Problems are often printed mirrored
// left to right, so the mirrored placement is scored as well and the better score taken.
// Kings count like every other piece.
#include <array>

#include "core/PieceCode.h"

using TPlacement = std::array<PieceCode, 64>;

// What "similar" means for a search: at least this much alike.
inline constexpr double kSimilarityThreshold = 0.7;

double PositionSimilarity(const TPlacement& a, const TPlacement& b);
