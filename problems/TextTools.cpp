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

}  // namespace text
