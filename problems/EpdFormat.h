#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "problems/Collection.h"

// EPD lines: the four position fields of a FEN, then operations ending in ';':
//   2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - dm 2; bm Qa5; id "1"; c0 "S. Loyd 1859";
// "dm N" is a mate in N, "sm N" (Longmate's own) a selfmate in N, "bm" the keys in short
// algebraic notation, a numeric "id" the problem's number (another id becomes the
// description when there is no "c0"). Other operations are skipped.
namespace epdformat {

// Throws ProblemSyntaxError at the offending line.
void Read(std::string_view text, int nDefaultMoves, TProblemCollection& collection);
std::string Write(const TProblemCollection& collection, std::vector<std::string>& warnings);

}  // namespace epdformat
