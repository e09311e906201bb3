#pragma once
#include <cstddef>
#include <string_view>

// The blanks that separate words in problem files, FEN texts and move lines (UTF-8): space,
// tab, CR, LF and the no-break space, both as C2 A0 and as a lone A0 byte.
namespace text {

// Length of the blank starting at pos (0 when none).
std::size_t BlankLength(std::string_view s, std::size_t pos);
// Without leading and trailing blanks.
std::string_view Trim(std::string_view s);
// Where the blanks starting at pos end.
std::size_t SkipBlanks(std::string_view s, std::size_t pos);
// Where the word (a run of non-blanks) starting at pos ends.
std::size_t SkipWord(std::string_view s, std::size_t pos);

}  // namespace text
