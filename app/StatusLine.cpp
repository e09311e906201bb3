#include "app/StatusLine.h"

#include <cstdio>

#include "app/Formatting.h"

namespace {

constexpr std::string_view kCutMark = "... ";

std::string Stipulation(const TStatusItems& items) {
  std::string text = std::to_string(items.nMoves) + items.sTypeMark;
  if (items.nExtraMoves != 0) text += "+" + std::to_string(items.nExtraMoves);
  return text;
}

std::string Percent(double dPercent) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%0.1f%%", dPercent);
  return buffer;
}

}  // namespace

std::string ComposeStatusLine(const TStatusItems& items, std::size_t nWidth) {
  std::string text = "Pass " + items.sPass;
  text += " SH(" + items.sHeuristics + ")";
  if (items.bSafeMode) text += " Safe mode ON";
  if (items.nGlobalRegisterBytes) text += " GR=" + FormatMemorySize(*items.nGlobalRegisterBytes);
  text += " " + Stipulation(items);
  text += " Thrds=" + std::to_string(items.nThreads);
  text += " " + Percent(items.dPercentDone);
  text += " " + std::to_string(items.nPositions);
  text += " " + FormatElapsed(items.nElapsedSeconds);
  if (text.size() <= nWidth) return text;
  if (nWidth < kCutMark.size()) return std::string(kCutMark.substr(0, nWidth));
  return text.substr(0, nWidth - kCutMark.size()) + std::string(kCutMark);
}
