#pragma once
// A long command beside the solve (a solution tree, a best defence) run on a thread of its
// own: its work gets copies of what it reads, never the window's objects, and its result is
// handed to the GUI thread as a queued call. Stop asks the work to end through its stop token;
// the destructor stops and joins it.
#include <QObject>
#include <QVariant>
#include <functional>
#include <stop_token>
#include <thread>

class CSideTask : public QObject {
  Q_OBJECT
 public:
  using TWork = std::function<QVariant(std::stop_token)>;

  explicit CSideTask(QObject* parent = nullptr) : QObject(parent) {}
  ~CSideTask() override;

  // Starts the work; false when a work runs already.
  bool Start(TWork work);
  void Stop();
  bool IsRunning() const { return bRunning; }

 Q_SIGNALS:
  // On the GUI thread, once the thread has ended its work.
  void Finished(const QVariant& result, bool bStopped);

 private:
  std::jthread thread;
  bool bRunning = false;  // as the GUI thread knows it: until Finished is emitted
};
