#pragma once
// The priority classes the user can choose for the whole process, mapped to nice levels.

namespace platform {

enum class EPriorityClass { High, AboveNormal, Normal, BelowNormal, Idle };

// The nice level that stands for a priority class.
int NiceLevel(EPriorityClass priority);
// The class a nice level is shown as: the lowest class that runs at least as fast, so that
// nice 10 shows as below normal, nice 19 as idle and nice -1 as above normal.
EPriorityClass PriorityClassOfNiceLevel(int nice);

// Applies the class to every thread of the process. Raising the priority needs a
// privilege the process may lack: then it returns false and changes nothing further.
bool SetProcessPriority(EPriorityClass priority);

// Lowers every thread to the level of the class; a thread that already runs lower keeps its
// level, so a program started with a low priority is never raised. Returns false when a
// thread's level could not be read or set.
bool LowerProcessPriority(EPriorityClass priority);

// The class the calling thread runs at now.
EPriorityClass CurrentPriorityClass();

}  // namespace platform
