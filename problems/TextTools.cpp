#include "problems/TextTools.h"

#include <charconv>

namespace text {

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

std::size_t FirstNonUtf8(std::string_view s) {
  for (std::size_t at = 0; at < s.size();) {
    const auto byte = static_cast<unsigned char>(s[at]);
    // The length of the character; 0 for a byte that cannot begin one.
    const std::size_t n = byte < 0x80   ? 1
                          : byte < 0xC2 ? 0
                          : byte < 0xE0 ? 2
                          : byte < 0xF0 ? 3
                          : byte < 0xF5 ? 4
                                        : 0;
    if (n == 0 || at + n > s.size()) return at;
    for (std::size_t i = 1; i < n; ++i)
      if ((static_cast<unsigned char>(s[at + i]) & 0xC0) != 0x80) return at;
    // Overlong forms, surrogates and code points beyond U+10FFFF show in the second byte.
    const auto second = n > 1 ? static_cast<unsigned char>(s[at + 1]) : 0x80;
    if ((byte == 0xE0 && second < 0xA0) || (byte == 0xF0 && second < 0x90) ||
        (byte == 0xED && second > 0x9F) || (byte == 0xF4 && second > 0x8F))
      return at;
    at += n;
  }
  return std::string_view::npos;
}

}  // namespace text
