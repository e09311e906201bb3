#include "app/ui/PieceGlyph.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace {

// The solid glyphs; white pieces are the same shapes filled white, so that both colours share
// one outline.
QChar GlyphOf(PieceCode type) {
  switch (type) {
    case piece::kKing:
      return QChar(0x265A);
    case piece::kQueen:
      return QChar(0x265B);
    case piece::kRook:
      return QChar(0x265C);
    case piece::kBishop:
      return QChar(0x265D);
    case piece::kKnight:
      return QChar(0x265E);
    default:
      return QChar(0x265F);
  }
}

}  // namespace

void DrawPieceGlyph(QPainter& painter, PieceCode code, const QRectF& box) {
  QFont font("DejaVu Sans");
  font.setPixelSize(std::max(4, static_cast<int>(box.height() * 0.8)));
  QPainterPath glyph;
  glyph.addText(0, 0, font, QString(GlyphOf(piece::TypeOf(code))));
  glyph.translate(box.center() - glyph.boundingRect().center());
  const bool bWhitePiece = piece::IsWhite(code);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(bWhitePiece ? Qt::black : QColor(60, 60, 60),
                      std::max(1.0, box.height() / 40), Qt::SolidLine, Qt::RoundCap,
                      Qt::RoundJoin));
  painter.setBrush(bWhitePiece ? Qt::white : Qt::black);
  painter.drawPath(glyph);
  painter.restore();
}
