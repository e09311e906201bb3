#include "app/GuiLog.h"

#include <fstream>

std::string FormatLocalTime(std::time_t time) {
  std::tm local{};
  localtime_r(&time, &local);
  char buffer[32];
  const std::size_t length = std::strftime(buffer, sizeof buffer, "%Y-%m-%d %H:%M:%S", &local);
  return std::string(buffer, length);
}

bool AppendTimedLogLine(const std::filesystem::path& logFile, std::string_view text) {
  std::ofstream out(logFile, std::ios::app);
  out << text << " (" << FormatLocalTime(std::time(nullptr)) << ")\n";
  return static_cast<bool>(out.flush());
}
