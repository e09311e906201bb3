#include "app/FenScan.h"

#include <cctype>
#include <cstring>

namespace {

bool IsRankCharacter(char c) {
  return (c >= '1' && c <= '8') || (c != '\0' && std::strchr("KQRBNPkqrbnp", c) != nullptr);
}

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '/';
}

// The end of the eight ranks that begin at start, or start when there are not eight.
std::size_t PlacementEnd(std::string_view text, std::size_t start) {
  std::size_t end = start;
  for (int nRank = 1;; ++nRank) {
    const std::size_t rankStart = end;
    while (end < text.size() && IsRankCharacter(text[end])) ++end;
    if (end == rankStart) return start;
    if (nRank == 8) break;
    if (end >= text.size() || text[end] != '/') return start;
    ++end;
  }
  // The placement must end its word: "8x" is no rank.
  const bool bWordEnds = end >= text.size() || !std::isalnum(static_cast<unsigned char>(text[end]));
  return bWordEnds ? end : start;
}

}  // namespace

std::vector<TFenFound> FindFens(std::string_view text) {
  std::vector<TFenFound> found;
  int nLine = 1;
  std::size_t i = 0;
  while (i < text.size()) {
    // A placement begins a word of its own.
    const bool bWordStart = i == 0 || !IsWordCharacter(text[i - 1]);
    const std::size_t end = bWordStart ? PlacementEnd(text, i) : i;
    if (end > i) {
      found.push_back({std::string(text.substr(i, end - i)), nLine});
      i = end;
      continue;
    }
    nLine += text[i] == '\n';
    ++i;
  }
  return found;
}
