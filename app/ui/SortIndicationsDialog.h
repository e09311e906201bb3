#pragma once
// The sort indications of a problem: the hints about White's moves that the search tries
// first, typed as one list ("1. Qd1:d7+, 2. ~Rh5"). A list that does not read keeps the
// dialog open with the reason shown under it.
#include <QDialog>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;

class CSortIndicationsDialog : public QDialog {
  Q_OBJECT
 public:
  // take gets the text and whether the main variant is to be used too; it returns the
  // reason the text was refused, empty when it was taken.
  using TTake = std::function<QString(const QString& text, bool bUseMainVariant)>;

  CSortIndicationsDialog(const QString& text, bool bUseMainVariant, TTake take,
                         QWidget* parent = nullptr);

  QLineEdit* Field() const { return field; }
  QString ErrorText() const;

  void accept() override;

 private:
  QLineEdit* field = nullptr;
  QCheckBox* useMainVariant = nullptr;
  QLabel* error = nullptr;
  TTake take;
};
