#include "app/ui/BoardView.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "app/ui/PieceGlyph.h"

namespace {

const QColor kLightSquare(240, 217, 181);
const QColor kDarkSquare(181, 136, 99);
const QColor kMarkColour(205, 210, 106, 170);
const QColor kSelectColour(90, 160, 230, 170);

}  // namespace

CBoardView::CBoardView(QWidget* parent) : QWidget(parent) {
  setMouseTracking(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CBoardView::SetSquares(const std::array<PieceCode, 64>& pieces, bool bWhiteToMove) {
  squares = pieces;
  bWhiteMoves = bWhiteToMove;
  update();
}

void CBoardView::SetRotated(bool bRotate) {
  bRotated = bRotate;
  update();
}

void CBoardView::SetMarks(SquareIndex from, SquareIndex to) {
  markFrom = from;
  markTo = to;
  update();
}

void CBoardView::SetSelected(SquareIndex selected) {
  selectedSquare = selected;
  update();
}

// The board takes eight ninths of the shorter side; the rest is the margin for the
// coordinates on the left and below, and for the side-to-move disc on the right.
int CBoardView::SquareSize() const {
  return std::max(1, std::min(width(), height()) * 2 / 19);
}

QPoint CBoardView::Origin() const {
  const int s = SquareSize();
  return {s * 3 / 5, (height() - 8 * s - s / 2) / 2};
}

QRect CBoardView::SquareRect(SquareIndex sq) const {
  const int s = SquareSize();
  int column = square::File(sq), row = 7 - square::Rank(sq);
  if (bRotated) {
    column = 7 - column;
    row = 7 - row;
  }
  return QRect(Origin() + QPoint(column * s, row * s), QSize(s, s));
}

SquareIndex CBoardView::SquareAt(QPoint point) const {
  const int s = SquareSize();
  const QPoint p = point - Origin();
  if (p.x() < 0 || p.y() < 0 || p.x() >= 8 * s || p.y() >= 8 * s) return square::kNone;
  int file = p.x() / s, rank = 7 - p.y() / s;
  if (bRotated) {
    file = 7 - file;
    rank = 7 - rank;
  }
  return square::Make(file, rank);
}

void CBoardView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().window());
  for (int sq = 0; sq < 64; ++sq) {
    const QRect box = SquareRect(static_cast<SquareIndex>(sq));
    const bool bLight = (square::File(sq) + square::Rank(sq)) % 2 == 1;
    painter.fillRect(box, bLight ? kLightSquare : kDarkSquare);
    if (sq == markFrom || sq == markTo) painter.fillRect(box, kMarkColour);
    if (sq == selectedSquare) painter.fillRect(box, kSelectColour);
  }
  painter.setPen(QPen(palette().windowText(), 1));
  painter.drawRect(QRect(Origin(), QSize(8 * SquareSize(), 8 * SquareSize())));
  DrawCoordinates(painter);
  DrawSideToMove(painter);
  for (int sq = 0; sq < 64; ++sq) {
    if (squares[sq] == piece::kEmpty || (bDragging && sq == pressSquare)) continue;
    DrawPieceGlyph(painter, squares[sq], SquareRect(static_cast<SquareIndex>(sq)));
  }
  if (bDragging && pressSquare != square::kNone) {
    const int s = SquareSize();
    DrawPieceGlyph(painter, squares[pressSquare],
                   QRectF(dragPoint - QPoint(s / 2, s / 2), QSize(s, s)));
  }
}

void CBoardView::DrawCoordinates(QPainter& painter) const {
  const int s = SquareSize();
  QFont font = painter.font();
  font.setPixelSize(std::max(6, s / 4));
  painter.setFont(font);
  painter.setPen(palette().windowText().color());
  for (int i = 0; i < 8; ++i) {
    const QRect fileBox = SquareRect(square::Make(i, bRotated ? 7 : 0));
    painter.drawText(QRect(fileBox.left(), fileBox.bottom() + 1, s, s / 2), Qt::AlignCenter,
                     QString(QChar('a' + i)));
    const QRect rankBox = SquareRect(square::Make(bRotated ? 7 : 0, i));
    painter.drawText(QRect(0, rankBox.top(), Origin().x(), s), Qt::AlignCenter,
                     QString::number(i + 1));
  }
}

// A disc in the right margin, level with the mover's own side of the board.
void CBoardView::DrawSideToMove(QPainter& painter) const {
  const int s = SquareSize();
  const bool bAtBottom = bWhiteMoves != bRotated;
  const int x = Origin().x() + 8 * s + s / 6;
  const int y = bAtBottom ? Origin().y() + 8 * s - s / 3 : Origin().y();
  painter.setPen(QPen(Qt::black, std::max(1, s / 30)));
  painter.setBrush(bWhiteMoves ? Qt::white : Qt::black);
  painter.drawEllipse(QRect(x, y, s / 3, s / 3));
}

void CBoardView::mousePressEvent(QMouseEvent* event) {
  pressSquare = SquareAt(event->position().toPoint());
  pressPoint = dragPoint = event->position().toPoint();
  bDragging = false;
}

void CBoardView::mouseMoveEvent(QMouseEvent* event) {
  if (pressSquare == square::kNone || !(event->buttons() & Qt::LeftButton)) return;
  dragPoint = event->position().toPoint();
  if (!bDragging && squares[pressSquare] != piece::kEmpty &&
      (dragPoint - pressPoint).manhattanLength() >= std::max(4, SquareSize() / 6))
    bDragging = true;
  if (bDragging) update();
}

void CBoardView::mouseReleaseEvent(QMouseEvent* event) {
  const SquareIndex from = pressSquare;
  const SquareIndex to = SquareAt(event->position().toPoint());
  const bool bWasDragging = bDragging;
  pressSquare = square::kNone;
  bDragging = false;
  if (bWasDragging) {
    update();
    if (from != square::kNone && to != square::kNone && from != to) Q_EMIT PieceDragged(from, to);
    return;
  }
  if (from != square::kNone && from == to) Q_EMIT SquareClicked(to, event->button());
}
