#include "app/SolverRun.h"

CSolverRun::CSolverRun(CMateSolver& solver)
    : thread([this, &solver] {
        TRootOutcome found;
        std::exception_ptr thrown;
        try {
          found = solver.Run();
        } catch (...) {
          thrown = std::current_exception();
        }
        {
          const std::lock_guard lock(mutex);
          outcome = std::move(found);
          failure = thrown;
          bEnded = true;
        }
        ended.notify_all();
      }) {}

CSolverRun::~CSolverRun() {
  if (thread.joinable()) thread.join();
}

bool CSolverRun::WaitFor(std::chrono::milliseconds time) {
  std::unique_lock lock(mutex);
  return ended.wait_for(lock, time, [this] { return bEnded; });
}

TRootOutcome CSolverRun::TakeOutcome() {
  if (thread.joinable()) thread.join();
  if (failure) std::rethrow_exception(failure);
  return std::move(outcome);
}
