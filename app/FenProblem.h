#pragma once
// A direct mate typed as a FEN and a move count rather than read from a problem file.
#include <memory>
#include <string>

#include "problems/Problem.h"

// Only the placement counts: White is to move. Throws ChessException with "Improper FEN
// code" for a text that is not a FEN, or with the position's own error, and for a move count
// outside 1..TStipulation::kMaxMoves.
std::unique_ptr<TProblem> DirectMateFromFen(const std::string& fen, int nMoves, int id = 1);
