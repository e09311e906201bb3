#include "app/Formatting.h"

#include <cstdio>

namespace {

template <typename... TArgs>
std::string Printf(const char* format, TArgs... args) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, format, args...);
  return buffer;
}

}  // namespace

std::string FormatMemorySize(std::uint64_t nBytes) {
  const std::uint64_t nMegabytes = nBytes >> 20;
  if (nMegabytes < 1000) return Printf("%dMB", static_cast<int>(nMegabytes));
  return Printf("%0.1fGB", static_cast<double>(nMegabytes) / 1024);
}

std::string FormatCount(std::uint32_t n) {
  if (n == 0) return "";
  if (n < 950) return Printf("%u", n);
  if (n < 974) return Printf("%0.1fk", (n + 50) / 1024.0);
  if (n < 972800) return Printf("%uk", n >> 10);
  if (n < 0xA00000) return Printf("%0.1fM", (n + 50000) / 1048576.0);
  if (n < 996147200) return Printf("%uM", n >> 20);
  return Printf("%0.1fG", static_cast<double>(static_cast<float>(n) / 1073741824.0f));
}

std::string FormatElapsed(std::int64_t nSeconds) {
  const int seconds = static_cast<int>(nSeconds % 60);
  if (nSeconds < 3600) return Printf("%d:%02d", static_cast<int>(nSeconds / 60), seconds);
  return Printf("%d:%02d:%02d", static_cast<int>(nSeconds / 3600),
                static_cast<int>(nSeconds / 60 % 60), seconds);
}
