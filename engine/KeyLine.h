#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "core/PieceCode.h"

// A line of the board named as a parameter of the key-line restrictions: a file, a rank or a
// diagonal, packed in six bits so that it fits the parameters word.
namespace keyline {

using TLine = std::uint8_t;
// Files a-h are 0-7, ranks 1-8 are 8-15, rising diagonals 16-30 (by file minus rank), falling
// ones 31-45 (by file plus rank).
constexpr TLine kNone = 63;

// "d" for the d-file, "4" for the fourth rank, any case.
std::optional<TLine> ReadLine(const std::string& word);
// Two squares of one diagonal, "a1h8", "A1-H8" or "f1a6".
std::optional<TLine> ReadDiagonal(const std::string& word);
// "D", "4" or "A1-H8" (the diagonal's two end squares, the lower one first); "" for kNone.
std::string Text(TLine line);
bool IsDiagonal(TLine line);
bool Contains(TLine line, SquareIndex s);

}  // namespace keyline
