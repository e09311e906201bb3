#pragma once
// What a solve tells its caller while it runs and when a pass ends: plain values only, so
// that a caller in another thread may keep them.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "app/SolvingRequest.h"
#include "app/ThreadSettings.h"

class CMateSolver;
struct TRootOutcome;

// A snapshot of the running pass.
struct TPassProgress {
  std::string sLabel;  // "12" or "12 M1"
  int nMirrorPass = 0;
  int nMoves = 0;  // the N of "#N"
  unsigned nThreads = 1;
  bool bSafeModeShown = false;  // quick mode is configured and this pass runs safe
  std::uint64_t nPositions = 0;
  double dShareDone = 0;  // of the first moves taken up, 0..1
  std::int64_t nElapsedSeconds = 0;
  int nCurrentMove = 0;  // index of the first move being analysed, in the sorted order
  int nFirstMoves = 0;
  std::string sCurrentMove;  // in the long notation
  bool bPaused = false;
  std::string sPass = "2";  // "1", "1b", ... under heuristics, "2" without
  std::uint32_t nHeuristicMask = 0;
  std::string sHeuristics;  // the set of the pass, described
  std::uint32_t nRegisterElements = 0;
  std::uint32_t nDoubtfulElements = 0;  // doubtful answers filed by the passes so far
};

// The first move one worker thread of the running pass searches, for a look at that thread.
struct TThreadMove {
  int nMove = -1;     // index in the sorted order; -1 while the thread waits or helps deeper
  std::string sMove;  // in the long notation, empty with -1
};

struct TPassOutcome {
  std::string sLabel;
  int nMirrorPass = 0;
  TSolvingResult result;
  std::vector<std::string> reportLines;  // the completion texts in the settings' language
};

struct TSessionCallbacks {
  std::function<void(const TPassProgress&)> onProgress = nullptr;
  std::function<void(const TPassOutcome&)> onPassFinished = nullptr;
  std::function<void()> onSolveFinished = nullptr;
  // A notice that does not stop the solve (a table file that cannot be used, a log that
  // cannot be written), each once; printed on the standard error when not given.
  std::function<void(const std::string&)> onMessage = nullptr;
  // Asked before a solve whose problem wants another thread count; true adopts it.
  std::function<bool(const TThreadSettings& forced, const std::string& question)> askForcedThreads =
      nullptr;
};

// The progress of the pass that solver runs for request.
TPassProgress PassProgress(const CMateSolver& solver, const SolvingRequest& request,
                           std::int64_t nElapsedMs, bool bQuickMode);
// Files what the search found into the request's result.
void RecordOutcome(const TRootOutcome& outcome, bool bStopped, SolvingRequest& request);
