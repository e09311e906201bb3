#include "app/ui/PiecePalette.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QToolButton>

#include "app/ui/InterfaceLanguage.h"
#include "app/ui/PieceGlyph.h"

namespace {

constexpr PieceCode kTypes[] = {piece::kKing,   piece::kQueen,  piece::kRook,
                                piece::kBishop, piece::kKnight, piece::kPawn};
constexpr int kIconSize = 28;

QIcon PieceIcon(PieceCode code) {
  QPixmap pixmap(kIconSize, kIconSize);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  if (code == piece::kEmpty) {
    painter.setPen(QPen(Qt::darkRed, 3));
    painter.drawLine(6, 6, kIconSize - 6, kIconSize - 6);
    painter.drawLine(6, kIconSize - 6, kIconSize - 6, 6);
  } else {
    DrawPieceGlyph(painter, code, QRectF(0, 0, kIconSize, kIconSize));
  }
  return QIcon(pixmap);
}

}  // namespace

CPiecePalette::CPiecePalette(QWidget* parent) : QWidget(parent), group(new QButtonGroup(this)) {
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  for (int row = 0; row < 2; ++row) {
    const PieceCode colour = row == 0 ? piece::kWhite : piece::kBlack;
    for (int column = 0; column < 6; ++column) {
      const PieceCode code = colour | kTypes[column];
      auto* button = new QToolButton(this);
      button->setCheckable(true);
      button->setIcon(PieceIcon(code));
      button->setIconSize(QSize(kIconSize, kIconSize));
      button->setObjectName(QString("palette%1").arg(code));
      group->addButton(button, code);
      layout->addWidget(button, row, column);
    }
  }
  auto* eraser = new QToolButton(this);
  eraser->setCheckable(true);
  eraser->setIcon(PieceIcon(piece::kEmpty));
  eraser->setIconSize(QSize(kIconSize, kIconSize));
  eraser->setObjectName("palette0");
  group->addButton(eraser, piece::kEmpty);
  layout->addWidget(eraser, 0, 6);
  auto* clear = new QPushButton(this);
  SetWindowText(clear, "Clear");
  clear->setObjectName("paletteClear");
  layout->addWidget(clear, 1, 6);
  connect(clear, &QPushButton::clicked, this, &CPiecePalette::ClearRequested);
  Choose(piece::kWhiteKing);
}

PieceCode CPiecePalette::Chosen() const {
  return static_cast<PieceCode>(group->checkedId());
}

void CPiecePalette::Choose(PieceCode code) {
  if (QAbstractButton* button = group->button(code)) button->setChecked(true);
}
