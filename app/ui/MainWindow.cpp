#include "app/ui/MainWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/Options.h"
#include "app/StatusLine.h"
#include "app/ThreadControls.h"
#include "app/ThreadCountLabel.h"
#include "app/ui/BoardView.h"
#include "app/ui/PiecePalette.h"
#include "app/ui/SolveController.h"
#include "app/ui/StepControl.h"

namespace {

std::array<PieceCode, 64> SquaresOf(const TChessboard& board) {
  std::array<PieceCode, 64> squares;
  std::copy(std::begin(board.squares), std::end(board.squares), squares.begin());
  return squares;
}

QToolButton* NavigatorButton(const QString& text, const QString& tip, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setText(text);
  button->setToolTip(tip);
  return button;
}

}  // namespace

CMainWindow::CMainWindow(QWidget* parent)
    : QMainWindow(parent), solver(new CSolveController(Options(), this)) {
  threads = solver->Session().DefaultThreads();
  BuildLayout();
  BuildMenus();
  ConnectSolver();
  ShowLanguage(Options().nLanguageId);
  ShowProblem();
}

// The solve reads the problem it was given until its thread ends: the controller, which stops
// and joins it, goes before the collection that owns the problem.
CMainWindow::~CMainWindow() {
  delete solver;
}

void CMainWindow::BuildLayout() {
  auto* central = new QWidget(this);
  auto* columns = new QHBoxLayout(central);
  board = new CBoardView(central);
  board->setObjectName("board");
  board->setToolTip(
      "Click at the top/bottom to increase/decrease number of moves (stipulation) in pos.setting "
      "mode");
  columns->addWidget(board, 3);

  auto* side = new QVBoxLayout();
  columns->addLayout(side, 2);
  auto* navigator = new QHBoxLayout();
  auto* first = NavigatorButton("|<", "Go to first problem", central);
  auto* previous = NavigatorButton("<", "Previous problem", central);
  problemLabel = new QLabel(central);
  problemLabel->setObjectName("problemLabel");
  problemLabel->setToolTip(
      "Click to select another problem (right click: list with problem descriptions)");
  auto* next = NavigatorButton(">", "Next problem", central);
  auto* last = NavigatorButton(">|", "Go to last problem", central);
  connect(first, &QToolButton::clicked, this, [this] { Step(-1000000); });
  connect(previous, &QToolButton::clicked, this, [this] { Step(-1); });
  connect(next, &QToolButton::clicked, this, [this] { Step(1); });
  connect(last, &QToolButton::clicked, this, [this] { Step(1000000); });
  for (QWidget* w : {static_cast<QWidget*>(first), static_cast<QWidget*>(previous),
                     static_cast<QWidget*>(problemLabel), static_cast<QWidget*>(next),
                     static_cast<QWidget*>(last)})
    navigator->addWidget(w);
  side->addLayout(navigator);

  side->addLayout(BuildControls(central));

  palette = new CPiecePalette(central);
  palette->setObjectName("palette");
  palette->hide();
  connect(palette, &CPiecePalette::ClearRequested, this, [this] {
    edits.Clear();
    ShowPosition();
  });
  side->addWidget(palette);

  descriptionLabel = new QLabel(central);
  descriptionLabel->setObjectName("description");
  descriptionLabel->setWordWrap(true);
  descriptionLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
  side->addWidget(descriptionLabel);
  moveList = new QPlainTextEdit(central);
  moveList->setObjectName("moveList");
  moveList->setReadOnly(true);
  moveList->setFocusPolicy(Qt::NoFocus);  // the arrow keys belong to the navigator
  moveList->setMaximumBlockCount(1000);
  side->addWidget(moveList, 1);
  resultView = new QPlainTextEdit(central);
  resultView->setObjectName("result");
  resultView->setReadOnly(true);
  resultView->setFocusPolicy(Qt::NoFocus);
  side->addWidget(resultView, 1);
  progressLabel = new QLabel(central);
  progressLabel->setObjectName("progress");
  side->addWidget(progressLabel);

  setCentralWidget(central);
  statusLabel = new QLabel(this);
  statusLabel->setObjectName("status");
  statusBar()->addWidget(statusLabel, 1);
  connect(board, &CBoardView::SquareClicked, this, &CMainWindow::OnBoardClick);
  connect(board, &CBoardView::PieceDragged, this, &CMainWindow::OnBoardDrag);
  resize(900, 600);
}

// The stipulation and thread controls, the Start button and the setting-mode switch.
QLayout* CMainWindow::BuildControls(QWidget* central) {
  auto* controls = new QHBoxLayout();
  stipulationControl = new CStepControl(central);
  stipulationControl->setObjectName("stipulation");
  stipulationControl->setToolTip(
      "Click at the top/bottom to increase/decrease number of moves (stipulation) in pos.setting "
      "mode");
  connect(stipulationControl, &CStepControl::Stepped, this,
          [this](int direction, Qt::MouseButton button) {
            ChangeStipulation(direction * (button == Qt::RightButton ? 10 : 1));
          });
  threadControl = new CStepControl(central);
  threadControl->setObjectName("threads");
  threadControl->setToolTip(
      "Click at the bottom/top of icon to decrease/increase number of engine threads (applies to "
      "1st move)");
  connect(threadControl, &CStepControl::Stepped, this, [this](int direction, Qt::MouseButton) {
    threads.nThreads = ClickThreadControl(threads.nThreads, threads.nLevels, direction > 0);
    RefreshControls();
  });
  startButton = new QPushButton(central);
  startButton->setObjectName("start");
  startButton->setToolTip(
      "Start/stop (right click: find all solutions/pause; +Ctrl: display heuristics selection "
      "dialog)");
  startButton->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(startButton, &QPushButton::clicked, this, [this] {
    if (IsSolving())
      StopSolve();
    else
      StartSolve(false);
  });
  connect(startButton, &QPushButton::customContextMenuRequested, this, [this] {
    if (!IsSolving())
      StartSolve(true);
    else if (solver->IsPaused())
      solver->Resume();
    else
      solver->PauseAll();
    RefreshControls();
  });
  auto* setting = new QPushButton("Set position", central);
  setting->setObjectName("settingButton");
  setting->setToolTip("Start/stop position setting");
  connect(setting, &QPushButton::clicked, this, [this] { SetSettingMode(!bSettingMode); });
  controls->addWidget(stipulationControl);
  controls->addWidget(threadControl);
  controls->addWidget(startButton);
  controls->addWidget(setting);
  return controls;
}

