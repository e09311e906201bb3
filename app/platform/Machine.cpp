#include "app/platform/Machine.h"

#include <unistd.h>

#include <atomic>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>
#include <utility>

namespace platform {
namespace {

using TCoreKey = std::pair<long, long>;  // (physical package, core within it)

// Reads "name : 12" and returns 12 when the line names the field, -1 otherwise.
long CpuInfoField(std::string_view line, std::string_view name) {
  if (line.substr(0, name.size()) != name) return -1;
  const auto colon = line.find(':');
  if (colon == std::string_view::npos) return -1;
  std::string_view rest = line.substr(colon + 1);
  while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
  long value = -1;
  std::from_chars(rest.data(), rest.data() + rest.size(), value);
  return value;
}

long ReadNumberFile(const std::filesystem::path& path) {
  std::ifstream in(path);
  long value = -1;
  if (!(in >> value)) return -1;
  return value;
}

// The sysfs topology serves where /proc/cpuinfo carries no core ids (some architectures).
unsigned CountCoresInSysfs() {
  std::set<TCoreKey> cores;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator("/sys/devices/system/cpu", error)) {
    const std::string name = entry.path().filename().string();
    if (name.size() < 4 || name.compare(0, 3, "cpu") != 0 ||
        name.find_first_not_of("0123456789", 3) != std::string::npos)
      continue;
    const long package = ReadNumberFile(entry.path() / "topology/physical_package_id");
    const long core = ReadNumberFile(entry.path() / "topology/core_id");
    if (package >= 0 && core >= 0) cores.emplace(package, core);
  }
  return static_cast<unsigned>(cores.size());
}

unsigned ComputeLogicalCount() {
  const long online = sysconf(_SC_NPROCESSORS_ONLN);
  if (online > 0) return static_cast<unsigned>(online);
  const unsigned hardware = std::thread::hardware_concurrency();
  return hardware > 0 ? hardware : 1;
}

unsigned ComputePhysicalCount() {
  std::ifstream in("/proc/cpuinfo");
  std::stringstream text;
  text << in.rdbuf();
  unsigned cores = CountCoresInCpuInfo(text.str());
  if (cores == 0) cores = CountCoresInSysfs();
  return cores > 0 ? cores : LogicalProcessorCount();
}

unsigned CachedCount(std::atomic<unsigned>& cache, ECountFreshness freshness,
                     unsigned (*compute)()) {
  unsigned value = cache.load(std::memory_order_relaxed);
  if (value == 0 || freshness == ECountFreshness::Fresh) {
    value = compute();
    cache.store(value, std::memory_order_relaxed);
  }
  return value;
}

}  // namespace

std::uint64_t TotalPhysicalMemoryBytes() {
  const long pages = sysconf(_SC_PHYS_PAGES);
  const long pageSize = sysconf(_SC_PAGESIZE);
  if (pages <= 0 || pageSize <= 0) return 0;
  return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageSize);
}

unsigned LogicalProcessorCount(ECountFreshness freshness) {
  static std::atomic<unsigned> cache{0};
  return CachedCount(cache, freshness, ComputeLogicalCount);
}

unsigned PhysicalCoreCount(ECountFreshness freshness) {
  static std::atomic<unsigned> cache{0};
  return CachedCount(cache, freshness, ComputePhysicalCount);
}

unsigned CountCoresInCpuInfo(std::string_view cpuInfoText) {
  std::set<TCoreKey> cores;
  long package = -1;
  long core = -1;
  // A blank line ends the block of one logical processor.
  auto flush = [&] {
    if (package >= 0 && core >= 0) cores.emplace(package, core);
    package = core = -1;
  };
  while (!cpuInfoText.empty()) {
    const auto end = cpuInfoText.find('\n');
    const std::string_view line = cpuInfoText.substr(0, end);
    cpuInfoText.remove_prefix(end == std::string_view::npos ? cpuInfoText.size() : end + 1);
    if (line.empty()) flush();
    if (const long value = CpuInfoField(line, "physical id"); value >= 0) package = value;
    if (const long value = CpuInfoField(line, "core id"); value >= 0) core = value;
  }
  flush();
  return static_cast<unsigned>(cores.size());
}

}  // namespace platform
