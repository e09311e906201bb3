#pragma once
// What the machine offers: memory and processors. The processor counts are
// computed once and cached, since thread defaults and menus ask for them often.
#include <cstdint>
#include <string_view>

namespace platform {

enum class ECountFreshness { Cached, Fresh };

// Total physical memory of the machine in bytes (0 when it cannot be told).
std::uint64_t TotalPhysicalMemoryBytes();

// Processors the scheduler may run threads on (at least 1).
unsigned LogicalProcessorCount(ECountFreshness freshness = ECountFreshness::Cached);

// Physical cores (at least 1); the logical count stands in when the topology is unknown.
unsigned PhysicalCoreCount(ECountFreshness freshness = ECountFreshness::Cached);

// Distinct (physical id, core id) pairs of a /proc/cpuinfo text; 0 when it names none.
unsigned CountCoresInCpuInfo(std::string_view cpuInfoText);

}  // namespace platform
