#include "problems/TextTools.h"

#include <charconv>

namespace text {

std::size_t BlankLength(std::string_view s, std::size_t pos) {
  const auto c = static_cast<unsigned char>(s[pos]);
  if (c == ' ' || c == '\t' || c == '\n' || c == '\r') return 1;
  if (c == 0xC2 && pos + 1 < s.size() && static_cast<unsigned char>(s[pos + 1]) == 0xA0) return 2;
  // A lone A0 byte (a Latin-1 no-break space) is a blank unless it continues a UTF-8 character.
  if (c == 0xA0 && (pos == 0 || static_cast<unsigned char>(s[pos - 1]) < 0x80)) return 1;
  return 0;
}

std::string_view Trim(std::string_view s) {
  std::size_t begin = 0;
  while (begin < s.size()) {
    const std::size_t n = BlankLength(s, begin);
    if (n == 0) break;
    begin += n;
  }
  s.remove_prefix(begin);
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

namespace {
char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
}  // namespace

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Lower(a[i]) != Lower(b[i])) return false;
  }
  return true;
}

bool StartsWithNoCase(std::string_view s, std::string_view prefix) {
  return s.size() >= prefix.size() && EqualsNoCase(s.substr(0, prefix.size()), prefix);
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

SquareIndex ReadSquare(char file, char rank) {
  const char f = Lower(file);
  if (f < 'a' || f > 'h' || rank < '1' || rank > '8') return square::kNone;
  return square::Make(f - 'a', rank - '1');
}

std::string SquareText(SquareIndex s) {
  return {static_cast<char>('a' + square::File(s)), static_cast<char>('1' + square::Rank(s))};
}

bool ReadNumber(std::string_view s, int& value) {
  if (s.empty() || !IsDigit(s.front())) return false;
  const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), value);
  return error == std::errc() && end == s.data() + s.size();
}

}  // namespace text
