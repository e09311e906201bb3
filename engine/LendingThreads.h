#pragma once
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <mutex>
#include <vector>

#include "engine/MateSearch.h"
#include "engine/Scheduler.h"
#include "engine/SolvingThread.h"

// The scheduler of one root search with threads of its own: each waits for a White node
// that lends time to its runners-up (see CScheduler) and takes that node's moves while it
// holds a permit. The threads start with the workers and end after them: a node that lends
// time waits for its helpers, so once every worker has ended no thread of the scheduler is
// inside a node any more.
class CLendingThreads {
 public:
  // bShare: whether the searches of these threads offer their own nodes to idle workers too.
  CLendingThreads(SearchContext& context, std::uint16_t rootPlies,
                  const CScheduler::TSettings& settings, int nWorkers, CSplitBoard& splitBoard,
                  bool bShare);
  ~CLendingThreads();
  CLendingThreads(const CLendingThreads&) = delete;
  CLendingThreads& operator=(const CLendingThreads&) = delete;

  CScheduler& Scheduler() { return scheduler; }
  // Starts the threads, whose log files take numbers from nFirstLogThread on; false when one
  // could not be started (the solve is then aborted, and End still waits for the others).
  bool Start(const TThreadStarter& starter, std::size_t nStackBytes, int nFirstLogThread);
  // Ends the threads once the workers have ended; the first thing one of them threw, if any.
  std::exception_ptr End();

  std::uint64_t Positions() const;
  void ReleaseBuffers();

 private:
  // A thread's entry: what it throws aborts the solve and is kept for End.
  void Run(int helper) noexcept;
  void Help(CMateSearch& search);

  SearchContext& context;
  CScheduler scheduler;
  std::vector<std::unique_ptr<CMateSearch>> searches;
  std::vector<std::unique_ptr<CSolvingThread>> threads;
  std::atomic<bool> bEnd{false};
  std::mutex failureMutex;
  std::exception_ptr failure;  // under failureMutex
};
