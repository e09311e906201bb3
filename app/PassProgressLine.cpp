#include "app/PassProgressLine.h"

#include <cstdio>

std::string PassProgressLine(const TPassProgress& progress) {
  const std::string line = progress.sCurrentMove.empty() ? "" : "1. " + progress.sCurrentMove + " ";
  char buffer[256];
  std::snprintf(buffer, sizeof buffer, "Pass %s, %s%0.1f%% %llu", progress.sPass.c_str(),
                line.c_str(), 100.0 * progress.dShareDone,
                static_cast<unsigned long long>(progress.nPositions));
  std::string text = buffer;
  if (progress.nHeuristicMask != 0) {
    std::snprintf(buffer, sizeof buffer, " SH:%xh", progress.nHeuristicMask);
    text += buffer;
  }
  std::snprintf(buffer, sizeof buffer, ",TR:%u(%u)", progress.nRegisterElements,
                progress.nDoubtfulElements);
  return text + buffer + "     \r";
}
