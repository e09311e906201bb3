#pragma once
// The priority and processor-affinity menus acting on the whole process.
#include <optional>
#include <string>
#include <vector>

#include "app/Language.h"
#include "app/platform/Affinity.h"
#include "app/platform/ProcessPriority.h"

inline constexpr TTextTwins kAffinityChangedOutside{
    "Ustawienia zostały zmienione poza programem.\nPonów próbę zmiany ustawień.",
    "Settings were changed outside the program.\nRetry the attempt to change settings.",
    "Налаштування було змінено поза програмою.\nПовторіть спробу змінити налаштування."};

// Sets the priority class and, when that worked, remembers it as the current choice. An
// explicit choice may raise the priority where the system allows it.
bool ChooseProcessPriority(platform::EPriorityClass priority);

// Start-up lowers the priority to below normal but never raises it: a program started with a
// lower priority keeps it. Remembers the class the process then runs at.
void LowerProcessPriorityAtStart();

struct TAffinityMenuOutcome {
  std::optional<std::string> message;  // shown with the information title
  platform::TAffinityMask mask = 0;    // the process mask to set the check marks from
};

// Toggles processor k of the affinity menu, whose check marks are given as they stand.
TAffinityMenuOutcome ToggleProcessorAffinity(const std::vector<bool>& checkMarks, unsigned k,
                                             int nLanguageId);
