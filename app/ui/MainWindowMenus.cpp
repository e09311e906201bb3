// The menu bar. Every command of the window has its place and label here; a command whose
// work is not part of the window yet is shown disabled rather than doing nothing.
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QMenuBar>
#include <QMessageBox>
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

namespace {

// The labels of commands that are shown but not offered yet, menu by menu.
const char* const kLaterFileCommands[] = {
    "&Append problems from another .cp file...",
    "&Remove problems that are present in another .cp file..."};
const char* const kLaterPositionCommands[] = {"Copy\tCtrl+C", "Copy without variants",
                                              "Copy without variants or tags"};
const char* const kLaterTransformCommands[] = {"Paste as mirror",
                                               "Rotate position 90°",
                                               "Swap black and white",
                                               "Shift position left\tCtrl+L",
                                               "Shift position right\tCtrl+R",
                                               "Shift position up\tCtrl+U",
                                               "Shift position down\tCtrl+D",
                                               "Copy moves - short notation",
                                               "Copy moves - full notation",
                                               "Copy variants - short notation",
                                               "Copy variants - full notation"};
const char* const kLaterVariantCommands[] = {
    "Save moves as main variant", "Save moves as variant...",
    "Show main variant",          "Show variant...",
    "Animate main variant",       "Animate variant...",
    "Stop variant animation",     "Remove variant..."};
const char* const kLaterAdvancedCommands[] = {
    "Select &heuristics and find solution\tCtrl+F5",
    "Select &heuristics and find all solutions\tShift+Ctrl+F5",
    "Sort &indications...\tCtrl+W",
    "&Options",
    "Save temporary register of current problem",
    "Save temporary register of current problem as...",
    "Read temporary register of current problem from default file",
    "Read temporary register from file...",
    "Clear temporary register of current problem",
    "Skip analysis of current move and go to the &next one",
    "Display &id of current position and copy it to clipboard",
    "Run regression test (solve all problems in the current file)",
    "Run quick regression test (solve single problem for no longer than 64 sec.)",
    "Display current status of global register (precalculated data in memory)",
    "Verify files of precalulcated data (global register) on disk",
    "Verify files of precalulcated data on disk - resume from cur.pos.type",
    "Show &max #n for positions of this type + next position\tCtrl+M",
    "Show max #n for positions of this type - previous position\tCtrl+M",
    "&Information about position\tCtrl+I",
    "Paste position of this type by index",
    "Previous position of this type\tShift+Ctrl+P",
    "Next position of this type\tShift+Ctrl+N",
    "Verify correctness of generated precalculated data (Nalimov) for this position type",
    "Verify correctness of partially generated precalculated data for this position type",
    "&Precalculate data (Nalimov tablebases) for this position type",
    "Check if FEN codes from selected file (any text format) exist in the current file..."};

// Every label keeps its English text, from which it is translated again at each change of
// language.
constexpr const char* kSourceText = "sourceText";
constexpr const char* kContext = "Menu";

QAction* AddLabelled(QMenu* menu, const char* label) {
  QAction* action = menu->addAction(QCoreApplication::translate(kContext, label));
  action->setProperty(kSourceText, QByteArray(label));
  return action;
}

QMenu* AddMenu(QWidget* parent, const char* title) {
  auto* menu = new QMenu(QCoreApplication::translate(kContext, title), parent);
  menu->menuAction()->setProperty(kSourceText, QByteArray(title));
  if (auto* bar = qobject_cast<QMenuBar*>(parent))
    bar->addMenu(menu);
  else
    qobject_cast<QMenu*>(parent)->addMenu(menu);
  return menu;
}

void AddLater(QMenu* menu, std::initializer_list<const char*> labels) {
  for (const char* label : labels) AddLabelled(menu, label)->setEnabled(false);
}

template <std::size_t N>
void AddLater(QMenu* menu, const char* const (&labels)[N]) {
  for (const char* label : labels) AddLabelled(menu, label)->setEnabled(false);
}

}  // namespace

// The label keeps the accelerator's text after a tab, as the menu shows it; the key itself is
// a window shortcut, so that a label such as "Ctrl + S" stays as written.
QAction* CMainWindow::AddCommand(QMenu* menu, const char* text, const QString& name,
                                 const QKeySequence& key, std::function<void()> work) {
  QAction* action = AddLabelled(menu, text);
  action->setObjectName(name);
  connect(action, &QAction::triggered, this, [work = std::move(work)] { work(); });
  if (!key.isEmpty()) {
    auto* shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, action, &QAction::trigger);
  }
  return action;
}

void CMainWindow::BuildMenus() {
  BuildFileMenu();
  BuildPositionMenu();
  BuildProblemMenu();
  BuildOtherMenus();
  BuildLanguageMenu();
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
  for (QAction* action : findChildren<QAction*>()) {
    const QByteArray source = action->property(kSourceText).toByteArray();
    if (!source.isEmpty()) action->setText(QCoreApplication::translate(kContext, source));
  }
  const int nShown = nLanguageId == 0 || nLanguageId == 2 ? nLanguageId : kEnglishLanguageId;
  if (QAction* mark = Action(QString("language%1").arg(nShown))) mark->setChecked(true);
}

