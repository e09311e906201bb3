// Solving from the window: starting and stopping through the solve controller, and showing
// what its signals report, all on the GUI thread.
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTimer>
#include <utility>

#include "app/Options.h"
#include "app/SolvingReports.h"
#include "app/ui/BackgroundTask.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SolveController.h"
#include "core/Notation.h"

namespace {

// How long the first key stays on the board before the position comes back.
constexpr int kKeyShownMs = 800;

}  // namespace

bool CMainWindow::IsSolving() const {
  return solver->IsRunning();
}

void CMainWindow::ConnectSolver() {
  connect(solver, &CSolveController::ProgressChanged, this, [this](const QString& text) {
    statusLine = text;
    const TPassProgress& progress = solver->LastProgress();
    ShowProgress();
    ShowStatusLine();
    ShowRegisterCounters(progress.nRegisterElements, progress.nDoubtfulElements);
  });
  connect(solver, &CSolveController::PassFinished, this, [this](const QStringList& lines) {
    for (const QString& text : lines) resultView->appendPlainText(text);
  });
  connect(solver, &CSolveController::Message, this,
          [this](const QString& text) { resultView->appendPlainText(text); });
  connect(solver, &CSolveController::SolveFinished, this, &CMainWindow::OnSolveFinished);
}

void CMainWindow::StartSolve(bool bFindAll) {
  TProblem* problem = CurrentProblem();
  if (IsSolving() || bSettingMode || !problem) return;
  if (Options().bPromptHeuristics && !heuristicsChoice) return AskHeuristicsAndSolve(bFindAll);
  const std::optional<THeuristicsChoice> chosen = std::exchange(heuristicsChoice, std::nullopt);
  if (bSolverOutdated && !task->IsRunning()) RebuildSolver();  // a table command reads its tables
  const int nLanguage = Options().nLanguageId;
  if (problem->stipulation.type == TStipulation::kMoveLine)
    return ShowMessage(WindowText("Information"), QString::fromStdString(OnlyMatesText(nLanguage)));
  TSolveOrder order{.pProblem = problem, .bFindAll = bFindAll, .threads = threads};
  if (chosen) {
    order.heuristics = chosen->named;
    order.bPass2 = chosen->bPass2;
    order.bQuickMode = chosen->bQuickMode;
  }
  if (const auto refusal = solver->Start(order))
    return ShowMessage(WindowText("Information"), QString::fromStdString(*refusal));
  nSolvingId = nCurrentId;
  resultView->clear();
  progressLabel->clear();
  statusLine.clear();
  RefreshControls();
  Q_EMIT SolveStarted();
}

// Stops the solve, and the solution tree or best defence being built beside it.
void CMainWindow::StopSolve() {
  if (IsSolving()) solver->Stop();
  if (sideTask) sideTask->RequestStop();
}

void CMainWindow::OnSolveFinished() {
  const int nLanguage = Options().nLanguageId;
  const TProblem* solved = collection.Find(nSolvingId);
  TMove firstKey{square::kNone, square::kNone, 0, 0};
  bool bStopped = false;
  for (const auto& request : solver->Session().Requests()) {
    const TSolvingResult& result = request->result;
    if (!result.bRun) continue;
    bStopped = bStopped || result.bStopped;
    if (!result.keyTexts.empty()) {
      QStringList keys;
      for (const std::string& key : result.keyTexts) keys << QString::fromStdString(key);
      resultView->appendPlainText(WindowText("Keys: ") + keys.join(' '));
    }
    if (!result.keys.empty() && firstKey.from == square::kNone && request->nMirrorPass == 0)
      firstKey = result.keys.front();
  }
  const auto& requests = solver->Session().Requests();
  if (!bStopped && solved && !requests.empty()) {
    const SolvingRequest& first = *requests.front();
    if (const auto box = ResultBoxText(nLanguage, first.solvingMode, first.result.nSolutions,
                                       solved->stipulation.Moves(), Options().bQuickMode,
                                       solved->stipulation.type == TStipulation::kSelfmate)) {
      auto* message = new QMessageBox(QMessageBox::Information, WindowText("Mate search result"),
                                      QString::fromStdString(*box), QMessageBox::Ok, this);
      message->setAttribute(Qt::WA_DeleteOnClose);
      message->setObjectName("resultBox");
      message->open();
    }
  }
  RefreshControls();
  RefreshRegisterCounters();
  if (firstKey.from != square::kNone && nSolvingId == nCurrentId && !bSettingMode &&
      line.MovesPlayed() == 0)
    ShowKeyMove(firstKey);
  Q_EMIT SolveReported();
}

// Plays the key on the window's copy of the position for a moment, then takes it back unless
// the user has moved on meanwhile.
void CMainWindow::ShowKeyMove(TMove key) {
  if (!line.Play(key)) return;
  ShowPosition();
  const int id = nCurrentId;
  QTimer::singleShot(kKeyShownMs, this, [this, id] {
    if (id != nCurrentId || bSettingMode || line.MovesPlayed() != 1) return;
    line.Back();
    ShowPosition();
  });
}
