#pragma once
// The window's controls for the thread settings: the two fields of the options dialog and
// the thread control of the board view.
#include <string>
#include <vector>

#include "app/ThreadSettings.h"

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
