#include <mutex>

#include "app/SolvingSession.h"
#include "core/Notation.h"
#include "engine/MateSolver.h"

// The commands that reach a running solve from other threads (stop, pause, resume, the
// manual commands) and the counters read while it runs.

void CSolvingSession::SetActiveSolver(CMateSolver* solver) {
  const std::lock_guard lock(controlMutex);
  activeSolver = solver;
  if (!solver) return;
  if (stopRequest != EStopRequest::None)
    solver->Stop();
  else if (pauseState == EPauseState::AllPaused)
    solver->Pause();
  else if (pauseState == EPauseState::OnePaused)
    solver->PauseOneThread();
}

void CSolvingSession::Stop() {
  RequestStop(EStopRequest::User);
}

void CSolvingSession::Interrupt() {
  {
    const std::lock_guard lock(controlMutex);
    bInterrupted = true;
  }
  RequestStop(EStopRequest::User);
}

bool CSolvingSession::IsInterrupted() const {
  const std::lock_guard lock(controlMutex);
  return bInterrupted;
}

void CSolvingSession::RequestStop(EStopRequest request) {
  const std::lock_guard lock(controlMutex);
  if (stopRequest == EStopRequest::None) stopRequest = request;
  if (activeSolver) activeSolver->Stop();
}

CSolvingSession::EStopRequest CSolvingSession::StopRequest() const {
  const std::lock_guard lock(controlMutex);
  return stopRequest;
}

void CSolvingSession::PauseAll() {
  const std::lock_guard lock(controlMutex);
  pauseState = EPauseState::AllPaused;
  if (activeSolver) activeSolver->Pause();
}

bool CSolvingSession::PauseOneThread() {
  const std::lock_guard lock(controlMutex);
  pauseState = EPauseState::OnePaused;
  if (!activeSolver) return false;
  activeSolver->PauseOneThread();
  return true;
}

void CSolvingSession::Resume() {
  const std::lock_guard lock(controlMutex);
  pauseState = EPauseState::Running;
  if (activeSolver) activeSolver->Resume();
}

bool CSolvingSession::ApplyManualCommand(EManualCommand command) {
  const std::lock_guard lock(controlMutex);
  if (!settings.bEnableManualEngineControl || !activeSolver) return false;
  ::ApplyManualCommand(*activeSolver, command);
  return true;
}

std::uint64_t CSolvingSession::Positions() const {
  const std::lock_guard lock(controlMutex);
  return activeSolver ? activeSolver->Positions() : 0;
}

std::vector<TThreadMove> CSolvingSession::ThreadMoves() const {
  const std::lock_guard lock(controlMutex);
  if (!activeSolver) return {};
  const CRootSearch& search = activeSolver->Root();
  std::vector<TThreadMove> moves;
  for (const int nMove : search.WorkerMoves())
    moves.push_back(nMove < 0
                        ? TThreadMove{}
                        : TThreadMove{nMove, notation::MoveToText(activeSolver->RootBoard(),
                                                                  search.FirstMoves()[nMove])});
  return moves;
}

int CSolvingSession::ParkedThreads() const {
  const std::lock_guard lock(controlMutex);
  return activeSolver ? activeSolver->RunControl().ParkedThreads() : 0;
}
