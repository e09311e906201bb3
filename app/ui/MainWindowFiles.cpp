// The window's files: opening and saving problem files and the other programs' formats, the
// unsaved-changes question, the file chooser and the files opened last.
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSettings>

#include "app/Options.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "core/SafeFile.h"
#include "problems/ForeignFormat.h"

namespace {

// The problem files first, then the formats of other programs, recognised by their extension.
const char* const kFileFilter =
    "Chess problems (*.cp);;Problem solver text (*.pop *.txt);;EPD (*.epd);;FEN list (*.fen);;"
    "All files (*)";
const char* const kRegisterFilter = "Temporary registers (*.ltr);;All files (*)";
constexpr const char* kRecentKey = "recentFiles";
constexpr int kRecentCount = 8;
// Positions of an EPD or FEN list without a stipulation become mates in this many moves, as
// a new problem is.
constexpr int kImportedMoves = 2;

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

bool CMainWindow::ReadProblemsFile(const QString& path, TProblemCollection& problems,
                                   QStringList& notes) {
  const std::string name = path.toStdString();
  std::optional<TFileError> error;
  if (const auto format = FormatFromFileName(name))
    error = ImportFile(name, *format, {.nDefaultMoves = kImportedMoves}, problems);
  else
    error = problems.ReadFile(
        name, {.bCreateIfMissing = false,
               .note =
                   [&notes](const TProblem& problem, const std::vector<std::string>& lines) {
                     for (const std::string& note : lines)
                       notes << QString("%1: %2").arg(problem.id).arg(QString::fromStdString(note));
                   },
               .nLanguageId = Options().nLanguageId});
  if (error) notes.prepend(QString::fromStdString(error->Describe()));
  return !problems.Empty() || !error;
}

bool CMainWindow::ConfirmDiscard() {
  if (!bModified) return true;
  const auto answer = QMessageBox::question(
      this, WindowText("Warning"),
      WindowText("The problems have been changed. Save changes to file?"),
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
    ShowMessage(WindowText("Information"),
                WindowText("Stop solving before another file is opened."));
    return false;
  }
  if (!ConfirmDiscard()) return false;
  TProblemCollection fresh;
  QStringList notes;
  if (!ReadProblemsFile(path, fresh, notes)) {
    ShowMessage(WindowText("Warning"), notes.join("\n"));
    return false;
  }
  collection = std::move(fresh);
  filePath = path;
  nCurrentId = 0;
  // The last solve's report belongs to the file left.
  resultView->clear();
  progressLabel->clear();
  viewedBefore.clear();
  viewedAfter.clear();
  RememberRecent(path);
  SetModified(false);
  ShowProblem();
  if (!notes.isEmpty()) ShowMessage(WindowText("Warning"), notes.join("\n"));
  return true;
}

// What another program's format cannot hold is said after the file is written.
bool CMainWindow::SaveFile(const QString& path) {
  const std::string name = path.toStdString();
  std::optional<std::string> error;
  QStringList warnings;
  if (const auto format = FormatFromFileName(name)) {
    const TExportResult exported = ExportText(collection, *format);
    for (const std::string& warning : exported.warnings)
      warnings << QString::fromStdString(warning);
    error = safefile::Save(name, exported.text);
  } else {
    error = collection.WriteFile(name);
  }
  if (error) {
    ShowMessage(WindowText("Warning"), QString::fromStdString(*error));
    return false;
  }
  filePath = path;
  RememberRecent(path);
  SetModified(false);
  if (!warnings.isEmpty()) ShowMessage(WindowText("Warning"), warnings.join("\n"));
  return true;
}

void CMainWindow::SaveAs() {
  const QString path = AskFile(EFileQuestion::kSaveAs);
  if (!path.isEmpty()) SaveFile(path);
}

QString CMainWindow::AskFile(EFileQuestion question) {
  if (chooseFile) return chooseFile(question);
  const QString folder = QFileInfo(filePath).path();
  const QString filter = WindowText(kFileFilter);
  switch (question) {
    case EFileQuestion::kSaveAs:
      return QFileDialog::getSaveFileName(this, WindowText("Save as"), filePath, filter);
    case EFileQuestion::kNewFile:
      return QFileDialog::getSaveFileName(this, WindowText("New file"), folder, filter);
    case EFileQuestion::kAppend:
      return QFileDialog::getOpenFileName(this, WindowText("Append problems"), folder, filter);
    case EFileQuestion::kRemovePresent:
      return QFileDialog::getOpenFileName(this, WindowText("Remove problems"), folder, filter);
    case EFileQuestion::kSaveRegister:
      return QFileDialog::getSaveFileName(this, WindowText("Save temporary register"), {},
                                          WindowText(kRegisterFilter));
    case EFileQuestion::kReadRegister:
      return QFileDialog::getOpenFileName(this, WindowText("Read temporary register"), {},
                                          WindowText(kRegisterFilter));
    case EFileQuestion::kCheckFens:
      return QFileDialog::getOpenFileName(this, WindowText("Check FEN codes"), folder,
                                          WindowText("All files (*)"));
    case EFileQuestion::kOpen:
      break;
  }
  return QFileDialog::getOpenFileName(this, WindowText("Open"), folder, filter);
}

// nullptr: a new file chosen by the user; "": a file chosen by the user; otherwise a file of
// the program, created from the new-file template when missing and bCreate says so.
void CMainWindow::OpenNamedFile(const char* name, bool bCreate) {
  QString path;
  if (name == nullptr) {
    path = AskFile(EFileQuestion::kNewFile);
    if (path.isEmpty()) return;
    if (const auto error =
            TProblemCollection::WriteNewFile(path.toStdString(), Options().nLanguageId))
      return ShowMessage(WindowText("Warning"), QString::fromStdString(*error));
  } else if (*name == '\0') {
    path = AskFile(EFileQuestion::kOpen);
    if (path.isEmpty()) return;
  } else {
    path = FindProgramFile(name);
    if (bCreate && !QFileInfo::exists(path))
      if (const auto error =
              TProblemCollection::WriteNewFile(path.toStdString(), Options().nLanguageId))
        return ShowMessage(WindowText("Warning"), QString::fromStdString(*error));
  }
  OpenFile(path);
}

QStringList CMainWindow::RecentFiles() const {
  return QSettings().value(kRecentKey).toStringList();
}

void CMainWindow::RememberRecent(const QString& path) {
  QStringList paths = RecentFiles();
  const QString full = QFileInfo(path).absoluteFilePath();
  paths.removeAll(full);
  paths.prepend(full);
  QSettings().setValue(kRecentKey, paths.mid(0, kRecentCount));
}
