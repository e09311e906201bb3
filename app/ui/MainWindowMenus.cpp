// The menu bar's File and Position menus. Every command of the window has its place and label
// in the menus; a command whose work is not part of the window yet is shown disabled rather
// than doing nothing.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QShortcut>

#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"

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
  OfferCommands();
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
  AddCommand(file, "&Append problems from another .cp file...", "appendProblems", {}, [this] {
    const QString path = AskFile(EFileQuestion::kAppend);
    if (!path.isEmpty()) AppendProblems(path);
  });
  AddCommand(file, "&Remove problems that are present in another .cp file...", "removePresent", {},
             [this] {
               const QString path = AskFile(EFileQuestion::kRemovePresent);
               if (!path.isEmpty()) RemovePresentProblems(path);
             });
  BuildRecentMenu(file);
  file->addSeparator();
  AddCommand(file, "E&xit", "exit", {}, [this] { close(); });
}

// The files opened last, refilled each time the menu opens.
void CMainWindow::BuildRecentMenu(QMenu* file) {
  recentMenu = AddMenu(file, "Recent files");
  recentMenu->setObjectName("recentMenu");
  connect(recentMenu, &QMenu::aboutToShow, this, [this] {
    recentMenu->clear();
    const QStringList paths = RecentFiles();
    for (int i = 0; i < paths.size(); ++i) {
      QAction* action = recentMenu->addAction(QString("&%1 %2").arg(i + 1).arg(paths.at(i)));
      action->setObjectName(QString("recent%1").arg(i + 1));
      connect(action, &QAction::triggered, this, [this, path = paths.at(i)] { OpenFile(path); });
    }
    recentMenu->setEnabled(!paths.isEmpty());
  });
}

void CMainWindow::BuildPositionMenu() {
  QMenu* position = AddMenu(menuBar(), "&Position");
  AddCommand(position, "Copy\tCtrl+C", "copy", QKeySequence("Ctrl+C"),
             [this] { CopyProblem(true, true); });
  AddCommand(position, "Copy without variants", "copyWithoutVariants", {},
             [this] { CopyProblem(false, true); });
  AddCommand(position, "Copy without variants or tags", "copyWithoutTags", {},
             [this] { CopyProblem(false, false); });
  AddCommand(position, "Copy FEN code of position\tCtrl+Shift+C", "copyFen",
             QKeySequence("Ctrl+Shift+C"), [this] { CopyFen(false); });
  AddCommand(position, "Copy full FEN code of position", "copyFullFen", {},
             [this] { CopyFen(true); });
  AddCommand(position, "Copy diagram", "copyDiagram", {}, [this] { CopyDiagram(); });
  AddCommand(position, "Paste (position/FEN/moves)\tCtrl+V", "paste", QKeySequence("Ctrl+V"),
             [this] { PastePosition(QApplication::clipboard()->text()); });
  AddCommand(position, "Paste as mirror", "pasteMirror", {},
             [this] { PastePosition(QApplication::clipboard()->text(), true); });
  BuildTransformCommands(position);
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

// The turns, the colour swap and the shifts, then the moves played copied out; the variants
// come with the variant commands.
void CMainWindow::BuildTransformCommands(QMenu* position) {
  using transforms::ETransform;
  AddCommand(position, "Rotate position 90°", "rotate90", {},
             [this] { Transform(ETransform::kRotate90); });
  AddCommand(position, "Swap black and white", "swapColours", {},
             [this] { Transform(ETransform::kSwapColours); });
  const struct {
    const char* label;
    const char* name;
    const char* key;
    int nFiles, nRanks;
  } shifts[] = {{"Shift position left\tCtrl+L", "shiftLeft", "Ctrl+L", -1, 0},
                {"Shift position right\tCtrl+R", "shiftRight", "Ctrl+R", 1, 0},
                {"Shift position up\tCtrl+U", "shiftUp", "Ctrl+U", 0, 1},
                {"Shift position down\tCtrl+D", "shiftDown", "Ctrl+D", 0, -1}};
  for (const auto& shift : shifts)
    AddCommand(position, shift.label, shift.name, QKeySequence(shift.key),
               [this, shift] { ShiftPosition(shift.nFiles, shift.nRanks); });
  AddCommand(position, "Copy moves - short notation", "copyMovesShort", {}, [this] {
    QApplication::clipboard()->setText(QString::fromStdString(line.MoveListText(true)));
  });
  AddCommand(position, "Copy moves - full notation", "copyMovesFull", {}, [this] {
    QApplication::clipboard()->setText(QString::fromStdString(line.MoveListText()));
  });
  AddLater(position, {"Copy variants - short notation", "Copy variants - full notation"});
}
