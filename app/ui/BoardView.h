#pragma once
// The board drawn at any size: squares, coordinates, the pieces as outlined glyphs of the
// system's chess font, and a disc beside the board for the side to move. Reports presses,
// clicks and drags by square; what they mean is the window's business.
#include <QWidget>
#include <array>

#include "core/PieceCode.h"

class CBoardView : public QWidget {
  Q_OBJECT
 public:
  explicit CBoardView(QWidget* parent = nullptr);

  void SetSquares(const std::array<PieceCode, 64>& pieces, bool bWhiteToMove);
  const std::array<PieceCode, 64>& Squares() const { return squares; }
  void SetRotated(bool bRotate);
  bool IsRotated() const { return bRotated; }
  // Squares marked: the last move's two, and the one selected by a first click.
  void SetMarks(SquareIndex from, SquareIndex to);
  void SetSelected(SquareIndex selected);
  SquareIndex Selected() const { return selectedSquare; }

  // Where a square is drawn now, and which square a point is on (square::kNone off the board).
  QRect SquareRect(SquareIndex s) const;
  SquareIndex SquareAt(QPoint point) const;

  QSize sizeHint() const override { return {480, 480}; }
  QSize minimumSizeHint() const override { return {160, 160}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return width; }

 Q_SIGNALS:
  // A press and release on one square.
  void SquareClicked(int square, Qt::MouseButton button);
  // A piece dragged from one square and dropped on another.
  void PieceDragged(int from, int to);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  int SquareSize() const;
  QPoint Origin() const;  // top left corner of the board itself
  void DrawCoordinates(QPainter& painter) const;
  void DrawSideToMove(QPainter& painter) const;

  std::array<PieceCode, 64> squares{};
  bool bWhiteMoves = true;
  bool bRotated = false;
  SquareIndex markFrom = square::kNone, markTo = square::kNone;
  SquareIndex selectedSquare = square::kNone;
  SquareIndex pressSquare = square::kNone;
  QPoint pressPoint, dragPoint;
  bool bDragging = false;
};
