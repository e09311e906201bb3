#pragma once
// What the tests of the solving session share: settings, problems, thread counts and the
// progress reports to wait on.
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include "SolvingFixtures.h"
#include "app/SolvingSession.h"
#include "app/platform/ProcessThreads.h"

namespace sessiontest {

using Clock = std::chrono::steady_clock;

inline constexpr const char* kMates = "directmates.tsv";
// A mate in 10 that takes far longer than any test runs.
inline constexpr const char* kLongSolveFile = "moremovers.tsv";
inline constexpr const char* kLongSolveRow = "mt-04273";

inline COptions TestOptions() {
  COptions options = DefaultOptions();
  options.nLanguageId = 1;
  return options;
}

inline int ProcessThreadCount() {
  int n = 0;
  platform::ForEachThreadOfProcess([&n](pid_t) { return ++n > 0; });
  return n;
}

// The count a solve must return to. ThreadSanitizer starts a helper thread of its own with the
// process's first thread, so one thread is started first to have it counted here.
inline int ThreadCountBeforeSolving() {
  std::thread([] {}).join();
  return ProcessThreadCount();
}

// Progress reports as events to wait for: a test waits until what it looks for holds,
// looking again after each report of the solving thread.
class CProgressEvents {
 public:
  void Report() {
    {
      const std::lock_guard lock(mutex);
      ++nReports;
    }
    reported.notify_all();
  }
  // Waits for a report after which bHolds holds, or for the end of the solve. bHolds runs
  // under the lock of the reports.
  bool WaitUntil(const CSolvingSession& session, const std::function<bool()>& bHolds) {
    std::unique_lock lock(mutex);
    for (;;) {
      const int nSeen = nReports;
      if (bHolds()) return true;
      if (!session.IsRunning()) return false;
      reported.wait(lock, [&] { return nReports != nSeen; });
    }
  }
  // Waits for the report after the next one: one that began after this call.
  void WaitForAFreshReport() {
    std::unique_lock lock(mutex);
    const int nSeen = nReports;
    reported.wait(lock, [&] { return nReports >= nSeen + 2; });
  }
  // The end of the solve counts as a report too, so that no wait outlasts the solve.
  TSessionCallbacks Callbacks() {
    return {.onProgress = [this](const TPassProgress&) { Report(); },
            .onSolveFinished = [this] { Report(); }};
  }

 private:
  std::mutex mutex;
  std::condition_variable reported;
  int nReports = 0;
};

}  // namespace sessiontest
