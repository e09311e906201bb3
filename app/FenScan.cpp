#include "app/FenScan.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace {

bool IsRankCharacter(char c) {
  return (c >= '1' && c <= '8') || (c != '\0' && std::strchr("KQRBNPkqrbnp", c) != nullptr);
}

}  // namespace

std::vector<TFenFound> FindFens(std::string_view text) {
  std::vector<TFenFound> found;
  int nLine = 1;
  std::size_t i = 0;
  while (i < text.size()) {
    if (!IsRankCharacter(text[i]) ||
        (i > 0 && (IsRankCharacter(text[i - 1]) ||
                   std::isalnum(static_cast<unsigned char>(text[i - 1])) || text[i - 1] == '/'))) {
      nLine += text[i] == '\n';
      ++i;
      continue;
    }
    // Eight ranks, each a run of rank characters, joined by seven slashes.
    std::size_t end = i;
    int nRanks = 0;
    while (true) {
      const std::size_t rankStart = end;
      while (end < text.size() && IsRankCharacter(text[end])) ++end;
      if (end == rankStart) break;
      ++nRanks;
      if (nRanks == 8 || end >= text.size() || text[end] != '/') break;
      ++end;
    }
    const bool bWordEnds =
        end >= text.size() || !std::isalnum(static_cast<unsigned char>(text[end]));
    if (nRanks == 8 && bWordEnds) {
      found.push_back({std::string(text.substr(i, end - i)), nLine});
      i = end;
    } else {
      ++i;
    }
  }
  return found;
}
