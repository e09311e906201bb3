#include "app/platform/ProcessMemory.h"

#include <malloc.h>

#include <charconv>
#include <fstream>
#include <sstream>
#include <string>

namespace platform {
namespace {

std::uint64_t StatusField(std::string_view name) {
  std::ifstream in("/proc/self/status");
  std::stringstream text;
  text << in.rdbuf();
  return StatusFieldBytes(text.str(), name);
}

}  // namespace

std::uint64_t StatusFieldBytes(std::string_view statusText, std::string_view name) {
  for (std::size_t at = 0; at < statusText.size();) {
    const std::size_t end = std::min(statusText.find('\n', at), statusText.size());
    std::string_view line = statusText.substr(at, end - at);
    at = end + 1;
    if (line.substr(0, name.size()) != name || line.substr(name.size(), 1) != ":") continue;
    line.remove_prefix(name.size() + 1);
    while (!line.empty() && (line.front() == ' ' || line.front() == '\t')) line.remove_prefix(1);
    std::uint64_t nKiB = 0;
    std::from_chars(line.data(), line.data() + line.size(), nKiB);
    return nKiB << 10;
  }
  return 0;
}

std::uint64_t ResidentBytes() {
  return StatusField("VmRSS");
}

std::uint64_t PeakResidentBytes() {
  return StatusField("VmHWM");
}

bool ResetPeakResident() {
  // Writing 5 to clear_refs sets the peak to the resident memory of now.
  std::ofstream out("/proc/self/clear_refs");
  out << "5";
  out.close();
  return !out.fail();
}

void ReleaseFreeMemory() {
  malloc_trim(0);
}

}  // namespace platform
