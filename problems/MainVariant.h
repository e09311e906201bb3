#pragma once
// The main variant of a problem (the first line of its variants block) as the positions it
// passes through, read from the start position as far as its moves are legal.
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"
#include "problems/Problem.h"

struct TVariantStep {
  TChessboard before;  // the position the move is made in; no parent
  TMove move;
};

// Empty when the problem has no variants or its first move cannot be made.
std::vector<TVariantStep> MainVariantSteps(const TProblem& problem);
