#include "app/ui/BackgroundTask.h"

#include <exception>

void CBackgroundTask::CContext::Progress(const QString& text, double dFraction) const {
  CBackgroundTask* target = &task;  // the context may be gone when the call is made
  task.guiCalls.Post([target, text, dFraction] { Q_EMIT target->Progress(text, dFraction); });
}

void CBackgroundTask::CContext::Line(const QString& text) const {
  CBackgroundTask* target = &task;
  task.guiCalls.Post([target, text] { Q_EMIT target->Line(text); });
}

// The queued outcome of a work still running is dropped with this object.
CBackgroundTask::~CBackgroundTask() {
  if (!worker.joinable()) return;
  Stop(true);
  worker.join();
}

void CBackgroundTask::RequestStop() {
  if (bRunning) Stop(false);
}

void CBackgroundTask::Stop(bool bAtOnce) {
  worker.request_stop();
  if (stopHook) stopHook(bAtOnce);
}

bool CBackgroundTask::Start(const QString& taskTitle, TWork work, TStopHook onStop) {
  if (bRunning) return false;
  if (worker.joinable()) worker.join();  // the work before has ended: its Finished came
  title = taskTitle;
  stopHook = std::move(onStop);
  bRunning = true;
  worker = std::jthread([this, work = std::move(work)](std::stop_token stop) {
    const CContext context(*this, stop);
    QVariant outcome;
    try {
      outcome = work(context);
    } catch (const std::exception& error) {
      outcome = QString::fromStdString(error.what());
    }
    const bool bStopped = stop.stop_requested();
    guiCalls.Post([this, outcome, bStopped] {
      bRunning = false;
      Q_EMIT Finished(outcome, bStopped);
    });
  });
  return true;
}
