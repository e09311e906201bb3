// Solving beyond the key: the whole solution tree after a solve, with its main variation
// played on the board; Black's best defence while the user plays a solution out; and the
// board's pop-up during a solve. The tree and the defence are built on a thread of their own
// from copies of the positions, so that the window goes on answering and Stop ends them.
#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProcess>
#include <QShortcut>
#include <QVariantMap>

#include "app/Options.h"
#include "app/SolutionReport.h"
#include "app/SolverCommands.h"
#include "app/ui/BackgroundTask.h"
#include "app/ui/BoardView.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SolveController.h"
#include "core/ChessException.h"
#include "core/Notation.h"
#include "engine/BestDefence.h"
#include "registers/ChessboardRegister.h"

namespace {

// The register of a best defence: small, for its searches are shallow.
constexpr std::uint32_t kDefenceRegisterEntries = 1 << 18;

QVariant TreeResult(const TChessboard& start, int nMoves, const std::vector<TMove>& keys,
                    std::stop_token stop) {
  QStringList lines;
  try {
    for (const TSolutionMove& tree :
         BuildSolutionTrees(start, nMoves, keys, kSolutionTreeLimit, stop))
      for (const std::string& text : SolutionTreeLines(tree)) lines << QString::fromStdString(text);
  } catch (const ChessException& error) {
    lines << WindowText("Solution tree: ") + QString::fromStdString(error.what());
  }
  return QVariantMap{{"kind", "tree"}, {"lines", lines}};
}

// bThorough: the defence the whole tree after White's last move puts first, searched to the
// end of the stipulation; the quick choice when that move does not mate in time.
QVariant DefenceResult(const TChessboard& beforeWhite, TMove white, const TChessboard& position,
                       bool bThorough, std::stop_token stop) {
  TMove best{0, 0, 0, 0};
  if (bThorough) {
    try {
      const auto trees =
          BuildSolutionTrees(beforeWhite, (beforeWhite.ply + 1) / 2, {white}, 1, stop);
      if (!trees.front().defences.empty()) best = trees.front().defences.front().move;
    } catch (const ChessException&) {
      best = {0, 0, 0, 0};  // no mate in time after it: the quick choice below
    }
  }
  if (best.from == best.to) {
    TChessboardRegister<bool> reg(kDefenceRegisterEntries);
    SearchContext context;
    context.pRegister = &reg;
    const std::stop_callback onStop(stop, [&context] { context.run.Stop(); });
    best = FindBestDefence(position, context).move;
  }
  return QVariantMap{
      {"kind", "defence"}, {"from", best.from}, {"to", best.to}, {"promotion", best.promotion}};
}

}  // namespace

void CMainWindow::OfferSolvingExtras() {
  Offer("Solve and show whole main &variant\tAlt+F5 or middle-click", "solveTree",
        QKeySequence("Alt+F5"), [this] { SolveWholeMainVariant(); });
  Offer("Find best defence for &black\tF5", "bestDefence", {}, [this] { FindBestDefence(false); });
  Offer("Find best defence for black - more &thorough search\tright mouseclick",
        "bestDefenceThorough", {}, [this] { FindBestDefence(true); });
  Offer("Skip analysis of current move and go to the &next one", "skipMove", {},
        [this] { solver->ApplyManualCommand(EManualCommand::SkipToNextMove); });
  // Greyed while the settings keep the manual engine commands off; they may change meanwhile.
  if (QAction* skip = Action("skipMove")) {
    skip->setEnabled(Options().bEnableManualEngineControl);
    for (QObject* holder : skip->associatedObjects())
      if (auto* menu = qobject_cast<QMenu*>(holder))
        connect(menu, &QMenu::aboutToShow, skip,
                [skip] { skip->setEnabled(Options().bEnableManualEngineControl); });
  }
  connect(board, &CBoardView::SquareClicked, this, [this](int, Qt::MouseButton button) {
    if (bSettingMode) return;
    if (button == Qt::MiddleButton) SolveWholeMainVariant();
    if (button != Qt::RightButton) return;
    if (IsSolving())
      ShowBoardMenu(board->mapFromGlobal(QCursor::pos()));
    else if (line.MovesPlayed() > 0 && !line.Current().IsWhiteToMove())
      FindBestDefence(true);
    else if (line.MovesPlayed() > 0)
      Action("editComment")->trigger();
  });
  connect(this, &CMainWindow::SolveReported, this, &CMainWindow::ShowSolutionTree);
}

void CMainWindow::SolveWholeMainVariant() {
  if (IsSolving() || IsTaskRunning()) return;
  bTreeAfterSolve = true;
  StartSolve(false);
  bTreeAfterSolve = IsSolving();
}

// After the solve: the tree of the keys the pass of the position as given found.
void CMainWindow::ShowSolutionTree() {
  if (!bTreeAfterSolve) return;
  bTreeAfterSolve = false;
  const TProblem* problem = collection.Find(nSolvingId);
  if (!problem) return;
  for (const auto& request : solver->Session().Requests()) {
    const TSolvingResult& result = request->result;
    if (request->nMirrorPass != 0 || result.keys.empty() || !result.sError.empty()) continue;
    TChessboard start = request->board;
    start.parent = nullptr;
    const int nMoves = problem->stipulation.Moves();
    const std::vector<TMove> keys = result.keys;
    resultView->appendPlainText(WindowText("Building the solution tree..."));
    sideTask->Start("tree", [start, nMoves, keys](const CBackgroundTask::CContext& context) {
      return TreeResult(start, nMoves, keys, context.StopToken());
    });
    return;
  }
  resultView->appendPlainText(WindowText("No solution: there is no tree to show."));
  Q_EMIT TaskFinished();
}

