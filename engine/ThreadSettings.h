#pragma once
// How many threads (t) and multithreading levels (L) a solve uses, and the
// limits on them. Up to t^L threads run at once, so the totals are bounded.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct TThreadSettings {
  unsigned nThreads = 1;
  unsigned nLevels = 1;
  bool operator==(const TThreadSettings&) const = default;
};

// Start-up defaults: one thread per physical core at the levels of the settings
// file; large machines get 2 levels of floor(sqrt(cores)) threads, at least 4.
TThreadSettings DefaultThreadSettings(unsigned nPhysicalCores, unsigned nLogicalProcessors,
                                      unsigned nLevelsFromFile);

// True when t, t^2, ..., t^L and their running sums all stay below 32767.
bool IsAdmissibleThreadTotal(unsigned nThreads, unsigned nLevels);

enum class EThreadSettingsMessage { LevelsAdjusted, TooManyThreads };
std::string ThreadSettingsMessageText(EThreadSettingsMessage message);

struct TThreadDialogOutcome {
  TThreadSettings settings;                      // accepted, or the previous pair when refused
  std::vector<EThreadSettingsMessage> messages;  // to show in this order
  bool bAccepted = false;
  bool bChanged = false;  // accepted and different from the previous pair
};

// Checks the two fields of the options dialog. With fewer than 2 threads the
// levels field is not looked at.
TThreadDialogOutcome ValidateThreadDialog(const TThreadSettings& previous, long long nThreadsField,
                                          long long nLevelsField);

// A click on the thread control of the board view: the upper half adds a
// thread when the total stays admissible, the lower half removes one.
unsigned ClickThreadControl(unsigned nThreads, unsigned nLevels, bool bUpperHalf);

// The stack of a solving thread: 2048 bytes per unit of the factor, at least 1 MiB.
std::size_t SolvingThreadStackSize(std::uint16_t nStackFactor);

// "SnglSolution, 4thrd(s)" for modes 1 and 5, "AllSolutions, 4thrd(s)" for modes 2
// and 6, " 4thrd(s)" for other modes. The solving mode comes first because its
// text ends in the comma that separates it from the count.
std::string ThreadCountLabel(std::size_t nThreads, int nSolvingMode);