void CMainWindow::BuildFileMenu() {
  QMenu* file = AddMenu(menuBar(), "&File");
  file->setObjectName("fileMenu");
  AddCommand(file, "&New file", "newFile", {}, [this] {
    if (ConfirmDiscard()) OpenNamedFile(nullptr, true);
  });
  AddCommand(file, "&Open defaulf file (myChessProblems.cp)", "openDefault", {},
             [this] { OpenNamedFile(TProblemCollection::kUserFileName, true); });
  AddCommand(file, "&Open sample compositions (&sample_problems.cp)", "openSample", {},
             [this] { OpenNamedFile(TProblemCollection::kSampleFileName, false); });
  AddCommand(file, "Open file with chess problems (.cp) ...\tCtrl+O", "open",
             QKeySequence("Ctrl+O"), [this] { OpenNamedFile("", false); });
  AddCommand(file, "&Save changes\tCtrl + S", "save", QKeySequence("Ctrl+S"), [this] {
    if (filePath.isEmpty())
      SaveAs();
    else
      SaveFile(filePath);
  });
  AddCommand(file, "Save &as...", "saveAs", {}, [this] { SaveAs(); });
  AddLater(file, kLaterFileCommands);
  file->addSeparator();
  AddCommand(file, "E&xit", "exit", {}, [this] { close(); });
}

void CMainWindow::BuildPositionMenu() {
  QMenu* position = AddMenu(menuBar(), "&Position");
  AddLater(position, kLaterPositionCommands);
  AddCommand(position, "Copy FEN code of position\tCtrl+Shift+C", "copyFen",
             QKeySequence("Ctrl+Shift+C"), [this] { CopyFen(false); });
  AddCommand(position, "Copy full FEN code of position", "copyFullFen", {},
             [this] { CopyFen(true); });
  AddCommand(position, "Paste (position/FEN/moves)\tCtrl+V", "paste", QKeySequence("Ctrl+V"),
             [this] { PastePosition(QApplication::clipboard()->text()); });
  AddLater(position, kLaterTransformCommands);
  position->addSeparator();
  AddCommand(position, "Switch on/off position setting mode", "settingMode", {},
             [this] { SetSettingMode(!bSettingMode); });
  AddCommand(position, "Increase stipulation (#n)\tClick arrow up", "stipulationUp", {},
             [this] { ChangeStipulation(1); });
  AddCommand(position, "Decrease stipulation (#n)\tClick arrow down", "stipulationDown", {},
             [this] { ChangeStipulation(-1); });
  AddCommand(position, "Increase stipulation (#n) by 10\tRight click arrow up", "stipulationUp10",
             {}, [this] { ChangeStipulation(10); });
  AddCommand(position, "Decrease stipulation (#n) by 10\tRight click arrow down",
             "stipulationDown10", {}, [this] { ChangeStipulation(-10); });
  AddCommand(position, "Undo last change\tCtrl+Z", "undo", QKeySequence("Ctrl+Z"),
             [this] { UndoEdit(false); });
  AddCommand(position, "Redo last change\tCtrl+Y", "redo", QKeySequence("Ctrl+Y"),
             [this] { UndoEdit(true); });
}

void CMainWindow::BuildProblemMenu() {
  QMenu* problem = AddMenu(menuBar(), "P&roblem");
  QMenu* type = AddMenu(problem, "Problem type");
  AddLater(type, {"Two-,Three-/Moremover", "Selfmate", "Helpmate"});
  AddCommand(problem, "&Solve problem\tF5", "solve", QKeySequence("F5"),
             [this] { StartSolve(false); });
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
  AddCommand(problem, "&Move back", "moveBack", {}, [this] {
    if (line.Back()) ShowPosition();
  });
  AddCommand(problem, "Re&do move", "redoMove", {}, [this] {
    if (line.Redo()) ShowPosition();
  });
  AddLater(problem, {"Add/edit &comment to last move\tright mouseclick"});
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
  AddLater(problem,
           {"Go to previously viewed problem\tCtrl Minus", "Return from Ctrl-Minus\tCtrl Plus",
            "Add tag to the problem...\tCtrl+T", "Remove tag from current problem...\tCtrl+Shift+T",
            "Append set of tags from other .cp file...", "Find problem...\tCtrl+F", "Find next\tF3",
            "Find previous\tShift+F3"});
  AddCommand(problem, "Select problem number...\tCtrl+G", "selectNumber", QKeySequence("Ctrl+G"),
             [this] { AskProblemNumber(); });
  AddLater(problem, {"Select problem from list...\tCtrl+Shift+G", "Find similar positions"});
}

void CMainWindow::BuildOtherMenus() {
  QMenu* view = AddMenu(menuBar(), "&View");
  AddCommand(view, "&Rotate chessboard view", "rotate", {},
             [this] { board->SetRotated(!board->IsRotated()); });
  AddCommand(view, "&Enlarge/minimize progress information area", "progressArea", {},
             [this] { resultView->setVisible(!resultView->isVisible()); });
  AddLater(AddMenu(menuBar(), "Var&iant"), kLaterVariantCommands);
  AddLater(AddMenu(menuBar(), "&Advanced"), kLaterAdvancedCommands);

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
  AddLater(AddMenu(priority, "Processor &affinity"), {});
  priority->actions().back()->setEnabled(false);

  QMenu* help = AddMenu(menuBar(), "&Help");
  AddLater(help, {"Open &manual (quick start)", "&Open readme.txt"});
  AddCommand(help, "&About", "about", {},
             [this] { ShowMessage("Information", "Longmate: a solver of long direct mates."); });
  AddLater(help, {"&Threads..."});
}
