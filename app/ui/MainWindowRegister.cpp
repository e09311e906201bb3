// The temporary register's commands of the Advanced menu and its counters in the status bar.
#include <QLabel>
#include <QMenu>
#include <QStatusBar>

#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SolveController.h"

void CMainWindow::BuildRegisterCommands(QMenu* advanced) {
  registerLabel = new QLabel(this);
  registerLabel->setObjectName("registerCounters");
  SetWindowToolTip(registerLabel,
                   "Number of positions in temporary register (either checkmate or not, mate "
                   "doubtful or not doubtful)");
  statusBar()->addPermanentWidget(registerLabel);
  // Each command shows what it did, or why it could not run (during a solve, say).
  const auto run =
      [this](
          const std::function<TRegisterCommandResult(CSolvingSession&, const TProblem&)>& command) {
        const TProblem* problem = CurrentProblem();
        if (!problem) return;
        const TRegisterCommandResult result = command(solver->Session(), *problem);
        RefreshRegisterCounters();
        if (!result.message.empty())
          ShowMessage(WindowText("Information"), QString::fromStdString(result.message));
      };
  AddCommand(advanced, "Save temporary register of current problem", "saveRegister", {}, [run] {
    run([](CSolvingSession& s, const TProblem& p) { return s.SaveTemporaryRegister(p); });
  });
  AddCommand(advanced, "Save temporary register of current problem as...", "saveRegisterAs", {},
             [this, run] {
               const QString path = AskFile(EFileQuestion::kSaveRegister);
               if (path.isEmpty()) return;
               run([path](CSolvingSession& s, const TProblem& p) {
                 return s.SaveTemporaryRegisterAs(p, path.toStdString());
               });
             });
  AddCommand(
      advanced, "Read temporary register of current problem from default file", "readRegister", {},
      [run] {
        run([](CSolvingSession& s, const TProblem& p) { return s.ReadTemporaryRegister(p); });
      });
  AddCommand(advanced, "Read temporary register from file...", "readRegisterFrom", {}, [this, run] {
    const QString path = AskFile(EFileQuestion::kReadRegister);
    if (path.isEmpty()) return;
    run([path](CSolvingSession& s, const TProblem& p) {
      return s.ReadTemporaryRegisterFrom(p, path.toStdString());
    });
  });
  AddCommand(advanced, "Clear temporary register of current problem", "clearRegister", {}, [run] {
    run([](CSolvingSession& s, const TProblem&) { return s.ClearTemporaryRegister(); });
  });
  RefreshRegisterCounters();
}

QString CMainWindow::RegisterCountersText() const {
  return registerLabel ? registerLabel->text() : QString();
}

void CMainWindow::ShowRegisterCounters(std::uint32_t nElements, std::uint32_t nDoubtful) {
  if (registerLabel)
    registerLabel->setText(WindowText("Temp.reg.: %1 (doubtful %2)").arg(nElements).arg(nDoubtful));
}

// Between solves the register is read here; during one the progress snapshots carry it.
void CMainWindow::RefreshRegisterCounters() {
  if (IsSolving()) return;
  const auto* reg = solver->Session().TemporaryRegister();
  if (reg)
    ShowRegisterCounters(reg->GetElementsIn(), reg->GetDoubtfulElementsIn());
  else
    ShowRegisterCounters(0, 0);
}
