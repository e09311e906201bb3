// The Advanced menu, the options dialog and the heuristics selection dialog.
#include <QAction>
#include <QApplication>
#include <QMenuBar>

#include "app/Options.h"
#include "app/platform/Machine.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/OptionsDialog.h"
#include "app/ui/SolveController.h"

void CMainWindow::BuildAdvancedMenu() {
  QMenu* advanced = AddMenu(menuBar(), "&Advanced");
  BuildTaskArea();
  AddCommand(advanced, "Select &heuristics and find solution\tCtrl+F5", "heuristicsSolve",
             QKeySequence("Ctrl+F5"), [this] { AskHeuristicsAndSolve(false); });
  AddCommand(advanced, "Select &heuristics and find all solutions\tShift+Ctrl+F5",
             "heuristicsSolveAll", QKeySequence("Shift+Ctrl+F5"),
             [this] { AskHeuristicsAndSolve(true); });
  AddLater(advanced, {"Sort &indications...\tCtrl+W"});
  AddCommand(advanced, "&Options", "options", {}, [this] { ShowOptions(); });
  BuildRegisterCommands(advanced);
  AddLater(advanced, {"Skip analysis of current move and go to the &next one",
                      "Display &id of current position and copy it to clipboard"});
  BuildRegressionCommands(advanced);
  BuildTablesCommands(advanced);
  AddLater(
      advanced,
      {"Check if FEN codes from selected file (any text format) exist in the current file..."});
}

void CMainWindow::ShowOptions() {
  auto* dialog = new COptionsDialog(Options(), threads, this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  connect(dialog, &QDialog::accepted, this, [this, dialog] { ApplyOptions(*dialog); });
  dialog->open();
}

// The settings take effect at once: the process-wide ones are read where they are used, the
// solving session copies them when it is made, so a new one is made (after the running solve).
void CMainWindow::ApplyOptions(const COptionsDialog& dialog) {
  Options() = dialog.Chosen();
  DeriveMemoryQuotas(platform::TotalPhysicalMemoryBytes(), Options());
  threads = dialog.ChosenThreads();
  // A file that cannot be written keeps the settings for this run only, and says why.
  if (const auto error = WriteOptions())
    ShowMessage(WindowText("Information"), QString::fromStdString(*error));
  if (IsSolving() || task->IsRunning())  // the session in use stays until it is free
    bSolverOutdated = true;
  else
    RebuildSolver();
  RefreshControls();
  if (!dialog.Note().isEmpty()) ShowMessage(WindowText("Information"), dialog.Note());
}

void CMainWindow::RebuildSolver() {
  delete solver;
  solver = new CSolveController(Options(), this);
  ConnectSolver();
  bSolverOutdated = false;
  RefreshRegisterCounters();
}

void CMainWindow::AskHeuristicsAndSolve(bool bFindAll) {
  const TProblem* problem = CurrentProblem();
  if (IsSolving() || bSettingMode || !problem) return;
  auto* dialog = new CHeuristicsDialog(*problem, Options().bQuickMode, this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  const int id = nCurrentId;
  connect(dialog, &QDialog::accepted, this, [this, dialog, bFindAll, id] {
    if (id != nCurrentId) return;  // the problem changed meanwhile
    heuristicsChoice = dialog->Choice();
    StartSolve(bFindAll);
  });
  dialog->open();
}
