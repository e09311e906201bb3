#include "app/GuiLog.h"

#include "core/FileAppender.h"

std::string FormatLocalTime(std::time_t time) {
  std::tm local{};
  localtime_r(&time, &local);
  char buffer[32];
  const std::size_t length = std::strftime(buffer, sizeof buffer, "%Y-%m-%d %H:%M:%S", &local);
  return std::string(buffer, length);
}

std::optional<std::string> AppendTimedLogLine(const std::filesystem::path& logFile,
                                              std::string_view text) {
  return safefile::AppendToFile(
      logFile.string(), std::string(text) + " (" + FormatLocalTime(std::time(nullptr)) + ")\n");
}
