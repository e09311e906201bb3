#include "app/platform/ProcessPriority.h"

#include <sys/resource.h>

#include "app/platform/ProcessThreads.h"

namespace platform {

int NiceLevel(EPriorityClass priority) {
  switch (priority) {
    case EPriorityClass::High:
      return -10;
    case EPriorityClass::AboveNormal:
      return -5;
    case EPriorityClass::Normal:
      return 0;
    case EPriorityClass::BelowNormal:
      return 5;
    case EPriorityClass::Idle:
      return 19;
  }
  return 0;
}

bool SetProcessPriority(EPriorityClass priority) {
  const int nice = NiceLevel(priority);
  return ForEachThreadOfProcess(
      [nice](pid_t tid) { return setpriority(PRIO_PROCESS, static_cast<id_t>(tid), nice) == 0; });
}

}  // namespace platform
