#include "app/ui/StepControl.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

CStepControl::CStepControl(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setCursor(Qt::PointingHandCursor);
}

void CStepControl::SetText(const QString& value) {
  text = value;
  updateGeometry();
  update();
}

QSize CStepControl::sizeHint() const {
  const QFontMetrics metrics(font());
  return {std::max(metrics.horizontalAdvance(text), metrics.height()) + 12, metrics.height() * 3};
}

void CStepControl::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int h = height(), w = width(), arrow = h / 6;
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().windowText());
  QPainterPath up, down;
  up.moveTo(w / 2.0, 1);
  up.lineTo(w / 2.0 + arrow, 1 + arrow);
  up.lineTo(w / 2.0 - arrow, 1 + arrow);
  up.closeSubpath();
  down.moveTo(w / 2.0, h - 1);
  down.lineTo(w / 2.0 + arrow, h - 1 - arrow);
  down.lineTo(w / 2.0 - arrow, h - 1 - arrow);
  down.closeSubpath();
  painter.drawPath(up);
  painter.drawPath(down);
  painter.setPen(palette().windowText().color());
  painter.drawText(rect(), Qt::AlignCenter, text);
}

void CStepControl::mouseReleaseEvent(QMouseEvent* event) {
  if (!rect().contains(event->position().toPoint())) return;
  Q_EMIT Stepped(event->position().y() < height() / 2.0 ? 1 : -1, event->button());
}
