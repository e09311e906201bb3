#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "problems/Collection.h"

// A plain list of positions, a FEN per line. The FEN may be followed by the stipulation
// ("#3", "s#2"), and that by "Answer:" and the keys in short algebraic notation:
//   2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - 0 1 #2 Answer: Qa5
// A line without a stipulation takes the default move count; "Answer:" alone records that
// the problem has no key. Descriptions are not written.
namespace fenlistformat {

// Throws ProblemSyntaxError at the offending line.
void Read(std::string_view text, int nDefaultMoves, TProblemCollection& collection);
std::string Write(const TProblemCollection& collection, std::vector<std::string>& warnings);

}  // namespace fenlistformat
