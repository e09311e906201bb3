// The generator's double steps next to an enemy pawn: settled apart, once per round, from
// the value of the position without the en passant right and what the capture gives.
#include <algorithm>

#include "registers/TableGenerator.h"

bool CTableGenerator::IsSteppedBlack(std::uint64_t i) const {
  return std::binary_search(
      blackSteps.begin(), blackSteps.end(), TBlackStep{i, 0, 0},
      [](const TBlackStep& a, const TBlackStep& b) { return a.black < b.black; });
}

std::uint64_t CTableGenerator::SettleWhiteSteps(std::uint8_t n) {
  std::uint64_t nFound = 0;
  for (const TWhiteStep& step : whiteSteps) {
    if (white[step.white] != 0 || !tablevalue::IsMate(step.captureValue)) continue;
    std::uint8_t value = step.captureValue;
    if (!step.bOnlyCapture) {
      const std::uint8_t without = black[step.black];
      // Without the right Black is still open or escapes: the step mates no sooner.
      if (!tablevalue::IsMate(without)) continue;
      value = std::max(value, without);
    }
    if (value == n - 1) {
      white[step.white] = n;
      ++nFound;
    }
  }
  return nFound;
}

std::uint64_t CTableGenerator::SettleBlackSteps(std::uint8_t n) {
  std::uint64_t nFound = 0;
  for (size_t first = 0; first < blackSteps.size();) {
    size_t last = first;
    while (last < blackSteps.size() && blackSteps[last].black == blackSteps[first].black) ++last;
    const std::uint64_t i = blackSteps[first].black;
    bool bKnown = black[i] == tablevalue::kNoMate && openCounts[i] == 0;
    for (size_t k = first; k < last && bKnown; ++k) {
      // Known once White's answer is: the position without the right settled, or the
      // capture's value reached.
      const std::uint8_t without = white[blackSteps[k].white];
      bKnown = (without != 0 && without <= n) || blackSteps[k].captureValue <= n;
    }
    if (bKnown) {
      SetBlack(i, std::max(blackFloor[i], n));
      ++nFound;
    }
    first = last;
  }
  return nFound;
}
