#include "app/ui/HeuristicsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/ui/InterfaceLanguage.h"
#include "engine/HeuristicPlan.h"
#include "problems/HeuristicCatalogue.h"

namespace {

// The black king's restriction has no catalogue name of its own but is asked for by this one.
constexpr const char* kKingMoveName = "SH_DONTLETKINGMOVE";

// "1", "1b", "1c" ... as the passes are labelled.
QString PassLabel(std::size_t i) {
  return i == 0 ? QString("1") : QString("1") + QChar('a' + static_cast<char>(i));
}

}  // namespace

CHeuristicsDialog::CHeuristicsDialog(const TProblem& solved, bool bQuickMode, QWidget* parent)
    : QDialog(parent), problem(solved) {
  setObjectName("heuristicsDialog");
  setWindowTitle(WindowText("Heuristics selection"));
  auto* layout = new QVBoxLayout(this);
  const auto passes = heuristicchoice::PassesFor(problem.start, problem.stipulation.Moves(),
                                                 problem.heuristicSettings);
  auto* automaticText = new QLabel(
      WindowText("Automatic choice for this position:") + "\n" + PassesText(passes), this);
  automaticText->setObjectName("automaticChoice");
  automaticText->setWordWrap(true);
  layout->addWidget(automaticText);
  automatic = new QCheckBox(WindowText("Choose heuristics automatically"), this);
  automatic->setObjectName("automatic");
  automatic->setChecked(true);
  layout->addWidget(automatic);
  BuildCatalogue();
  layout->addWidget(catalogue, 1);
  connect(automatic, &QCheckBox::toggled, catalogue,
          [this](bool bOn) { catalogue->setEnabled(!bOn); });
  catalogue->setEnabled(false);

  auto* show = new QPushButton(WindowText("Show"), this);
  show->setObjectName("showPath");
  connect(show, &QPushButton::clicked, this, &CHeuristicsDialog::ShowPath);
  layout->addWidget(show, 0, Qt::AlignLeft);
  path = new QPlainTextEdit(this);
  path->setObjectName("relaxationPath");
  path->setReadOnly(true);
  path->setMaximumHeight(110);
  layout->addWidget(path);

  auto* form = new QFormLayout();
  pass2 = new QCheckBox(WindowText("Pass without heuristics (pass 2)"), this);
  pass2->setObjectName("pass2");
  pass2->setChecked(true);
  form->addRow(pass2);
  quickMode = new QComboBox(this);
  quickMode->setObjectName("quickMode");
  quickMode->addItems({WindowText("Yes (quick mode)"), WindowText("No (safe mode)")});
  quickMode->setCurrentIndex(bQuickMode ? 0 : 1);
  form->addRow(WindowText("Add repeated positions to temporary data"), quickMode);
  if (heuristicchoice::ForcesSafeMode(problem.start))
    form->addRow(new QLabel(
        WindowText("Quick mode could lose the mate here: this position is solved in safe mode."),
        this));
  layout->addLayout(form);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &CHeuristicsDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  resize(560, 640);
}

// One row per named heuristic: a check box with the name and the parameter words.
void CHeuristicsDialog::BuildCatalogue() {
  std::vector<QString> names;
  for (const auto& entry : heuristics::Catalogue())
    names.push_back(QString::fromUtf8(entry.name.data(), static_cast<int>(entry.name.size())));
  names.insert(names.begin() + 8, kKingMoveName);  // in the place of its bit, 0x100
  catalogue = new QTableWidget(static_cast<int>(names.size()), 2, this);
  catalogue->setObjectName("catalogue");
  catalogue->setHorizontalHeaderLabels({WindowText("Heuristic"), WindowText("Parameters")});
  catalogue->verticalHeader()->hide();
  catalogue->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  catalogue->horizontalHeader()->setStretchLastSection(true);
  for (int row = 0; row < static_cast<int>(names.size()); ++row) {
    auto* name = new QTableWidgetItem(names[static_cast<std::size_t>(row)]);
    name->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
    name->setCheckState(Qt::Unchecked);
    catalogue->setItem(row, 0, name);
    catalogue->setItem(row, 1, new QTableWidgetItem());
  }
}

QString CHeuristicsDialog::ChosenText() const {
  QStringList members;
  for (int row = 0; row < catalogue->rowCount(); ++row) {
    if (catalogue->item(row, 0)->checkState() != Qt::Checked) continue;
    const QString words = catalogue->item(row, 1)->text().trimmed();
    members << catalogue->item(row, 0)->text() + (words.isEmpty() ? "" : "(" + words + ")");
  }
  return members.isEmpty() ? QString("none") : members.join(", ");
}

QString CHeuristicsDialog::PassesText(const std::vector<THeuristicSet>& passes) const {
  if (passes.empty()) return WindowText("no pass with heuristics");
  QStringList lines;
  for (std::size_t i = 0; i < passes.size(); ++i)
    lines << QString("%1: %2").arg(PassLabel(i),
                                   QString::fromStdString(heuristicset::Describe(passes[i])));
  return lines.join('\n');
}

void CHeuristicsDialog::ShowPath() {
  if (automatic->isChecked()) {
    path->setPlainText(PassesText(heuristicchoice::PassesFor(
        problem.start, problem.stipulation.Moves(), problem.heuristicSettings)));
    return;
  }
  const auto named = heuristicchoice::ReadNamedSet(ChosenText().toStdString());
  if (!named.sError.empty()) {
    path->setPlainText(QString::fromStdString(named.sError));
    return;
  }
  path->setPlainText(PassesText(heuristicchoice::PassesFor(
      problem.start, problem.stipulation.Moves(), problem.heuristicSettings, named)));
}

void CHeuristicsDialog::accept() {
  choice = {.named = std::nullopt,
            .bPass2 = pass2->isChecked(),
            .bQuickMode = quickMode->currentIndex() == 0};
  if (!automatic->isChecked()) {
    auto named = heuristicchoice::ReadNamedSet(ChosenText().toStdString());
    if (!named.sError.empty()) {
      auto* box = new QMessageBox(QMessageBox::Warning, WindowText("Warning"),
                                  QString::fromStdString(named.sError), QMessageBox::Ok, this);
      box->setAttribute(Qt::WA_DeleteOnClose);
      box->setObjectName("messageBox");
      box->open();
      return;
    }
    choice.named = std::move(named);
  }
  QDialog::accept();
}
