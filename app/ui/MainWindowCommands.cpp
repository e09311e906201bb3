// The commands of the second step take their entries, shown disabled until now, by label:
// each group offers its own from its own file. The questions they ask go through two
// replaceable functions, so that a test can answer them without a modal dialog.
#include <QAction>
#include <QInputDialog>
#include <QProcess>
#include <QShortcut>
#include <QTimer>

#include "app/ui/BackgroundTask.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"

void CMainWindow::OfferCommands() {
  askText = [this](const QString& title, const QString& prompt,
                   const QString& text) -> std::optional<QString> {
    bool bOk = false;
    const QString answer =
        QInputDialog::getText(this, title, prompt, QLineEdit::Normal, text, &bOk);
    if (!bOk) return std::nullopt;
    return answer;
  };
  chooseItem = [this](const QString& title, const QStringList& items) {
    bool bOk = false;
    const QString chosen = QInputDialog::getItem(this, title, title, items, 0, false, &bOk);
    return bOk ? static_cast<int>(items.indexOf(chosen)) : -1;
  };
  startProgram = [](const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
  };
  animation = new QTimer(this);
  connect(animation, &QTimer::timeout, this, &CMainWindow::AnimationStep);
  sideTask = new CBackgroundTask(this);
  connect(sideTask, &CBackgroundTask::Finished, this, &CMainWindow::OnSideTaskFinished);
  OfferVariantCommands();
  OfferProblemCommands();
  OfferSearchCommands();
  OfferSolvingExtras();
  OfferHelpCommands();
  OfferPositionCommands();
}

// As AddCommand does for a new entry: the key is a window shortcut.
void CMainWindow::Offer(const char* label, const QString& name, const QKeySequence& key,
                        std::function<void()> work) {
  QAction* action = FindLater(this, label);
  if (!action) return;
  action->setObjectName(name);
  action->setEnabled(true);
  connect(action, &QAction::triggered, this, [work = std::move(work)] { work(); });
  if (!key.isEmpty()) {
    auto* shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, action, &QAction::trigger);
  }
}