TProblem* CMainWindow::CurrentProblem() {
  return collection.Find(nCurrentId);
}

bool CMainWindow::GoToProblem(int id) {
  if (!collection.Find(id) || bSettingMode) return false;
  nCurrentId = id;
  ShowProblem();
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

void CMainWindow::ShowProblem() {
  if (!CurrentProblem() && !collection.Empty()) nCurrentId = collection.Problems().begin()->first;
  const TProblem* problem = CurrentProblem();
  TChessboard empty;
  ClearChessboard(empty);
  empty.ply = 1;
  line.Reset(problem ? problem->start : empty);
  descriptionLabel->setText(problem ? QString::fromStdString(problem->description) : QString());
  ShowPosition();
  Q_EMIT ProblemShown(nCurrentId);
}

void CMainWindow::ShowPosition() {
  if (bSettingMode) {
    board->SetSquares(edits.Squares(), true);
    board->SetMarks(square::kNone, square::kNone);
  } else {
    board->SetSquares(SquaresOf(line.Current()), line.Current().IsWhiteToMove());
    const bool bMoved = line.MovesPlayed() > 0;
    board->SetMarks(bMoved ? line.Current().lastMove.from : square::kNone,
                    bMoved ? line.Current().lastMove.to : square::kNone);
  }
  board->SetSelected(square::kNone);
  // The moves belong to the position as it was; setting mode shows none.
  moveList->setPlainText(bSettingMode ? QString() : QString::fromStdString(line.MoveListText()));
  RefreshControls();
}

void CMainWindow::RefreshControls() {
  const TProblem* problem = CurrentProblem();
  const auto& problems = collection.Problems();
  const int nIndex =
      problem ? static_cast<int>(std::distance(problems.begin(), problems.find(nCurrentId))) + 1
              : 0;
  problemLabel->setText(QString("%1 (%2/%3)").arg(nCurrentId).arg(nIndex).arg(problems.size()));
  stipulationControl->SetText(problem ? QString::fromStdString(problem->stipulation.Text())
                                      : QString("-"));
  threadControl->SetText(
      QString::fromStdString(ThreadCountLabel(threads.nThreads, EThreadLabelMode::CountOnly)));
  startButton->setText(!IsSolving() ? "Start" : solver->IsPaused() ? "Paused" : "Stop");
  const QString name = filePath.isEmpty() ? QString("Longmate") : filePath;
  setWindowTitle((bModified ? "*" : "") + name);
  const QFontMetrics metrics(statusLabel->font());
  const auto nWidth = static_cast<std::size_t>(
      std::max(10, statusLabel->width() / std::max(1, metrics.averageCharWidth())));
  statusLabel->setText(statusLine.size() > static_cast<qsizetype>(nWidth)
                           ? statusLine.left(static_cast<qsizetype>(nWidth) - 4) + "... "
                           : statusLine);
}

void CMainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  RefreshControls();
}

void CMainWindow::SetModified(bool bValue) {
  bModified = bValue;
  RefreshControls();
}

// Messages never block the window: a test or a running solve goes on while one is shown.
void CMainWindow::ShowMessage(const QString& title, const QString& text) {
  auto* box = new QMessageBox(QMessageBox::Information, title, text, QMessageBox::Ok, this);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setObjectName("messageBox");
  box->open();
}

void CMainWindow::ChangeStipulation(int delta) {
  TProblem* problem = CurrentProblem();
  if (!problem || problem->stipulation.type == TStipulation::kMoveLine) return;
  if (IsSolving() && nSolvingId == nCurrentId) return;  // the engine reads it
  const int nMoves = std::clamp(problem->stipulation.Moves() + delta, 1, TStipulation::kMaxMoves);
  if (nMoves == problem->stipulation.Moves()) return;
  problem->SetStipulation(problem->stipulation.type == TStipulation::kSelfmate
                              ? TStipulation::Selfmate(nMoves)
                              : TStipulation::DirectMate(nMoves));
  SetModified(true);
  ShowProblem();
}

void CMainWindow::closeEvent(QCloseEvent* event) {
  if (!ConfirmDiscard()) {
    event->ignore();
    return;
  }
  if (IsSolving()) solver->Stop();  // the controller joins the solving thread as it goes
  event->accept();
}

QAction* CMainWindow::Action(const QString& name) const {
  return findChild<QAction*>(name);
}

QString CMainWindow::StatusText() const {
  return statusLine;
}

QString CMainWindow::ResultText() const {
  return resultView->toPlainText();
}

QString CMainWindow::MoveListText() const {
  return moveList->toPlainText();
}
