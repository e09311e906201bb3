#pragma once
// The line a console solve rewrites once a second while it waits: "12(m)... 5 sec(s)...".
#include <cstdio>
#include <string>

// The problem number, "(m)" during the mirrored pass, and the seconds of the pass so far,
// ending in blanks and a carriage return so that the next line overwrites it.
std::string ConsoleProgressLine(int nProblem, bool bMirrored, int nSeconds);

class CConsoleProgress {
 public:
  explicit CConsoleProgress(std::FILE* output) : stream(output) {}
  // One second of a pass has gone by without its end; the count starts again with each pass.
  void Tick(int nProblem, int nMirrorPass);

 private:
  std::FILE* stream;
  int nPass = -1;
  int nSeconds = 0;
};
