#pragma once
// Linux keeps nice levels and CPU affinity per thread, so a setting meant for
// the whole process has to be applied to every thread it has.
#include <sys/types.h>

#include <functional>

namespace platform {

// Calls apply(tid) for every thread of this process; true when every call succeeded.
bool ForEachThreadOfProcess(const std::function<bool(pid_t)>& apply);

}  // namespace platform
