#include "app/ui/SideTask.h"

#include <QMetaObject>

CSideTask::~CSideTask() {
  Stop();
  if (thread.joinable()) thread.join();  // its queued result is dropped with this object
}

bool CSideTask::Start(TWork work) {
  if (bRunning) return false;
  if (thread.joinable()) thread.join();  // the last work has ended: its result was delivered
  bRunning = true;
  thread = std::jthread([this, work = std::move(work)](std::stop_token stop) {
    const QVariant result = work(stop);
    const bool bStopped = stop.stop_requested();
    QMetaObject::invokeMethod(
        this,
        [this, result, bStopped] {
          bRunning = false;
          Q_EMIT Finished(result, bStopped);
        },
        Qt::QueuedConnection);
  });
  return true;
}

void CSideTask::Stop() {
  thread.request_stop();
}
