#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "core/Blanks.h"
#include "core/PieceCode.h"

// Small text helpers shared by the problem-file readers and writers (the blanks are core's).
namespace text {

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
// The offset of the first byte that does not begin a well-formed UTF-8 character (as the
// letters of a Latin-2 text do), std::string_view::npos when there is none.
std::size_t FirstNonUtf8(std::string_view s);

}  // namespace text
