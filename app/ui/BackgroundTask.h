#pragma once
// A long command of the window on a thread of its own: a table check, a regression run, a
// solution tree or a best defence. The work gets copies of what it reads, never the window's
// objects; it reports progress and its outcome through the signals below, which are always
// emitted on the GUI thread, so that the window stays responsive and no widget is touched off
// it. The work looks at its stop token where it can end early; the destructor asks it to stop
// and waits for it.
#include <QObject>
#include <QString>
#include <QVariant>
#include <functional>
#include <stop_token>
#include <thread>

#include "app/ui/GuiThreadQueue.h"

class CBackgroundTask : public QObject {
  Q_OBJECT
 public:
  // What the work is given: where to report, and whether it should end.
  class CContext {
   public:
    CContext(CBackgroundTask& owner, std::stop_token token) : task(owner), stop(token) {}
    void Progress(const QString& text, double dFraction) const;
    // A line of the outcome shown before the work has ended.
    void Line(const QString& text) const;
    bool StopRequested() const { return stop.stop_requested(); }
    std::stop_token StopToken() const { return stop; }

   private:
    CBackgroundTask& task;
    std::stop_token stop;
  };
  // The work returns its outcome: a text, or the values its receiver takes apart. What it
  // throws becomes the outcome's text.
  using TWork = std::function<QVariant(const CContext&)>;

  explicit CBackgroundTask(QObject* parent = nullptr) : QObject(parent) {}
  ~CBackgroundTask() override;

  // How a work that cannot look at its stop token often is told to end: after the step it
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
  void Finished(const QVariant& outcome, bool bStopped);

 private:
  void Stop(bool bAtOnce);

  CGuiThreadQueue guiCalls;
  std::jthread worker;
  bool bRunning = false;  // as the GUI thread knows it: until Finished is emitted
  QString title;
  TStopHook stopHook;
};
