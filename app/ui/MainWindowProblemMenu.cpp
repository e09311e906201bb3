// The menu bar's Problem, View, Variant, Advanced, Priority, Help and Language menus.
#include <QAction>
#include <QActionGroup>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QShortcut>

#include "app/Options.h"
#include "app/ProgramState.h"
#include "app/Startup.h"
#include "app/platform/ProcessPriority.h"
#include "app/ui/BoardView.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SolveController.h"

void CMainWindow::BuildProblemMenu() {
  QMenu* problem = AddMenu(menuBar(), "P&roblem");
  QMenu* type = AddMenu(problem, "Problem type");
  AddLater(type, {"Two-,Three-/Moremover", "Selfmate", "Helpmate"});
  // While a solution is played out, F5 finds Black's best defence instead.
  AddCommand(problem, "&Solve problem\tF5", "solve", QKeySequence("F5"), [this] {
    if (line.MovesPlayed() > 0 && !line.Current().IsWhiteToMove())
      FindBestDefence(false);
    else
      StartSolve(false);
  });
  AddCommand(problem, "Find &all solutions(right click on Start button)\tShift+F5", "solveAll",
             QKeySequence("Shift+F5"), [this] { StartSolve(true); });
  AddLater(problem, {"Find best defence for &black\tF5",
                     "Find best defence for black - more &thorough search\tright mouseclick"});
  AddCommand(problem, "&Stop solving", "stop", {}, [this] { StopSolve(); });
  AddLater(problem, {"Solve and show whole main &variant\tAlt+F5 or middle-click"});
  AddCommand(problem, "&Pause (right click)", "pause", {}, [this] {
    if (IsSolving()) solver->PauseAll();
    RefreshControls();
  });
  AddCommand(problem, "&Pause one thread (right click + ctrl)", "pauseOne", {}, [this] {
    if (IsSolving()) solver->PauseOneThread();
  });
  AddCommand(problem, "&Resume solving", "resume", {}, [this] {
    if (IsSolving()) solver->Resume();
    RefreshControls();
  });
  AddCommand(problem, "&Move back", "moveBack", {}, [this] { StepLine(-1); });
  AddCommand(problem, "Re&do move", "redoMove", {}, [this] { StepLine(1); });
  AddLater(problem, {"Add/edit &comment to last move\tright mouseclick"});
  BuildNavigatorCommands(problem);
}

void CMainWindow::BuildNavigatorCommands(QMenu* problem) {
  AddCommand(problem, "&Next problem\tCtrl+Shift+Right arrow", "nextProblem",
             QKeySequence("Ctrl+Shift+Right"), [this] { Step(1); });
  AddCommand(problem, "&Previous problem\tLeft arrow", "previousProblem", QKeySequence("Left"),
             [this] { Step(-1); });
  AddCommand(problem, "&New problem\tCtrl+N", "newProblem", QKeySequence("Ctrl+N"), [this] {
    if (!bSettingMode) NewProblem();
  });
  AddCommand(problem, "Go to &first problem\tCtrl+Home", "firstProblem", QKeySequence("Ctrl+Home"),
             [this] { Step(-1000000); });
  AddCommand(problem, "Go to &last problem\tCtrl+End", "lastProblem", QKeySequence("Ctrl+End"),
             [this] { Step(1000000); });
  AddCommand(problem, "Go to previously viewed problem\tCtrl Minus", "viewedBack",
             QKeySequence("Ctrl+-"), [this] { ViewedBack(); });
  QAction* forward = AddCommand(problem, "Return from Ctrl-Minus\tCtrl Plus", "viewedForward",
                                QKeySequence("Ctrl++"), [this] { ViewedForward(); });
  // Plus shares its key with "=" on most keyboards: Ctrl and that key without Shift count too.
  connect(new QShortcut(QKeySequence("Ctrl+="), this), &QShortcut::activated, forward,
          &QAction::trigger);
  AddLater(problem,
           {"Add tag to the problem...\tCtrl+T", "Remove tag from current problem...\tCtrl+Shift+T",
            "Append set of tags from other .cp file...", "Find problem...\tCtrl+F", "Find next\tF3",
            "Find previous\tShift+F3"});
  AddCommand(problem, "Select problem number...\tCtrl+G", "selectNumber", QKeySequence("Ctrl+G"),
             [this] { AskProblemNumber(); });
  AddCommand(problem, "Select problem from list...\tCtrl+Shift+G", "selectFromList",
             QKeySequence("Ctrl+Shift+G"), [this] { ShowProblemList(); });
  AddLater(problem, {"Find similar positions"});
}

