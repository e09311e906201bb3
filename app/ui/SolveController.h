#pragma once
// The window's side of a solving session. The session's callbacks run in its solving thread;
// each is handed over to the GUI thread through a queue of calls, so that the signals below are
// always emitted on the GUI thread and no engine thread ever touches a widget. Nothing here
// waits for the engine, except the destructor, which stops a running solve and joins it.
#include <QObject>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>

#include "app/Options.h"
#include "app/SolvingEvents.h"
#include "app/SolvingSession.h"
#include "app/StatusLine.h"
#include "app/ui/GuiThreadQueue.h"

// The status line's items for a snapshot of the running pass.
TStatusItems StatusItemsOf(const TPassProgress& progress);

class CSolveController : public QObject {
  Q_OBJECT
 public:
  explicit CSolveController(const COptions& settings, QObject* parent = nullptr);
  ~CSolveController() override;

  // Starts a solve; the reason when it cannot start.
  std::optional<std::string> Start(const TSolveOrder& order);
  void Stop();
  void PauseAll();
  bool PauseOneThread();
  void Resume();
  // The manual reordering of the first moves; false when the solve does not take it.
  bool ApplyManualCommand(EManualCommand command) { return session->ApplyManualCommand(command); }
  bool IsRunning() const { return bRunning; }
  bool IsPaused() const { return bPaused; }
  const TPassProgress& LastProgress() const { return lastProgress; }
  const CSolvingSession& Session() const { return *session; }
  CSolvingSession& Session() { return *session; }

 Q_SIGNALS:
  void ProgressChanged(const QString& statusLine);
  // The completion texts of one pass.
  void PassFinished(const QStringList& reportLines);
  void Message(const QString& text);
  void SolveFinished();

 private:
  void OnProgress(const TPassProgress& progress);

  CGuiThreadQueue guiCalls;
  std::unique_ptr<CSolvingSession> session;
  TPassProgress lastProgress;
  bool bRunning = false;  // as the GUI thread knows it: until SolveFinished is emitted
  bool bPaused = false;
};
