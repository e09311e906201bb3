// What the window shows of the open collection: the problem and its description with the
// database links, the position (played or being set up), the navigator's and the controls'
// texts, and its messages.
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>

#include "app/DatabaseLinks.h"
#include "app/Options.h"
#include "app/ThreadCountLabel.h"
#include "app/ui/BoardView.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SolveController.h"
#include "app/ui/StepControl.h"

namespace {

std::array<PieceCode, 64> SquaresOf(const TChessboard& board) {
  std::array<PieceCode, 64> squares;
  std::copy(std::begin(board.squares), std::end(board.squares), squares.begin());
  return squares;
}

QString HtmlOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
      .toHtmlEscaped()
      .replace('\n', "<br>");
}

// The description as rich text, each database reference a link to its address.
QString DescriptionHtml(const std::string& description) {
  QString html;
  std::size_t nDone = 0;
  const std::string_view text(description);
  for (const TDatabaseLink& link : FindDatabaseLinks(text, LinkHostsFromOptions(Options()))) {
    html += HtmlOf(text.substr(nDone, link.nBegin - nDone));
    html += QString("<a href=\"%1\">%2</a>")
                .arg(QString::fromStdString(link.address).toHtmlEscaped(),
                     HtmlOf(text.substr(link.nBegin, link.nLength)));
    nDone = link.nBegin + link.nLength;
  }
  return html + HtmlOf(text.substr(nDone));
}

}  // namespace

// Shows another problem, remembering the one left for Ctrl+Minus.
void CMainWindow::ShowProblem(int id) {
  if (id != nCurrentId && collection.Find(nCurrentId)) {
    viewedBefore.push_back(nCurrentId);
    viewedAfter.clear();
  }
  nCurrentId = id;
  ShowProblem();
}

void CMainWindow::ShowProblem() {
  if (!CurrentProblem() && !collection.Empty()) nCurrentId = collection.Problems().begin()->first;
  const TProblem* problem = CurrentProblem();
  TChessboard empty;
  ClearChessboard(empty);
  empty.ply = 1;
  line.Reset(problem ? problem->start : empty);
  ShowDescription(problem);
  ShowPosition();
  Q_EMIT ProblemShown(nCurrentId);
}

// The tags follow the description, each behind a '#', and the main variant when the settings
// ask for it (ShowMainVariant).
void CMainWindow::ShowDescription(const TProblem* problem) {
  QStringList parts;
  if (problem && !problem->description.empty()) parts << DescriptionHtml(problem->description);
  if (problem && !problem->tags.empty()) {
    QStringList tags;
    for (const std::string& tag : problem->tags) tags << '#' + HtmlOf(tag);
    parts << "<i>" + tags.join(' ') + "</i>";
  }
  if (problem && !problem->variants.empty() && Options().bShowMainVariant)
    parts << WindowText("Main variant: ") + HtmlOf(problem->variants.front());
  descriptionLabel->setText(parts.join("<br>"));
}

void CMainWindow::OpenLink(const QString& address) {
  if (!QDesktopServices::openUrl(QUrl(address)))
    ShowMessage(WindowText("Warning"), WindowText("Cannot open the page %1.").arg(address));
}

// Over a link: open it or copy its address, or edit the description that holds it.
void CMainWindow::ShowLinkMenu(const QPoint& where) {
  if (hoveredLink.isEmpty()) return;
  QMenu* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName("linkMenu");
  const QString address = hoveredLink;
  connect(AddLabelled(menu, "Open page in default browser"), &QAction::triggered, this,
          [this, address] { OpenLink(address); });
  connect(AddLabelled(menu, "Copy address to clipboard"), &QAction::triggered, this,
          [address] { QApplication::clipboard()->setText(address); });
  connect(AddLabelled(menu, "Edit problem description..."), &QAction::triggered, this,
          &CMainWindow::EditDescription);
  menu->popup(descriptionLabel->mapToGlobal(where));
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
  problemButton->setText(QString("%1 (%2/%3)").arg(nCurrentId).arg(nIndex).arg(problems.size()));
  stipulationControl->SetText(problem ? QString::fromStdString(problem->stipulation.Text())
                                      : QString("-"));
  threadControl->SetText(
      QString::fromStdString(ThreadCountLabel(threads.nThreads, EThreadLabelMode::CountOnly)));
  startButton->setText(WindowText(!IsSolving() ? "Start" : solver->IsPaused() ? "Paused" : "Stop"));
  const QString name = filePath.isEmpty() ? QString("Longmate") : filePath;
  setWindowTitle((bModified ? "*" : "") + name);
  ShowStatusLine();
}

// The status line cut to the label's width, ending in "... " where it is cut; redrawn alone at
// each progress report of a solve.
void CMainWindow::ShowStatusLine() {
  const QFontMetrics metrics(statusLabel->font());
  const int nRoom = statusLabel->contentsRect().width();
  if (metrics.horizontalAdvance(statusLine) <= nRoom) return statusLabel->setText(statusLine);
  const QString ending = "... ";
  qsizetype nKept = statusLine.size();
  while (nKept > 0 && metrics.horizontalAdvance(statusLine.left(nKept) + ending) > nRoom) --nKept;
  statusLabel->setText(statusLine.left(nKept) + ending);
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
