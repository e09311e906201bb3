#include "engine/ThreadSettings.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr long long kMaxThreadTotal = 32767;
constexpr long long kMaxDialogThreads = 64;
constexpr long long kMaxLevels = 64;
constexpr unsigned kMaxControlThreads = 32;

}  // namespace

TThreadSettings DefaultThreadSettings(unsigned nPhysicalCores, unsigned nLogicalProcessors,
                                      unsigned nLevelsFromFile) {
  if (nPhysicalCores >= 8 || (nPhysicalCores >= 6 && nLogicalProcessors >= 12)) {
    const auto root = static_cast<unsigned>(std::sqrt(static_cast<double>(nPhysicalCores)));
    return {.nThreads = std::max(root, 4u), .nLevels = 2};
  }
  return {.nThreads = nPhysicalCores, .nLevels = nLevelsFromFile};
}

bool IsAdmissibleThreadTotal(unsigned nThreads, unsigned nLevels) {
  long long power = nThreads;
  long long sum = nThreads;
  for (unsigned i = 2; i <= nLevels; ++i) {
    power *= nThreads;
    sum += power;
    if (power > kMaxThreadTotal || sum > kMaxThreadTotal) return false;
  }
  return sum < kMaxThreadTotal;
}

std::string ThreadSettingsMessageText(EThreadSettingsMessage message) {
  if (message == EThreadSettingsMessage::LevelsAdjusted)
    return "Improper value in multithreading levels option: value truncated/adjusted";
  return "Too many threads and/or multithreading levels.";
}

TThreadDialogOutcome ValidateThreadDialog(const TThreadSettings& previous, long long nThreadsField,
                                          long long nLevelsField) {
  TThreadDialogOutcome outcome;
  outcome.settings = previous;
  const auto nThreads = static_cast<unsigned>(std::clamp(nThreadsField, 1LL, kMaxDialogThreads));
  unsigned nLevels = 1;
  if (nThreads >= 2) {
    nLevels = static_cast<unsigned>(std::clamp(nLevelsField, 1LL, kMaxLevels));
    if (nLevels != nLevelsField) outcome.messages.push_back(EThreadSettingsMessage::LevelsAdjusted);
  }
  if (!IsAdmissibleThreadTotal(nThreads, nLevels)) {
    outcome.messages.push_back(EThreadSettingsMessage::TooManyThreads);
    return outcome;
  }
  outcome.settings = {.nThreads = nThreads, .nLevels = nLevels};
  outcome.bAccepted = true;
  outcome.bChanged = outcome.settings != previous;
  return outcome;
}

unsigned ClickThreadControl(unsigned nThreads, unsigned nLevels, bool bUpperHalf) {
  long long next = nThreads;
  if (bUpperHalf && IsAdmissibleThreadTotal(nThreads + 1, nLevels)) ++next;
  if (!bUpperHalf) --next;
  return static_cast<unsigned>(std::clamp(next, 1LL, static_cast<long long>(kMaxControlThreads)));
}

std::size_t SolvingThreadStackSize(std::uint16_t nStackFactor) {
  return std::max<std::size_t>(std::size_t{nStackFactor} * 2048, std::size_t{1} << 20);
}

std::string ThreadCountLabel(std::size_t nThreads, int nSolvingMode) {
  char count[32];
  std::snprintf(count, sizeof count, "%2zdthrd(s)", static_cast<std::ptrdiff_t>(nThreads));
  if (nSolvingMode == 1 || nSolvingMode == 5) return std::string("SnglSolution,") + count;
  if (nSolvingMode == 2 || nSolvingMode == 6) return std::string("AllSolutions,") + count;
  return count;
}
