// The Problem menu's edits beyond the position: the tags, the description (also from the
// pop-up of its links) and the sort indications.
#include <QAction>
#include <QInputDialog>

#include "app/Options.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SortIndicationsDialog.h"
#include "core/ChessException.h"
#include "problems/SortIndication.h"

void CMainWindow::OfferProblemCommands() {
  Offer("Add tag to the problem...\tCtrl+T", "addTag", QKeySequence("Ctrl+T"), [this] {
    if (!CurrentProblem()) return;
    if (const auto tag =
            askText(WindowText("Add tag to the problem"), WindowText("Tag:"), QString()))
      AddTag(*tag);
  });
  Offer("Remove tag from current problem...\tCtrl+Shift+T", "removeTag",
        QKeySequence("Ctrl+Shift+T"), [this] { AskTagToRemove(); });
  Offer("Append set of tags from other .cp file...", "appendTags", {}, [this] {
    const QString path = AskFile(EFileQuestion::kAppend);
    if (!path.isEmpty()) AppendTags(path);
  });
  Offer("Sort &indications...\tCtrl+W", "sortIndications", QKeySequence("Ctrl+W"),
        [this] { EditSortIndications(); });
}

bool CMainWindow::AddTag(const QString& tag) {
  TProblem* problem = CurrentProblem();
  const std::string text = tag.simplified().toStdString();
  if (!problem || text.empty() || !problem->tags.insert(text).second) return false;
  SetModified(true);
  ShowDescription(problem);
  return true;
}

bool CMainWindow::RemoveTag(const QString& tag) {
  TProblem* problem = CurrentProblem();
  if (!problem || problem->tags.erase(tag.toStdString()) == 0) return false;
  SetModified(true);
  ShowDescription(problem);
  return true;
}

void CMainWindow::AskTagToRemove() {
  const TProblem* problem = CurrentProblem();
  if (!problem) return;
  if (problem->tags.empty())
    return ShowMessage(WindowText("Information"), WindowText("The problem has no tags."));
  QStringList tags;
  for (const std::string& tag : problem->tags) tags << QString::fromStdString(tag);
  const int index = chooseItem(WindowText("Remove tag from current problem"), tags);
  if (index >= 0) RemoveTag(tags.at(index));
}

void CMainWindow::EditDescription() {
  const TProblem* problem = CurrentProblem();
  if (!problem) return;
  bool bOk = false;
  const QString text = QInputDialog::getMultiLineText(
      this, WindowText("Edit problem description"), WindowText("Description:"),
      QString::fromStdString(problem->description), &bOk);
  if (bOk) SetDescription(text);
}

bool CMainWindow::SetDescription(const QString& text) {
  TProblem* problem = CurrentProblem();
  if (!problem) return false;
  problem->description = text.trimmed().toStdString();
  SetModified(true);
  ShowDescription(problem);
  return true;
}

// The dialog does not block the window; the problem it edits is looked up again when its
// text is taken, for the user may have gone elsewhere meanwhile.
void CMainWindow::EditSortIndications() {
  const TProblem* problem = CurrentProblem();
  if (!problem) return;
  const int id = nCurrentId;
  auto* dialog = new CSortIndicationsDialog(
      QString::fromStdString(sortindication::RenderList(problem->sortIndications)),
      problem->bUseMainVariantAsSortIndications,
      [this, id](const QString& text, bool bUseMainVariant) {
        if (id != nCurrentId) return WindowText("The problem shown has changed.");
        const QString refusal = SetSortIndications(text);
        if (!refusal.isEmpty()) return refusal;
        TProblem* edited = CurrentProblem();
        edited->bUseMainVariantAsSortIndications = bUseMainVariant;
        edited->options = bUseMainVariant
                              ? edited->options | option::kUseMainVariantAsSortIndications
                              : edited->options & ~option::kUseMainVariantAsSortIndications;
        return QString();
      },
      this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->open();
}

QString CMainWindow::SetSortIndications(const QString& text) {
  TProblem* problem = CurrentProblem();
  if (!problem) return {};
  if (IsSolving() && nSolvingId == nCurrentId)
    return WindowText("The problem is being solved: its sort indications stay as they are.");
  try {
    problem->sortIndications =
        sortindication::ParseList(text.trimmed().toStdString(), Options().nLanguageId);
  } catch (const ChessException& error) {
    return QString::fromStdString(error.what());
  }
  SetModified(true);
  return {};
}
