#pragma once
// The memory this process really holds, for the measurements of the register's quota.
#include <cstdint>
#include <string_view>

namespace platform {

// Resident memory now and at its peak, in bytes (0 when the system does not tell).
std::uint64_t ResidentBytes();
std::uint64_t PeakResidentBytes();
// Starts a new peak from the resident memory of now; false when the system cannot.
bool ResetPeakResident();
// Hands memory the allocator keeps free back to the system, so that the resident memory
// shows what is in use.
void ReleaseFreeMemory();

// The value in bytes of a "Name:   123 kB" line of a /proc status text; 0 when absent.
std::uint64_t StatusFieldBytes(std::string_view statusText, std::string_view name);

}  // namespace platform
