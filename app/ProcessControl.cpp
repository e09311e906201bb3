#include "app/ProcessControl.h"

#include "app/ProgramState.h"

bool ChooseProcessPriority(platform::EPriorityClass priority) {
  if (!platform::SetProcessPriority(priority)) return false;
  GetProgramState().priorityClass = priority;
  return true;
}

void LowerProcessPriorityAtStart() {
  platform::LowerProcessPriority(platform::EPriorityClass::BelowNormal);
  GetProgramState().priorityClass = platform::CurrentPriorityClass();
}

TAffinityMenuOutcome ToggleProcessorAffinity(const std::vector<bool>& checkMarks, unsigned k,
                                             int nLanguageId) {
  const platform::TAffinityMask processMask = platform::GetProcessAffinityMask().value_or(0);
  const platform::TAffinityToggle toggle = platform::ToggleAffinity(processMask, checkMarks, k);
  if (toggle.bChangedOutside)
    return {.message = PickText(nLanguageId, kAffinityChangedOutside), .mask = processMask};
  platform::SetProcessAffinityMask(toggle.newMask);
  return {.message = std::nullopt,
          .mask = platform::GetProcessAffinityMask().value_or(toggle.newMask)};
}
