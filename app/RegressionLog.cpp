#include "app/RegressionLog.h"

#include <array>
#include <thread>

#include "core/FileAppender.h"

CRegressionLog::CRegressionLog(const std::filesystem::path& folder, TSleep sleepFor)
    : path(folder / kFileName), sleep(std::move(sleepFor)) {
  if (!sleep) sleep = [](std::chrono::milliseconds wait) { std::this_thread::sleep_for(wait); };
}

std::optional<std::string> CRegressionLog::Append(const std::string& text) const {
  return safefile::AppendToFile(path.string(), text);
}

bool CRegressionLog::Rotate() const {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return true;
  std::filesystem::path backup = path;
  backup += kBackupSuffix;
  const auto TryRename = [&] {
    std::filesystem::remove(backup, error);
    std::filesystem::rename(path, backup, error);
    return !error;
  };
  if (TryRename()) return true;
  using std::chrono::milliseconds;
  for (const milliseconds wait :
       std::array{milliseconds(0), milliseconds(100), milliseconds(200)}) {
    sleep(wait);
    if (TryRename()) return true;
  }
  return false;
}
