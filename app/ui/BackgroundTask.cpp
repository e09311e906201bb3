#include "app/ui/BackgroundTask.h"

#include <exception>

void CBackgroundTask::CContext::Progress(const QString& text, double dFraction) const {
  CBackgroundTask* target = &task;  // the context may be gone when the call is made
  QMetaObject::invokeMethod(
      target, [target, text, dFraction] { Q_EMIT target->Progress(text, dFraction); },
      Qt::QueuedConnection);
}

void CBackgroundTask::CContext::Line(const QString& text) const {
  CBackgroundTask* target = &task;
  QMetaObject::invokeMethod(
      target, [target, text] { Q_EMIT target->Line(text); }, Qt::QueuedConnection);
}

CBackgroundTask::CBackgroundTask(QObject* parent) : QObject(parent) {}

CBackgroundTask::~CBackgroundTask() {
  if (worker.joinable()) Stop(true);
  Join();
}

void CBackgroundTask::RequestStop() {
  if (bRunning) Stop(false);
}

void CBackgroundTask::Stop(bool bAtOnce) {
  bStop = true;
  if (stopHook) stopHook(bAtOnce);
}

void CBackgroundTask::Join() {
  if (worker.joinable()) worker.join();
}

bool CBackgroundTask::Start(const QString& taskTitle, TWork work, TStopHook onStop) {
  if (bRunning) return false;
  Join();  // the thread of the work before has ended: its Finished came
  title = taskTitle;
  stopHook = std::move(onStop);
  bStop = false;
  bRunning = true;
  worker = std::thread([this, work = std::move(work)] {
    const CContext context(*this);
    QString outcome;
    try {
      outcome = work(context);
    } catch (const std::exception& error) {
      outcome = QString::fromStdString(error.what());
    }
    const bool bStopped = bStop.load();
    QMetaObject::invokeMethod(
        this,
        [this, outcome, bStopped] {
          bRunning = false;
          Q_EMIT Finished(outcome, bStopped);
        },
        Qt::QueuedConnection);
  });
  return true;
}
