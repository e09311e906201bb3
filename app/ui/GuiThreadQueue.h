#pragma once
// Calls handed from worker threads to the GUI thread, run there in the order they came. The
// calls and what they carry pass through a queue under a standard mutex, and only a bare wake-up
// goes through Qt's event queue: so the hand-over is a lock that ThreadSanitizer sees, not
// Qt's own, which it cannot, and what a worker copied for the GUI is checked like any other
// shared data. Calls still queued when the object goes are dropped with it.
#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

class CGuiThreadQueue : public QObject {
  Q_OBJECT
 public:
  using TCall = std::function<void()>;

  explicit CGuiThreadQueue(QObject* parent = nullptr) : QObject(parent) {}

  // From any thread.
  void Post(TCall call);

 private:
  // On the GUI thread: runs what has come, until a call destroys this object.
  Q_INVOKABLE void RunPosted();

  std::mutex mutex;
  std::deque<TCall> calls;
  bool bWakeUpQueued = false;  // one wake-up at a time, for any number of calls
};
