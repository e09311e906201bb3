#include "app/ui/SortIndicationsDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "app/ui/InterfaceLanguage.h"

CSortIndicationsDialog::CSortIndicationsDialog(const QString& text, bool bUseMainVariant,
                                               TTake takeText, QWidget* parent)
    : QDialog(parent), take(std::move(takeText)) {
  setObjectName("sortIndications");
  setWindowTitle(WindowText("Sort indications"));
  auto* layout = new QVBoxLayout(this);
  auto* prompt = new QLabel(this);
  SetWindowText(prompt,
                "White moves to be analyzed first, separated by commas (~ in front: move not "
                "wanted):");
  prompt->setWordWrap(true);
  layout->addWidget(prompt);
  field = new QLineEdit(text, this);
  field->setObjectName("sortIndicationsText");
  field->setMinimumWidth(420);
  layout->addWidget(field);
  auto* syntax = new QLabel("Syntax: [ ~ ] [n.] [F] f1 [| - | : | > ] f2 [ + ]", this);
  syntax->setObjectName("syntax");
  layout->addWidget(syntax);
  useMainVariant = new QCheckBox(this);
  useMainVariant->setObjectName("useMainVariant");
  SetWindowText(useMainVariant, "Use main variant as sort indications");
  useMainVariant->setChecked(bUseMainVariant);
  layout->addWidget(useMainVariant);
  error = new QLabel(this);
  error->setObjectName("error");
  error->setStyleSheet("color: #b00000");
  error->setWordWrap(true);
  layout->addWidget(error);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(field, &QLineEdit::textEdited, error, &QLabel::clear);
}

QString CSortIndicationsDialog::ErrorText() const {
  return error->text();
}

void CSortIndicationsDialog::accept() {
  const QString refusal = take(field->text(), useMainVariant->isChecked());
  if (!refusal.isEmpty()) {
    error->setText(refusal);
    field->setFocus();
    return;
  }
  QDialog::accept();
}
