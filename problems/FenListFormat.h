#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "problems/Collection.h"

// A plain list of positions, a FEN per line. A line may end with a stipulation ("#3",
// "s#2"); lines without one take the default move count. Written lists hold the six FEN
// fields only, as other programs expect: stipulations and answers stay behind.
namespace fenlistformat {

// Throws ProblemSyntaxError at the offending line.
void Read(std::string_view text, int nDefaultMoves, TProblemCollection& collection);
std::string Write(const TProblemCollection& collection, std::vector<std::string>& warnings);

}  // namespace fenlistformat
