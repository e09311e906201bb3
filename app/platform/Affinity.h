#pragma once
// Which processors the process may run on, as a bit mask (bit i: processor i).
#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

using TAffinityMask = std::uint64_t;

// The process mask, or nothing when the system does not tell it.
std::optional<TAffinityMask> GetProcessAffinityMask();

// Restricts every thread of the process to the processors of the mask.
bool SetProcessAffinityMask(TAffinityMask mask);

// Toggling processor k in the affinity menu. The check marks must still match the
// process mask; otherwise something outside changed it and the caller only refreshes.
struct TAffinityToggle {
  bool bChangedOutside = false;
  TAffinityMask newMask = 0;  // the mask to set when not changed outside
};

TAffinityToggle ToggleAffinity(TAffinityMask processMask, const std::vector<bool>& checkMarks,
                               unsigned nToggled);

}  // namespace platform
