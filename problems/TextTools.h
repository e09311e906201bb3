#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "core/PieceCode.h"

// Small text helpers shared by the problem-file readers and writers. Texts are UTF-8;
// the no-break space counts as a blank both as C2 A0 and as a lone A0 byte.
namespace text {

// Length of the blank starting at pos (0 when none): space, tab, CR, LF, the no-break space.
std::size_t BlankLength(std::string_view s, std::size_t pos);
// Without leading and trailing blanks.
std::string_view Trim(std::string_view s);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool StartsWithNoCase(std::string_view s, std::string_view prefix);
bool IsLetter(char c);
bool IsDigit(char c);
// "e4" or "E4" to a square; square::kNone when the two characters are no square.
SquareIndex ReadSquare(char file, char rank);
// "e4".
std::string SquareText(SquareIndex s);
// A decimal number that fits in an int, with nothing else; false otherwise.
bool ReadNumber(std::string_view s, int& value);

}  // namespace text
