#include "app/ConsoleProgress.h"

std::string ConsoleProgressLine(int nProblem, bool bMirrored, int nSeconds) {
  char line[64];
  std::snprintf(line, sizeof line, "%d%s... %d sec(s)...     \r", nProblem, bMirrored ? "(m)" : "",
                nSeconds);
  return line;
}

void CConsoleProgress::Tick(int nProblem, int nMirrorPass) {
  if (nMirrorPass != nPass) {
    nPass = nMirrorPass;
    nSeconds = 0;
  }
  ++nSeconds;
  std::fputs(ConsoleProgressLine(nProblem, nMirrorPass != 0, nSeconds).c_str(), stream);
  std::fflush(stream);
}
