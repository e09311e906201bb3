#include "core/Blanks.h"

namespace text {

namespace {

// Whether the byte at pos (a continuation byte) belongs to a UTF-8 character begun before it:
// a lead byte at most three bytes back, with only continuation bytes between, whose
// character is long enough to reach pos.
bool ContinuesCharacter(std::string_view s, std::size_t pos) {
  for (std::size_t back = 1; back <= 3 && back <= pos; ++back) {
    const auto c = static_cast<unsigned char>(s[pos - back]);
    if (c >= 0x80 && c < 0xC0) continue;
    const std::size_t length = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
    return back < length;
  }
  return false;
}

}  // namespace

std::size_t BlankLength(std::string_view s, std::size_t pos) {
  const auto c = static_cast<unsigned char>(s[pos]);
  if (c == ' ' || c == '\t' || c == '\n' || c == '\r') return 1;
  if (c == 0xC2 && pos + 1 < s.size() && static_cast<unsigned char>(s[pos + 1]) == 0xA0) return 2;
  // A lone A0 byte (a Latin-1 no-break space) is a blank unless it continues a UTF-8 character;
  // a run of them is a run of blanks.
  if (c == 0xA0 && !ContinuesCharacter(s, pos)) return 1;
  return 0;
}

std::string_view Trim(std::string_view s) {
  s.remove_prefix(SkipBlanks(s, 0));
  while (!s.empty()) {
    if (s.size() >= 2 && BlankLength(s, s.size() - 2) == 2) {
      s.remove_suffix(2);
    } else if (BlankLength(s, s.size() - 1) == 1) {
      s.remove_suffix(1);
    } else {
      break;
    }
  }
  return s;
}

std::size_t SkipBlanks(std::string_view s, std::size_t pos) {
  while (pos < s.size()) {
    const std::size_t n = BlankLength(s, pos);
    if (n == 0) break;
    pos += n;
  }
  return pos;
}

std::size_t SkipWord(std::string_view s, std::size_t pos) {
  while (pos < s.size() && BlankLength(s, pos) == 0) ++pos;
  return pos;
}

}  // namespace text
