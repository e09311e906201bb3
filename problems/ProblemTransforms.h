#pragma once
#include <string>
#include <vector>

#include "core/BoardTransforms.h"
#include "problems/Problem.h"

// The editor's transformations of a whole problem. Each returns the notes to show, in the
// interface language; one that the analysis refuses (a quarter turn that puts a pawn on a
// back rank) throws its ChessException and leaves the problem unchanged.
namespace problemtransforms {

// Mirrors, swaps colours or turns the start position together with everything that names its
// squares: answers, stored variants, sort indications and expected sorted moves. The colour
// swap marks the description "B&Wh.swapped: ", the half turn "Rotated ", the quarter turn
// "Rotated 90". A move line is dropped.
std::vector<std::string> Apply(transforms::ETransform transform, TProblem& problem,
                               int nLanguageId);

// Makes the end of the move line the start position (the line is dropped), with a note when
// that position taken alone is judged otherwise (castling, en passant).
std::vector<std::string> StartFromCurrent(TProblem& problem, int nLanguageId);

}  // namespace problemtransforms
