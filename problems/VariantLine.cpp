#include "problems/VariantLine.h"

#include <algorithm>

namespace {

constexpr std::size_t kTitleLength = 40;

bool IsMoveNumber(std::string_view word) {
  return !word.empty() && word.find_first_not_of("0123456789.") == std::string_view::npos;
}

// The moves part of a line whose name was taken off.
void ReadMoves(std::string_view text, TVariantLine& line) {
  int nMoves = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n", at);
    if (begin == std::string_view::npos) break;
    if (text[begin] == '{') {
      const std::size_t end = std::min(text.find('}', begin), text.size());
      line.comments.emplace_back(nMoves, std::string(text.substr(begin + 1, end - begin - 1)));
      at = end + 1;
      continue;
    }
    at = std::min(text.find_first_of(" \t\r\n{", begin), text.size());
    const std::string_view word = text.substr(begin, at - begin);
    if (!line.moves.empty()) line.moves += ' ';
    line.moves += word;
    // "1.e4" numbers a move and makes it; "1." and "1..." only number.
    if (!IsMoveNumber(word)) ++nMoves;
  }
}

// What follows the name in brackets; the whole text when it has none.
std::string_view MovesPart(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos || text[begin] != '[') return text;
  const std::size_t end = text.find(']', begin);
  return end == std::string_view::npos ? text : text.substr(end + 1);
}

}  // namespace

namespace variantline {

TVariantLine Parse(std::string_view text) {
  TVariantLine line;
  const std::string_view moves = MovesPart(text);
  if (moves.size() != text.size()) {
    const std::size_t begin = text.find('[') + 1;
    line.name = std::string(text.substr(begin, text.size() - moves.size() - 1 - begin));
  }
  ReadMoves(moves, line);
  return line;
}

std::string WithoutName(std::string_view text) {
  std::string_view moves = MovesPart(text);
  moves.remove_prefix(std::min(moves.find_first_not_of(" \t"), moves.size()));
  return std::string(moves);
}

std::string Compose(const std::string& name, const std::string& movesWithComments) {
  std::string clean;
  std::copy_if(name.begin(), name.end(), std::back_inserter(clean),
               [](char c) { return c != '[' && c != ']' && c != '{' && c != '}'; });
  return clean.empty() ? movesWithComments : "[" + clean + "] " + movesWithComments;
}

std::string Title(std::string_view text) {
  const TVariantLine line = Parse(text);
  if (!line.name.empty()) return line.name;
  return line.moves.size() <= kTitleLength ? line.moves
                                           : line.moves.substr(0, kTitleLength) + "...";
}

}  // namespace variantline
