#pragma once
// What the running program knows about itself. Owned by the GUI thread.
#include <filesystem>

#include "app/platform/ProcessPriority.h"

struct ProgramState {
  bool bSecondInstance = false;  // another copy was running when this one started
  int nLanguageId = 1;
  // The priority chosen last, or the class start-up left the process at; the menu marks
  // below normal as recommended.
  platform::EPriorityClass priorityClass = platform::EPriorityClass::BelowNormal;
  std::filesystem::path guiLogPath;
};

ProgramState& GetProgramState();
