#pragma once
// A small control showing a value with an arrow up above it and an arrow down below it: a
// click on the upper half asks for a step up, on the lower half for a step down. The
// stipulation and the thread count of the board view are both such controls.
#include <QWidget>

class CStepControl : public QWidget {
  Q_OBJECT
 public:
  explicit CStepControl(QWidget* parent = nullptr);
  void SetText(const QString& value);
  QString Text() const { return text; }
  QSize sizeHint() const override;

 Q_SIGNALS:
  // +1 for the upper half, -1 for the lower one, with the button that clicked.
  void Stepped(int direction, Qt::MouseButton button);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QString text;
};
