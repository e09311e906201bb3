#pragma once
// The priority classes the user can choose for the whole process, mapped to nice levels.

namespace platform {

enum class EPriorityClass { High, AboveNormal, Normal, BelowNormal, Idle };

// The nice level that stands for a priority class.
int NiceLevel(EPriorityClass priority);

// Applies the class to every thread of the process. Raising the priority needs a
// privilege the process may lack: then it returns false and changes nothing further.
bool SetProcessPriority(EPriorityClass priority);

}  // namespace platform
