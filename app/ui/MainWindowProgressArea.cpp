// The progress area's line and its two controls: the thread whose first move the line shows
// (A for what all threads do together) and the size of the area. What a thread searches
// comes from the session as plain values; the window never waits for the engine.
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QToolButton>

#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SolveController.h"
#include "app/ui/StepControl.h"

QLayout* CMainWindow::BuildProgressRow(QWidget* central) {
  auto* row = new QHBoxLayout();
  progressLabel = new QLabel(central);
  progressLabel->setObjectName("progress");
  peekControl = new CStepControl(central);
  peekControl->setObjectName("peek");
  peekControl->SetText("A");
  SetWindowToolTip(peekControl,
                   "Click at the botton/top of the icon to change thread to peek (A = info from "
                   "all threads)");
  connect(peekControl, &CStepControl::Stepped, this,
          [this](int direction, Qt::MouseButton) { StepPeek(direction); });
  progressSizeButton = new QToolButton(central);
  progressSizeButton->setObjectName("progressSize");
  progressSizeButton->setArrowType(Qt::UpArrow);
  SetWindowToolTip(progressSizeButton, "Click to change size of progress information area");
  connect(progressSizeButton, &QToolButton::clicked, this, &CMainWindow::CycleProgressArea);
  row->addWidget(progressLabel, 1);
  row->addWidget(peekControl);
  row->addWidget(progressSizeButton);
  return row;
}

// Round from A through the threads of the running pass (those set for the next solve when
// none runs) and back to A.
void CMainWindow::StepPeek(int direction) {
  const std::size_t nRunning = solver->Session().ThreadMoves().size();
  const int nThreads =
      nRunning > 0 ? static_cast<int>(nRunning) : static_cast<int>(threads.nThreads);
  nPeekThread = (nPeekThread + direction + nThreads + 1) % (nThreads + 1);
  peekControl->SetText(nPeekThread == 0 ? QString("A") : QString::number(nPeekThread));
  if (IsSolving()) ShowProgress();
}

void CMainWindow::ShowProgress() {
  const TPassProgress& progress = solver->LastProgress();
  const QString paused = progress.bPaused ? WindowText(" (paused)") : QString();
  const std::vector<TThreadMove> moves =
      nPeekThread > 0 ? solver->Session().ThreadMoves() : std::vector<TThreadMove>{};
  if (nPeekThread == 0) {
    progressLabel->setText(QString("%1/%2 %3%4")
                               .arg(progress.nCurrentMove + 1)
                               .arg(progress.nFirstMoves)
                               .arg(QString::fromStdString(progress.sCurrentMove))
                               .arg(paused));
  } else if (nPeekThread > static_cast<int>(moves.size()) || moves[nPeekThread - 1].nMove < 0) {
    progressLabel->setText(WindowText("Thread %1: helping another thread").arg(nPeekThread) +
                           paused);
  } else {
    const TThreadMove& move = moves[nPeekThread - 1];
    progressLabel->setText(WindowText("Thread %1: %2/%3 %4")
                               .arg(nPeekThread)
                               .arg(move.nMove + 1)
                               .arg(progress.nFirstMoves)
                               .arg(QString::fromStdString(move.sMove)) +
                           paused);
  }
  Q_EMIT ProgressShown();
}

// Normal, then the whole column (the move list hidden), then only the progress line (the
// result area hidden), then normal again. The arrow points the way the next click goes.
void CMainWindow::CycleProgressArea() {
  if (!resultView->isVisible()) {
    resultView->show();
    progressSizeButton->setArrowType(Qt::UpArrow);
  } else if (moveList->isVisible()) {
    moveList->hide();
    progressSizeButton->setArrowType(Qt::DownArrow);
  } else {
    moveList->show();
    resultView->hide();
    progressSizeButton->setArrowType(Qt::UpArrow);
  }
}
