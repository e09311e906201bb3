#pragma once
// A long command of the window (a table check, a regression run) on a thread of its own. The
// work reports progress and its outcome through the signals below, which are always emitted
// on the GUI thread, so that the window stays responsive and no widget is touched off it.
// The work looks at StopRequested() where it can end early; the destructor asks it to stop
// and waits for it.
#include <QObject>
#include <QString>
#include <atomic>
#include <functional>
#include <thread>

class CBackgroundTask : public QObject {
  Q_OBJECT
 public:
  // What the work is given: where to report, and whether it should end.
  class CContext {
   public:
    explicit CContext(CBackgroundTask& owner) : task(owner) {}
    void Progress(const QString& text, double dFraction) const;
    // A line of the outcome shown before the work has ended.
    void Line(const QString& text) const;
    bool StopRequested() const { return task.bStop.load(); }

   private:
    CBackgroundTask& task;
  };
  // The work returns the outcome's last text.
  using TWork = std::function<QString(const CContext&)>;

  explicit CBackgroundTask(QObject* parent = nullptr);
  ~CBackgroundTask() override;

  // How a work that cannot look at StopRequested() often is told to end: after the step it
  // is on, or at once (the window closes).
  using TStopHook = std::function<void(bool bAtOnce)>;

  // Starts the work unless one is running; false when one is.
  bool Start(const QString& title, TWork work, TStopHook onStop = nullptr);
  void RequestStop();
  bool IsRunning() const { return bRunning; }
  const QString& Title() const { return title; }

 Q_SIGNALS:
  void Progress(const QString& text, double dFraction);
  void Line(const QString& text);
  void Finished(const QString& outcome, bool bStopped);

 private:
  void Join();
  void Stop(bool bAtOnce);

  std::thread worker;
  std::atomic<bool> bStop{false};
  bool bRunning = false;  // as the GUI thread knows it: until Finished is emitted
  QString title;
  TStopHook stopHook;
};
