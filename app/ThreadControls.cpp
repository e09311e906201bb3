#include "app/ThreadControls.h"

#include <algorithm>

namespace {

constexpr long long kMaxDialogThreads = 64;
constexpr long long kMaxLevels = 64;
constexpr long long kMaxControlThreads = 32;

}  // namespace

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
  return static_cast<unsigned>(std::clamp(next, 1LL, kMaxControlThreads));
}
