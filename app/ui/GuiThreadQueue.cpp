#include "app/ui/GuiThreadQueue.h"

#include <QMetaObject>
#include <QPointer>

void CGuiThreadQueue::Post(TCall call) {
  {
    const std::lock_guard lock(mutex);
    calls.push_back(std::move(call));
    if (bWakeUpQueued) return;
    bWakeUpQueued = true;
  }
  // By name, so that Qt builds the queued event itself and nothing of this call is written
  // by the worker outside the lock.
  QMetaObject::invokeMethod(this, "RunPosted", Qt::QueuedConnection);
}

void CGuiThreadQueue::RunPosted() {
  std::deque<TCall> due;
  {
    const std::lock_guard lock(mutex);
    due.swap(calls);
    bWakeUpQueued = false;
  }
  const QPointer<CGuiThreadQueue> self(this);
  for (TCall& call : due) {
    call();
    if (!self) return;  // the call closed what owns this queue
  }
}