void CMainWindow::FindBestDefence(bool bThorough) {
  const TProblem* problem = CurrentProblem();
  if (!problem || IsSolving() || IsTaskRunning() || bSettingMode) return;
  const int nPlayed = line.MovesPlayed();
  const int nLeft = problem->start.ply - nPlayed;  // half-moves the stipulation still gives
  if (nPlayed == 0 || line.Current().IsWhiteToMove() || nLeft < 2)
    return ShowMessage(WindowText("Information"),
                       WindowText("Play White's move first, within the stipulation."));
  TChessboard position = line.Current();
  position.parent = nullptr;
  position.ply = position.rootPlies = static_cast<std::uint16_t>(nLeft);
  TChessboard beforeWhite = line.Board(nPlayed - 1);
  beforeWhite.parent = nullptr;
  beforeWhite.ply = beforeWhite.rootPlies = static_cast<std::uint16_t>(nLeft + 1);
  const TMove white = position.lastMove;
  sideTask->Start("defence", [beforeWhite, white, position,
                              bThorough](const CBackgroundTask::CContext& context) {
    return DefenceResult(beforeWhite, white, position, bThorough, context.StopToken());
  });
  RefreshControls();
}

bool CMainWindow::IsTaskRunning() const {
  return sideTask->IsRunning();
}

// A defence is played only on the position it was sought for.
void CMainWindow::OnSideTaskFinished(const QVariant& result, bool bStopped) {
  const QVariantMap values = result.toMap();
  if (values.value("kind") == "tree") {
    const QStringList lines = values.value("lines").toStringList();
    treeText = lines.join('\n');
    resultView->appendPlainText(treeText);
    const TProblem* problem = CurrentProblem();
    if (!bStopped && problem && nCurrentId == nSolvingId && !bSettingMode && !lines.isEmpty() &&
        lines.front().startsWith("Main variation:")) {
      line.Reset(problem->start);
      line.PlayText(lines.front().mid(lines.front().indexOf(':') + 1).remove('#').toStdString());
      ShowPosition();
    }
  } else if (!bStopped) {
    const TMove defence{static_cast<SquareIndex>(values.value("from").toInt()),
                        static_cast<SquareIndex>(values.value("to").toInt()),
                        static_cast<PieceCode>(values.value("promotion").toInt()), 0};
    const TChessboard before = line.Current();
    if (defence.from != defence.to && !line.Current().IsWhiteToMove() && line.Play(defence)) {
      resultView->appendPlainText(WindowText("Best defence: ") +
                                  QString::fromStdString(notation::MoveToText(before, defence)));
      ShowPosition();
    }
  }
  RefreshControls();
  Q_EMIT TaskFinished();
}

// The position shown copied out or opened in another copy of the program, and the manual
// reordering of the first moves where the settings allow it.
void CMainWindow::ShowBoardMenu(const QPoint& where) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName("boardMenu");
  connect(AddLabelled(menu, "Copy position to clipboard"), &QAction::triggered, Action("copy"),
          &QAction::trigger);
  connect(AddLabelled(menu, "Copy FEN of the position to clipboard"), &QAction::triggered, this,
          [this] { CopyFen(false); });
  connect(AddLabelled(menu, "Display position in new instance of program"), &QAction::triggered,
          this, [this] { OpenInNewInstance(); });
  menu->addSeparator();
  const std::pair<const char*, EManualCommand> commands[] = {
      {"Shift current move to be analyzed as the last one", EManualCommand::ShiftCurrentMoveToEnd},
      {"Swap order of analysis with the next move", EManualCommand::SwapCurrentWithNext},
      {"Skip to analysis of next move", EManualCommand::SkipToNextMove}};
  for (const auto& [label, command] : commands) {
    QAction* action = AddLabelled(menu, label);
    action->setEnabled(Options().bEnableManualEngineControl);
    connect(action, &QAction::triggered, this,
            [this, command] { solver->ApplyManualCommand(command); });
  }
  menu->popup(board->mapToGlobal(where));
}

// The problem shown goes to a file of its own that the other copy opens; played moves make
// the position reached the problem, with the moves the stipulation has left.
bool CMainWindow::OpenInNewInstance() {
  const TProblem* problem = CurrentProblem();
  if (!problem) return false;
  auto copy = std::make_unique<TProblem>();
  copy->id = 1;
  copy->description = problem->description;
  copy->start = line.Current();
  copy->start.parent = nullptr;
  const int nMovesLeft = std::max(1, (problem->start.ply - line.MovesPlayed() + 1) / 2);
  copy->SetStipulation(problem->stipulation.type == TStipulation::kSelfmate
                           ? TStipulation::Selfmate(nMovesLeft)
                           : TStipulation::DirectMate(nMovesLeft));
  TProblemCollection single;
  single.Put(std::move(copy));
  const QString path = QDir(QDir::tempPath())
                           .filePath(QString("longmate-position-%1-%2.cp")
                                         .arg(QCoreApplication::applicationPid())
                                         .arg(++nInstancesStarted));
  if (const auto error = single.WriteFile(path.toStdString())) {
    ShowMessage(WindowText("Warning"), QString::fromStdString(*error));
    return false;
  }
  return startProgram(QCoreApplication::applicationFilePath(), {path});
}
