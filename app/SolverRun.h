#pragma once
// One run of a mate solver in a thread of its own, so that the thread that started it stays
// free to report progress while it waits for the end.
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

#include "engine/MateSolver.h"

class CSolverRun {
 public:
  explicit CSolverRun(CMateSolver& solver);
  ~CSolverRun();  // waits for the run to end
  CSolverRun(const CSolverRun&) = delete;
  CSolverRun& operator=(const CSolverRun&) = delete;

  // Waits at most the given time; returns whether the run has ended.
  bool WaitFor(std::chrono::milliseconds time);
  // What the run found, once it has ended; rethrows what it threw.
  TRootOutcome TakeOutcome();

 private:
  std::mutex mutex;
  std::condition_variable ended;
  bool bEnded = false;
  TRootOutcome outcome;
  std::exception_ptr failure;
  std::thread thread;  // last: it starts once the members above exist
};
