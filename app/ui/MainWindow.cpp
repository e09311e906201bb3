#include "app/ui/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/Options.h"
#include "app/ThreadControls.h"
#include "app/ui/BoardView.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/PiecePalette.h"
#include "app/ui/SolveController.h"
#include "app/ui/StepControl.h"

namespace {

constexpr const char* kStipulationTip =
    "Click at the top/bottom to increase/decrease number of moves (stipulation) in pos.setting "
    "mode";

QToolButton* NavigatorButton(const QString& text, const char* tip, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setText(text);
  SetWindowToolTip(button, tip);
  return button;
}

}  // namespace

CMainWindow::CMainWindow(QWidget* parent)
    : QMainWindow(parent), solver(new CSolveController(Options(), this)) {
  threads = solver->Session().DefaultThreads();
  setWindowIcon(QIcon(":/icons/longmate.svg"));
  BuildLayout();
  BuildMenus();
  ConnectSolver();
  ShowLanguage(Options().nLanguageId);
  ShowProblem();
}

// The solve reads the problem it was given until its thread ends: the controller, which stops
// and joins it, goes before the collection that owns the problem.
CMainWindow::~CMainWindow() {
  delete task;  // a table command reads the session's tables: it ends first
  delete solver;
}

void CMainWindow::BuildLayout() {
  auto* central = new QWidget(this);
  auto* columns = new QHBoxLayout(central);
  board = new CBoardView(central);
  board->setObjectName("board");
  SetWindowToolTip(board, kStipulationTip);
  columns->addWidget(board, 3);

  auto* side = new QVBoxLayout();
  columns->addLayout(side, 2);
  side->addLayout(BuildNavigator(central));
  side->addLayout(BuildControls(central));
  side->addLayout(BuildLineButtons(central));

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
  descriptionLabel->setTextFormat(Qt::RichText);
  SetWindowToolTip(descriptionLabel,
                   "Change description. You can use links to "
                   "Pdb/Yacpdb/Meson/Albrecht/Gameknot/chessStar, e.g. Y123");
  descriptionLabel->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse);
  descriptionLabel->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(descriptionLabel, &QLabel::linkActivated, this, &CMainWindow::OpenLink);
  connect(descriptionLabel, &QLabel::linkHovered, this,
          [this](const QString& address) { hoveredLink = address; });
  connect(descriptionLabel, &QLabel::customContextMenuRequested, this, &CMainWindow::ShowLinkMenu);
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
  side->addLayout(BuildProgressRow(central));

  setCentralWidget(central);
  statusLabel = new QLabel(this);
  statusLabel->setObjectName("status");
  // The line takes the room the fields on its right leave, and is cut to it: its length never
  // pushes them out of the window.
  statusLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusLabel->installEventFilter(this);
  statusBar()->addWidget(statusLabel, 1);
  connect(board, &CBoardView::SquareClicked, this, &CMainWindow::OnBoardClick);
  connect(board, &CBoardView::PieceDragged, this, &CMainWindow::OnBoardDrag);
  resize(900, 600);
}

// First, previous, the problem's number (a click asks for another, a right click lists them
// all), next and last.
QLayout* CMainWindow::BuildNavigator(QWidget* central) {
  auto* navigator = new QHBoxLayout();
  auto* first = NavigatorButton("|<", "Go to first problem", central);
  auto* previous = NavigatorButton("<", "Previous problem", central);
  problemButton = new QPushButton(central);
  problemButton->setObjectName("problemLabel");
  problemButton->setFlat(true);
  problemButton->setFocusPolicy(Qt::NoFocus);
  problemButton->setContextMenuPolicy(Qt::CustomContextMenu);
  SetWindowToolTip(problemButton,
                   "Click to select another problem (right click: list with problem descriptions)");
  auto* next = NavigatorButton(">", "Next problem", central);
  auto* last = NavigatorButton(">|", "Go to last problem", central);
  connect(first, &QToolButton::clicked, this, [this] { Step(-1000000); });
  connect(previous, &QToolButton::clicked, this, [this] { Step(-1); });
  connect(problemButton, &QPushButton::clicked, this, &CMainWindow::AskProblemNumber);
  connect(problemButton, &QPushButton::customContextMenuRequested, this,
          &CMainWindow::ShowProblemList);
  connect(next, &QToolButton::clicked, this, [this] { Step(1); });
  connect(last, &QToolButton::clicked, this, [this] { Step(1000000); });
  for (QWidget* w : std::initializer_list<QWidget*>{first, previous, problemButton, next, last})
    navigator->addWidget(w);
  return navigator;
}

// The stipulation and thread controls, the Start button and the setting-mode switch.
QLayout* CMainWindow::BuildControls(QWidget* central) {
  auto* controls = new QHBoxLayout();
  stipulationControl = new CStepControl(central);
  stipulationControl->setObjectName("stipulation");
  SetWindowToolTip(stipulationControl, kStipulationTip);
  connect(stipulationControl, &CStepControl::Stepped, this,
          [this](int direction, Qt::MouseButton button) {
            ChangeStipulation(direction * (button == Qt::RightButton ? 10 : 1));
          });
  threadControl = new CStepControl(central);
  threadControl->setObjectName("threads");
  SetWindowToolTip(threadControl,
                   "Click at the bottom/top of icon to decrease/increase number of engine "
                   "threads (applies to 1st move)");
  connect(threadControl, &CStepControl::Stepped, this, [this](int direction, Qt::MouseButton) {
    threads.nThreads = ClickThreadControl(threads.nThreads, threads.nLevels, direction > 0);
    RefreshControls();
  });
  startButton = new QPushButton(central);
  startButton->setObjectName("start");
  SetWindowToolTip(startButton,
                   "Start/stop (right click: find all solutions/pause; +Ctrl: display heuristics "
                   "selection dialog)");
  startButton->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(startButton, &QPushButton::clicked, this, [this] {
    if (IsSolving())
      StopSolve();
    else if (QApplication::keyboardModifiers() & Qt::ControlModifier)
      AskHeuristicsAndSolve(false);
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
  auto* setting = new QPushButton(central);
  setting->setObjectName("settingButton");
  SetWindowText(setting, "Set position");
  SetWindowToolTip(setting, "Start/stop position setting");
  connect(setting, &QPushButton::clicked, this, [this] { SetSettingMode(!bSettingMode); });
  for (QWidget* w :
       std::initializer_list<QWidget*>{stipulationControl, threadControl, startButton, setting})
    controls->addWidget(w);
  return controls;
}

void CMainWindow::closeEvent(QCloseEvent* event) {
  if (!ConfirmDiscard()) {
    event->ignore();
    return;
  }
  if (IsSolving()) solver->Stop();  // the controller joins the solving thread as it goes
  HideTrayIcon();
  event->accept();
}

void CMainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  RefreshControls();
}

bool CMainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == statusLabel && event->type() == QEvent::Resize) ShowStatusLine();
  return QMainWindow::eventFilter(watched, event);
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

QString CMainWindow::DescriptionText() const {
  return descriptionLabel->text();
}
