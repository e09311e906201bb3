// Tablebase answers: whatever the service sends reads to values and moves within their
// ranges; an answer kept in the cache file reads back from its line unchanged.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/LiChess.h"
#include "app/LiChessCache.h"

namespace {

bool ValueInRange(std::int8_t value) {
  return value >= lichess::kUnknown && value <= lichess::kWin;
}

void CheckRanges(const CLiChess& answer) {
  if (!ValueInRange(answer.value)) std::abort();
  if (answer.nMoves == lichess::kMalformedMoves ? !answer.moves.empty()
                                                : answer.nMoves != int(answer.moves.size()))
    std::abort();
  for (const CLiChessMove& move : answer.moves) {
    if (move.from > 63 || move.to > 63 || !ValueInRange(move.value)) std::abort();
    if (move.promotion % 4 != 0 || move.promotion > 16) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const CLiChess answer = CLiChess::Parse(text);
  CheckRanges(answer);
  const std::string fen = "8/8/8/8/8/8/1k6/K6Q w - - 0 1";
  const auto line = CLiChessCache::ReadLine(CLiChessCache::Line(fen, answer));
  if (!line || line->first != fen || line->second != answer) std::abort();
  if (const auto read = CLiChessCache::ReadLine(std::string(text))) CheckRanges(read->second);
  return 0;
}
