#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "problems/Collection.h"

// The input language of the established open problem solver, for direct mates and selfmates:
//   BeginProblem
//   Remark S. Loyd 1859
//   Stipulation #2
//   Pieces White Kc1 Qd2 Pa2b3 Black Ka8
//   Remark Key: Qd2-d8
//   NextProblem ... EndProblem
// Keywords in any case and shortened to three letters or more, knights as S. A remark
// beginning with "Key:" holds the answer in Longmate's long notation; the other remarks,
// authors, origins, titles and awards make the description.
namespace popeyeformat {

// Throws ProblemSyntaxError at the offending word.
void Read(std::string_view text, TProblemCollection& collection);
// Positions without a stipulation cannot be written: each one left out adds a warning.
std::string Write(const TProblemCollection& collection, std::vector<std::string>& warnings);

}  // namespace popeyeformat
