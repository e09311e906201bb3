// The long commands' place in the status bar: what runs, how far it is, and its Stop button.
// One runs at a time; its outcome goes to the progress area and to a message.
#include <QCoreApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>

#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"

void CMainWindow::BuildTaskArea() {
  task = new CBackgroundTask(this);
  taskLabel = new QLabel(this);
  taskLabel->setObjectName("taskProgress");
  taskStop = new QPushButton(this);
  taskStop->setObjectName("taskStop");
  SetWindowText(taskStop, "Stop");
  statusBar()->addPermanentWidget(taskLabel);
  statusBar()->addPermanentWidget(taskStop);
  taskLabel->hide();
  taskStop->hide();
  connect(taskStop, &QPushButton::clicked, this, [this] {
    task->RequestStop();
    taskStop->setEnabled(false);
  });
  connect(task, &CBackgroundTask::Progress, this, [this](const QString& text, double dFraction) {
    // A work that cannot tell how far it is gives a negative share.
    taskLabel->setText(
        dFraction < 0 ? text : QString("%1 %2%").arg(text).arg(static_cast<int>(dFraction * 100)));
  });
  connect(task, &CBackgroundTask::Line, this,
          [this](const QString& text) { resultView->appendPlainText(text); });
  connect(task, &CBackgroundTask::Finished, this, [this](const QVariant& outcome, bool bStopped) {
    OnTaskFinished(outcome.toString(), bStopped);
  });
}

void CMainWindow::RunTask(const char* title, CBackgroundTask::TWork work,
                          std::function<void()> onDone, CBackgroundTask::TStopHook onStop) {
  if (task->IsRunning()) {
    ShowMessage(WindowText("Information"),
                WindowText("Wait until the command being run ends, or stop it."));
    return;
  }
  // The title is the command's label as the menu shows it, without accelerator and marks.
  const QString shown = QCoreApplication::translate("Menu", title).section('\t', 0, 0).remove('&');
  task->Start(shown, std::move(work), std::move(onStop));
  taskDone = std::move(onDone);
  taskLabel->setText(shown);
  taskLabel->show();
  taskStop->setEnabled(true);
  taskStop->show();
}

void CMainWindow::OnTaskFinished(const QString& outcome, bool bStopped) {
  taskLabel->hide();
  taskStop->hide();
  if (const auto done = std::exchange(taskDone, nullptr)) done();
  const QString text = bStopped ? WindowText("Stopped.") + "\n" + outcome : outcome;
  if (!text.isEmpty()) {
    resultView->appendPlainText(text);
    ShowMessage(task->Title(), text);
  }
  Q_EMIT TaskReported(text);
}
