#include "core/WriteFailures.h"

void CWriteFailures::Note(const std::string& path, const std::string& message) {
  {
    const std::lock_guard lock(mutex);
    if (!reported.insert(path).second) return;
  }
  if (report) report(message);
}
