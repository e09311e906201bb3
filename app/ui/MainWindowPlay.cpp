// Moves played on the board and the position setting mode.
#include <QCursor>
#include <QHBoxLayout>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolButton>

#include "app/Options.h"
#include "app/ui/BoardView.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/PiecePalette.h"
#include "engine/LastMoveReport.h"

namespace {

// A right click on move back or redo: White's and Black's move.
constexpr int kFewPlies = 2;

QString PromotionLabel(PieceCode type) {
  switch (type) {
    case piece::kQueen:
      return WindowText("Queen");
    case piece::kRook:
      return WindowText("Rook");
    case piece::kBishop:
      return WindowText("Bishop");
    default:
      return WindowText("Knight");
  }
}

// A menu at the mouse with the pieces a pawn may become; nothing when it is dismissed.
PieceCode AskPromotion(const std::vector<PieceCode>& types) {
  QMenu menu;
  for (PieceCode type : types) menu.addAction(PromotionLabel(type))->setData(type);
  QAction* chosen = menu.exec(QCursor::pos());
  return chosen ? static_cast<PieceCode>(chosen->data().toInt()) : piece::kEmpty;
}

}  // namespace

// Move back and redo (a right click takes a whole move of both sides), save, and the board's
// rotation.
QLayout* CMainWindow::BuildLineButtons(QWidget* central) {
  auto* buttons = new QHBoxLayout();
  const struct {
    const char* name;
    const char* text;
    const char* tip;
    int nPlies;
  } steps[] = {{"moveBackButton", "<<", "Move back (right click: move back a few moves)", -1},
               {"redoMoveButton", ">>", "Redo move (right click: redo a few moves)", 1}};
  for (const auto& step : steps) {
    auto* button = new QToolButton(central);
    button->setObjectName(step.name);
    button->setText(step.text);
    SetWindowToolTip(button, step.tip);
    button->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(button, &QToolButton::clicked, this, [this, step] { StepLine(step.nPlies); });
    connect(button, &QToolButton::customContextMenuRequested, this,
            [this, step] { StepLine(step.nPlies * kFewPlies); });
    buttons->addWidget(button);
  }
  auto* save = new QToolButton(central);
  SetWindowText(save, "Save");
  SetWindowToolTip(save, "Save changes to file");
  connect(save, &QToolButton::clicked, this, [this] { Action("save")->trigger(); });
  auto* rotate = new QToolButton(central);
  SetWindowText(rotate, "Rotate");
  SetWindowToolTip(rotate, "Rotate chessboard view");
  connect(rotate, &QToolButton::clicked, this, [this] { Action("rotate")->trigger(); });
  buttons->addWidget(save);
  buttons->addWidget(rotate);
  buttons->addStretch(1);
  return buttons;
}

// Takes moves back (negative) or plays the ones taken back again.
void CMainWindow::StepLine(int nPlies) {
  bool bMoved = false;
  for (; nPlies < 0 && line.Back(); ++nPlies) bMoved = true;
  for (; nPlies > 0 && line.Redo(); --nPlies) bMoved = true;
  if (bMoved) ShowPosition();
}

bool CMainWindow::PlayMove(SquareIndex from, SquareIndex to) {
  const std::vector<TMove> moves = line.LegalMoves(from, to);
  if (moves.empty()) return false;
  TMove move = moves.front();
  if (moves.size() > 1) {
    std::vector<PieceCode> types;
    for (TMove promotion : moves) types.push_back(piece::TypeOf(promotion.promotion));
    const PieceCode type = choosePromotion ? choosePromotion(types) : AskPromotion(types);
    const auto match = std::find_if(moves.begin(), moves.end(),
                                    [type](TMove m) { return piece::TypeOf(m.promotion) == type; });
    if (match == moves.end()) return false;
    move = *match;
  }
  if (!line.Play(move)) return false;
  ShowPosition();
  ReportLastMove();
  return true;
}

// When White's last move of a direct mate has been played without mate, the report says so
// and names Black's replies to a check.
void CMainWindow::ReportLastMove() {
  const TProblem* problem = CurrentProblem();
  if (!problem || problem->stipulation.type != TStipulation::kDirectMate ||
      !line.Start().IsWhiteToMove() || line.IsMate())
    return;
  if (line.MovesPlayed() != 2 * problem->stipulation.Moves() - 1) return;
  resultView->appendPlainText(
      QString::fromStdString(LastMoveReport(line.Current(), Options().nLanguageId)));
}

void CMainWindow::OnBoardClick(int square, Qt::MouseButton button) {
  const auto sq = static_cast<SquareIndex>(square);
  if (bSettingMode) {
    edits.Place(sq, button == Qt::RightButton ? piece::kEmpty : palette->Chosen());
    ShowPosition();
    return;
  }
  if (button != Qt::LeftButton) return;
  const PieceCode here = line.Current().squares[sq];
  const bool bOwn = here != piece::kEmpty && piece::IsWhite(here) == line.Current().IsWhiteToMove();
  const SquareIndex selected = board->Selected();
  if (selected != square::kNone && sq != selected && !bOwn && PlayMove(selected, sq)) return;
  board->SetSelected(bOwn && sq != selected ? sq : square::kNone);
}

void CMainWindow::OnBoardDrag(int from, int to) {
  if (bSettingMode) {
    edits.Move(static_cast<SquareIndex>(from), static_cast<SquareIndex>(to));
    ShowPosition();
    return;
  }
  PlayMove(static_cast<SquareIndex>(from), static_cast<SquareIndex>(to));
}

void CMainWindow::SetSettingMode(bool bOn) {
  if (bOn == bSettingMode) return;
  if (bOn) {
    if (IsSolving() && nSolvingId == nCurrentId) return;  // the engine reads that position
    TPositionEdits::TSquares squares;
    std::copy(std::begin(line.Start().squares), std::end(line.Start().squares), squares.begin());
    edits.Begin(squares);
    bSettingMode = true;
    palette->show();
    ShowPosition();
    return;
  }
  if (LeaveSettingMode()) {
    bSettingMode = false;
    palette->hide();
    ShowProblem();
  }
}

// Takes the edited position into the problem; false, with the reason shown, when it cannot be
// a problem's start, and the mode stays on.
bool CMainWindow::LeaveSettingMode() {
  return !edits.IsChanged() || TakeEditedSquares(edits.Squares());
}

void CMainWindow::UndoEdit(bool bRedo) {
  if (!bSettingMode) return;
  if (bRedo ? edits.Redo() : edits.Undo()) ShowPosition();
}
