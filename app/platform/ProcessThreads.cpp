#include "app/platform/ProcessThreads.h"

#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <string>

namespace platform {

bool ForEachThreadOfProcess(const std::function<bool(pid_t)>& apply) {
  std::error_code error;
  std::filesystem::directory_iterator tasks("/proc/self/task", error);
  if (error) return apply(getpid());
  bool bAllApplied = true;
  for (const auto& entry : tasks) {
    const std::string name = entry.path().filename().string();
    pid_t tid = 0;
    const auto [end, code] = std::from_chars(name.data(), name.data() + name.size(), tid);
    if (code != std::errc{} || end != name.data() + name.size()) continue;
    bAllApplied = apply(tid) && bAllApplied;
  }
  return bAllApplied;
}

}  // namespace platform