void CMainWindow::BuildOtherMenus() {
  QMenu* view = AddMenu(menuBar(), "&View");
  AddCommand(view, "&Rotate chessboard view", "rotate", {},
             [this] { board->SetRotated(!board->IsRotated()); });
  AddCommand(view, "&Enlarge/minimize progress information area", "progressArea", {},
             [this] { CycleProgressArea(); });
  AddLater(AddMenu(menuBar(), "Var&iant"),
           {"Save moves as main variant", "Save moves as variant...", "Show main variant",
            "Show variant...", "Animate main variant", "Animate variant...",
            "Stop variant animation", "Remove variant..."});
  BuildAdvancedMenu();
  BuildPriorityMenu();
  QMenu* help = AddMenu(menuBar(), "&Help");
  AddLater(help, {"Open &manual (quick start)", "&Open readme.txt"});
  AddCommand(help, "&About", "about", {}, [this] {
    ShowMessage(WindowText("Information"), WindowText("Longmate: a solver of long direct mates."));
  });
  AddLater(help, {"&Threads..."});
}

void CMainWindow::BuildPriorityMenu() {
  QMenu* priority = AddMenu(menuBar(), "Priori&ty");
  auto* group = new QActionGroup(this);
  const std::pair<const char*, platform::EPriorityClass> classes[] = {
      {"&High", platform::EPriorityClass::High},
      {"&Above normal", platform::EPriorityClass::AboveNormal},
      {"&Normal", platform::EPriorityClass::Normal},
      {"&Below normal (recommended)", platform::EPriorityClass::BelowNormal},
      {"&Low", platform::EPriorityClass::Idle}};
  for (const auto& [label, value] : classes) {
    QAction* action = AddLabelled(priority, label);
    action->setCheckable(true);
    action->setChecked(GetProgramState().priorityClass == value);
    group->addAction(action);
    // A class the process may not take (raising needs a privilege) leaves the mark where it was.
    connect(action, &QAction::triggered, this, [group, value] {
      if (platform::SetProcessPriority(value)) GetProgramState().priorityClass = value;
      group->actions().at(static_cast<int>(GetProgramState().priorityClass))->setChecked(true);
    });
  }
  BuildAffinityMenu(priority);
}

// The language menu names each language in itself, so its labels are never translated.
void CMainWindow::BuildLanguageMenu() {
  QMenu* languages = menuBar()->addMenu("&Language/Język/Mова");
  auto* group = new QActionGroup(this);
  const std::pair<const char*, int> choices[] = {
      {"&Polski", 0}, {"&English", kEnglishLanguageId}, {"Українськ&а", 2}};
  for (const auto& [label, nId] : choices) {
    QAction* action = languages->addAction(QString::fromUtf8(label));
    action->setObjectName(QString("language%1").arg(nId));
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, nId] { SetLanguage(nId); });
  }
}

void CMainWindow::SetLanguage(int nLanguageId) {
  Options().nLanguageId = nLanguageId;
  ::ApplyLanguage(nLanguageId);
  StoreLanguageId(nLanguageId, DefaultOptionsPath());
  ShowLanguage(nLanguageId);
}

void CMainWindow::ShowLanguage(int nLanguageId) {
  InstallTranslation(nLanguageId);
  RetranslateAll(this);
  const int nShown = nLanguageId == 0 || nLanguageId == 2 ? nLanguageId : kEnglishLanguageId;
  if (QAction* mark = Action(QString("language%1").arg(nShown))) mark->setChecked(true);
  RefreshControls();
}
