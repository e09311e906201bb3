#pragma once
// The pieces as drawn everywhere in the window: the solid chess glyphs of the DejaVu font,
// filled white or black and outlined, so that any size is drawn crisply.
#include <QRectF>

#include "core/PieceCode.h"

class QPainter;

void DrawPieceGlyph(QPainter& painter, PieceCode piece, const QRectF& box);
