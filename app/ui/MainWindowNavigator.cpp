// The problem navigator: moving through the collection in id order, to a number, to a problem
// chosen from the list with its description, back and forth among the problems viewed, and
// new problems.
#include <QDialog>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QListWidget>
#include <QVBoxLayout>

#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"

namespace {

// The list's line for a problem: its number, stipulation and the first line of its
// description.
QString ListLine(const TProblem& problem) {
  const QString description = QString::fromStdString(problem.description).section('\n', 0, 0);
  return QString("%1\t%2\t%3")
      .arg(problem.id)
      .arg(QString::fromStdString(problem.stipulation.Text()), description);
}

}  // namespace

TProblem* CMainWindow::CurrentProblem() {
  return collection.Find(nCurrentId);
}

bool CMainWindow::GoToProblem(int id) {
  if (!collection.Find(id) || bSettingMode) return false;
  ShowProblem(id);
  return true;
}

// Moves through the problems in id order; a large step stops at the first or the last.
void CMainWindow::Step(int direction) {
  const auto& problems = collection.Problems();
  auto at = problems.find(nCurrentId);
  if (at == problems.end()) return;
  for (; direction > 0 && std::next(at) != problems.end(); --direction) ++at;
  for (; direction < 0 && at != problems.begin(); ++direction) --at;
  GoToProblem(at->first);
}

bool CMainWindow::ViewedBack() {
  return StepThroughViewed(viewedBefore, viewedAfter);
}

bool CMainWindow::ViewedForward() {
  return StepThroughViewed(viewedAfter, viewedBefore);
}

// Goes to the last problem of from, leaving the current one on to; problems removed since
// they were viewed are passed over.
bool CMainWindow::StepThroughViewed(std::vector<int>& from, std::vector<int>& to) {
  if (bSettingMode) return false;
  while (!from.empty() && !collection.Find(from.back())) from.pop_back();
  if (from.empty()) return false;
  to.push_back(nCurrentId);
  nCurrentId = from.back();
  from.pop_back();
  ShowProblem();
  return true;
}

// A mate in 2 with the two kings on their home squares, after the last problem.
void CMainWindow::NewProblem() {
  auto problem = std::make_unique<TProblem>();
  problem->id = collection.Empty() ? 1 : collection.Problems().rbegin()->first + 1;
  ClearChessboard(problem->start);
  problem->start.squares[square::kE1] = piece::kWhiteKing;
  problem->start.squares[square::kE8] = piece::kBlackKing;
  problem->SetStipulation(TStipulation::DirectMate(2));
  Analyse(problem->start, true);
  const int id = problem->id;
  collection.Put(std::move(problem));
  SetModified(true);
  ShowProblem(id);
}

void CMainWindow::AskProblemNumber() {
  if (collection.Empty() || bSettingMode) return;
  bool bOk = false;
  const int id = QInputDialog::getInt(
      this, WindowText("Select problem number"), WindowText("Problem number:"), nCurrentId,
      collection.Problems().begin()->first, collection.Problems().rbegin()->first, 1, &bOk);
  if (bOk && !GoToProblem(id))
    ShowMessage(WindowText("Information"), WindowText("No problem %1.").arg(id));
}

// Every problem with its stipulation and description; the one chosen (a double click, or OK)
// is shown. The list does not block the window.
void CMainWindow::ShowProblemList() {
  if (collection.Empty() || bSettingMode) return;
  auto* dialog = new QDialog(this);
  dialog->setObjectName("problemList");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(WindowText("Select problem from list"));
  auto* list = new QListWidget(dialog);
  for (const auto& [id, problem] : collection.Problems()) {
    auto* item = new QListWidgetItem(ListLine(*problem), list);
    item->setData(Qt::UserRole, id);
    if (id == nCurrentId) list->setCurrentItem(item);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
  auto* layout = new QVBoxLayout(dialog);
  layout->addWidget(list);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  connect(list, &QListWidget::itemActivated, dialog, &QDialog::accept);
  connect(dialog, &QDialog::accepted, this, [this, list] {
    if (const QListWidgetItem* chosen = list->currentItem())
      GoToProblem(chosen->data(Qt::UserRole).toInt());
  });
  dialog->resize(560, 420);
  dialog->open();
}
