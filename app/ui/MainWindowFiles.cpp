// The window's files and clipboard: opening and saving problem files, the unsaved-changes
// question, new problems, and positions copied out or pasted in as FEN.
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>

#include "app/Options.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SolveController.h"
#include "core/ChessException.h"
#include "core/Fen.h"

namespace {

const char* const kFileFilter = "Chess problems (*.cp);;All files (*)";

// Where a file that comes with the program is looked for: the working folder, the program's
// folder, and the shared data folder of an installed program.
QString FindProgramFile(const QString& name) {
  const QString programFolder = QCoreApplication::applicationDirPath();
  for (const QString& folder :
       {QDir::currentPath(), programFolder, programFolder + "/../share/longmate"}) {
    const QString path = QDir(folder).filePath(name);
    if (QFileInfo::exists(path)) return QDir::cleanPath(path);
  }
  return QDir::current().filePath(name);
}

}  // namespace

bool CMainWindow::ConfirmDiscard() {
  if (!bModified) return true;
  const auto answer = QMessageBox::question(
      this, "Warning", "The problems have been changed. Save changes to file?",
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  if (answer == QMessageBox::Cancel) return false;
  if (answer == QMessageBox::Discard) return true;
  if (filePath.isEmpty()) {
    SaveAs();
    return !bModified;
  }
  return SaveFile(filePath);
}

bool CMainWindow::OpenFile(const QString& path) {
  if (IsSolving()) {
    ShowMessage("Information", "Stop solving before another file is opened.");
    return false;
  }
  if (!ConfirmDiscard()) return false;
  TProblemCollection fresh;
  QStringList notes;
  const auto error = fresh.ReadFile(
      path.toStdString(),
      {.bCreateIfMissing = false,
       .note =
           [&notes](const TProblem& problem, const std::vector<std::string>& lines) {
             for (const std::string& note : lines)
               notes << QString("%1: %2").arg(problem.id).arg(QString::fromStdString(note));
           },
       .nLanguageId = Options().nLanguageId});
  if (error && fresh.Empty()) {
    ShowMessage("Warning", QString::fromStdString(error->Describe()));
    return false;
  }
  // A bad problem ends the reading; the problems before it are kept and shown.
  if (error) notes.prepend(QString::fromStdString(error->Describe()));
  collection = std::move(fresh);
  filePath = path;
  nCurrentId = 0;
  SetModified(false);
  ShowProblem();
  if (!notes.isEmpty()) ShowMessage("Warning", notes.join("\n"));
  return true;
}

bool CMainWindow::SaveFile(const QString& path) {
  if (const auto error = collection.WriteFile(path.toStdString())) {
    ShowMessage("Warning", QString::fromStdString(*error));
    return false;
  }
  filePath = path;
  SetModified(false);
  return true;
}

void CMainWindow::SaveAs() {
  const QString path = QFileDialog::getSaveFileName(this, "Save as", filePath, kFileFilter);
  if (!path.isEmpty()) SaveFile(path);
}

// nullptr: a new file chosen by the user; "": a file chosen by the user; otherwise a file of
// the program, created from the new-file template when missing and bCreate says so.
void CMainWindow::OpenNamedFile(const char* name, bool bCreate) {
  QString path;
  if (name == nullptr) {
    path = QFileDialog::getSaveFileName(this, "New file", QString(), kFileFilter);
    if (path.isEmpty()) return;
    if (const auto error =
            TProblemCollection::WriteNewFile(path.toStdString(), Options().nLanguageId))
      return ShowMessage("Warning", QString::fromStdString(*error));
  } else if (*name == '\0') {
    path = QFileDialog::getOpenFileName(this, "Open", QFileInfo(filePath).path(), kFileFilter);
    if (path.isEmpty()) return;
  } else {
    path = FindProgramFile(name);
    if (bCreate && !QFileInfo::exists(path))
      if (const auto error =
              TProblemCollection::WriteNewFile(path.toStdString(), Options().nLanguageId))
        return ShowMessage("Warning", QString::fromStdString(*error));
  }
  OpenFile(path);
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
  nCurrentId = problem->id;
  collection.Put(std::move(problem));
  SetModified(true);
  ShowProblem();
}

void CMainWindow::AskProblemNumber() {
  if (collection.Empty()) return;
  bool bOk = false;
  const int id = QInputDialog::getInt(this, "Select problem number", "Problem number:", nCurrentId,
                                      collection.Problems().begin()->first,
                                      collection.Problems().rbegin()->first, 1, &bOk);
  if (bOk && !GoToProblem(id)) ShowMessage("Information", QString("No problem %1.").arg(id));
}

void CMainWindow::CopyFen(bool bFull) {
  TChessboard shown = line.Current();
  if (bSettingMode && TPositionEdits::Validate(edits.Squares(), shown)) return;
  QApplication::clipboard()->setText(
      QString::fromStdString(bFull ? fen::WriteFullFen(shown) : fen::WriteShortFen(shown)));
}

bool CMainWindow::PastePosition(const QString& text) {
  const std::string fenText = text.trimmed().toStdString();
  TChessboard scratch;
  ClearChessboard(scratch);
  try {
    if (!fen::ReadFen(scratch, fenText)) throw ChessException("Improper FEN code");
  } catch (const ChessException& error) {
    ShowMessage("Warning", error.what());
    return false;
  }
  TPositionEdits::TSquares squares;
  std::copy(std::begin(scratch.squares), std::end(scratch.squares), squares.begin());
  if (bSettingMode) {
    edits.Replace(squares);
    ShowPosition();
    return true;
  }
  if (const auto error = TPositionEdits::Validate(squares, scratch)) {
    ShowMessage("Warning", QString::fromStdString(*error));
    return false;
  }
  if (!CurrentProblem()) NewProblem();
  TProblem* problem = CurrentProblem();
  if (!problem || (IsSolving() && nSolvingId == nCurrentId)) return false;
  std::copy(squares.begin(), squares.end(), problem->start.squares);
  problem->ResetLine();
  Analyse(problem->start, true);
  SetModified(true);
  ShowProblem();
  return true;
}
