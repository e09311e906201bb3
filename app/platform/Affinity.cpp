#include "app/platform/Affinity.h"

#include <sched.h>

#include "app/platform/ProcessThreads.h"

namespace platform {
namespace {

constexpr unsigned kMaskBits = 64;

TAffinityMask MaskFromCheckMarks(const std::vector<bool>& checkMarks) {
  TAffinityMask mask = 0;
  for (unsigned i = 0; i < checkMarks.size() && i < kMaskBits; ++i)
    if (checkMarks[i]) mask |= TAffinityMask{1} << i;
  return mask;
}

}  // namespace

std::optional<TAffinityMask> GetProcessAffinityMask() {
  cpu_set_t set;
  CPU_ZERO(&set);
  if (sched_getaffinity(0, sizeof set, &set) != 0) return std::nullopt;
  TAffinityMask mask = 0;
  for (unsigned i = 0; i < kMaskBits; ++i)
    if (CPU_ISSET(i, &set)) mask |= TAffinityMask{1} << i;
  return mask;
}

bool SetProcessAffinityMask(TAffinityMask mask) {
  if (mask == 0) return false;
  cpu_set_t set;
  CPU_ZERO(&set);
  for (unsigned i = 0; i < kMaskBits; ++i)
    if (mask & (TAffinityMask{1} << i)) CPU_SET(i, &set);
  return ForEachThreadOfProcess(
      [&set](pid_t tid) { return sched_setaffinity(tid, sizeof set, &set) == 0; });
}

TAffinityToggle ToggleAffinity(TAffinityMask processMask, const std::vector<bool>& checkMarks,
                               unsigned nToggled) {
  const TAffinityMask asShown = MaskFromCheckMarks(checkMarks);
  if (asShown != processMask) return {.bChangedOutside = true, .newMask = processMask};
  const TAffinityMask toggledBit = nToggled < kMaskBits ? TAffinityMask{1} << nToggled : 0;
  return {.bChangedOutside = false, .newMask = asShown ^ toggledBit};
}

}  // namespace platform
