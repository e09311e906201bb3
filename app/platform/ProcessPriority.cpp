#include "app/platform/ProcessPriority.h"

#include <sys/resource.h>

#include <cerrno>

#include "app/platform/ProcessThreads.h"

namespace platform {
namespace {

constexpr EPriorityClass kFromLowest[] = {EPriorityClass::Idle, EPriorityClass::BelowNormal,
                                          EPriorityClass::Normal, EPriorityClass::AboveNormal,
                                          EPriorityClass::High};

// getpriority may return -1 as a level, so only errno tells a failure.
bool ReadNiceLevel(id_t tid, int& nice) {
  errno = 0;
  nice = getpriority(PRIO_PROCESS, tid);
  return errno == 0;
}

}  // namespace

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

EPriorityClass PriorityClassOfNiceLevel(int nice) {
  for (EPriorityClass priority : kFromLowest)
    if (NiceLevel(priority) <= nice) return priority;
  return EPriorityClass::High;
}

bool SetProcessPriority(EPriorityClass priority) {
  const int nice = NiceLevel(priority);
  return ForEachThreadOfProcess(
      [nice](pid_t tid) { return setpriority(PRIO_PROCESS, static_cast<id_t>(tid), nice) == 0; });
}

bool LowerProcessPriority(EPriorityClass priority) {
  const int nice = NiceLevel(priority);
  return ForEachThreadOfProcess([nice](pid_t tid) {
    int current = 0;
    if (!ReadNiceLevel(static_cast<id_t>(tid), current)) return false;
    return current >= nice || setpriority(PRIO_PROCESS, static_cast<id_t>(tid), nice) == 0;
  });
}

EPriorityClass CurrentPriorityClass() {
  int nice = 0;
  return PriorityClassOfNiceLevel(ReadNiceLevel(0, nice) ? nice : 0);
}

}  // namespace platform
