#pragma once
// The keys of a problem in short algebraic notation ("Qa5", "exd6", "O-O", "f8=R"), as the
// EPD lines and the FEN lists of other programs carry them.
#include <cstddef>
#include <string>
#include <vector>

#include "problems/Problem.h"

namespace shortkeys {

// " Qa5 Qb5": each key of the problem's answer with a space before it. A key that is no move
// of the position is left out with a warning naming the problem.
std::string Write(const TProblem& problem, std::vector<std::string>& warnings);

// Records the keys as the problem's answer (an empty list: known to have none). Throws
// ProblemSyntaxError at offset for a key that is no legal move of the position.
void Read(const std::vector<std::string>& keys, std::size_t offset, TProblem& problem);

}  // namespace shortkeys
