#include "engine/PassSchedule.h"

#include <algorithm>

namespace {

// Far beyond any solve: the time no longer doubles past it.
constexpr std::int64_t kLongestRoundMs = std::int64_t{1} << 40;

}  // namespace

CPassSchedule::CPassSchedule(int nHeuristicPasses, bool bPass2, int nFirstPassMs)
    : nHeuristic(std::max(0, nHeuristicPasses)),
      nFirstMs(nFirstPassMs),
      open(static_cast<std::size_t>(nHeuristic) + 1, true),
      nRoundMs(std::max(1, nFirstPassMs)) {
  open.back() = bPass2;
}

int CPassSchedule::OpenHeuristicPasses() const {
  return static_cast<int>(std::count(open.begin(), open.end() - 1, true));
}

int CPassSchedule::OpenPasses() const {
  return static_cast<int>(std::count(open.begin(), open.end(), true));
}

std::optional<CPassSchedule::TTurn> CPassSchedule::Next() {
  if (OpenPasses() == 0) return std::nullopt;
  const int nPasses = static_cast<int>(open.size());
  if (nFirstMs <= 0) {
    const int nIndex = static_cast<int>(std::find(open.begin(), open.end(), true) - open.begin());
    return TTurn{.nIndex = nIndex};
  }
  while (true) {
    for (; nCursor < nPasses; ++nCursor) {
      if (!open[nCursor]) continue;
      const int nIndex = nCursor++;
      if (OpenPasses() == 1) return TTurn{.nIndex = nIndex};
      const std::int64_t nMs = nIndex == nHeuristic ? nRoundMs * OpenHeuristicPasses() : nRoundMs;
      return TTurn{.nIndex = nIndex, .time = std::chrono::milliseconds(nMs)};
    }
    nCursor = 0;
    nRoundMs = std::min(2 * nRoundMs, kLongestRoundMs);
  }
}

void CPassSchedule::Ended(int nIndex, bool bCompleted) {
  if (!bCompleted) return;
  if (nIndex == nHeuristic)
    std::fill(open.begin(), open.end(), false);
  else
    open[nIndex] = false;
}

void CPassSchedule::CloseHeuristicPasses() {
  std::fill(open.begin(), open.end() - 1, false);
}
