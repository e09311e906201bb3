#include "app/SolvingRequest.h"

int MaxSolutions(ESolvingMode mode) {
  switch (mode) {
    case ESolvingMode::SingleSolution:
      return 1;
    case ESolvingMode::StopOnDual:
      return 2;
    case ESolvingMode::StopOn3Sol:
      return 3;
    case ESolvingMode::AllSolutions:
      break;
  }
  return 0;
}

ESolvingMode SolvingModeOf(const TProblem& problem, bool bForceAll) {
  if (bForceAll) return ESolvingMode::AllSolutions;
  // The stop options bound a search for all solutions, so they win over AllSolutions.
  if (problem.HasFlag(option::kStopOnDual)) return ESolvingMode::StopOnDual;
  if (problem.HasFlag(option::kStopOn3Sol)) return ESolvingMode::StopOn3Sol;
  if (problem.HasFlag(option::kAllSolutions)) return ESolvingMode::AllSolutions;
  return ESolvingMode::SingleSolution;
}

std::string SolvingRequest::Label() const {
  const std::string number = std::to_string(pProblem ? pProblem->id : 0);
  return nMirrorPass == 0 ? number : number + " M" + std::to_string(nMirrorPass);
}

std::string SolvingRequest::RegistryName() const {
  return std::to_string(pProblem ? pProblem->id : 0) + "_" + std::to_string(nMirrorPass);
}

void SolvingRequest::MarkDone() {
  {
    const std::lock_guard lock(doneMutex);
    bDone = true;
  }
  doneSignal.notify_all();
}

bool SolvingRequest::IsDone() const {
  const std::lock_guard lock(doneMutex);
  return bDone;
}

bool SolvingRequest::WaitDone(std::chrono::steady_clock::time_point deadline) const {
  std::unique_lock lock(doneMutex);
  return doneSignal.wait_until(lock, deadline, [this] { return bDone; });
}
