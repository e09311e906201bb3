#pragma once
// The pieces to place in position setting mode: the six white and six black pieces and an
// eraser, one of them chosen at a time, and a button that clears the board.
#include <QWidget>

#include "core/PieceCode.h"

class QButtonGroup;

class CPiecePalette : public QWidget {
  Q_OBJECT
 public:
  explicit CPiecePalette(QWidget* parent = nullptr);
  // The piece a click on the board places; kEmpty for the eraser.
  PieceCode Chosen() const;
  void Choose(PieceCode piece);

 Q_SIGNALS:
  void ClearRequested();

 private:
  QButtonGroup* group;
};
