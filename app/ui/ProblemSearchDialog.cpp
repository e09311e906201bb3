#include "app/ui/ProblemSearchDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/ui/InterfaceLanguage.h"
#include "problems/HeuristicCatalogue.h"

namespace {

// The counted ranges by row: the total and the white and black twins.
struct TCountRow {
  const char* totalLabel;
  const char* sidesLabel;
  ECountField total;
};
constexpr TCountRow kCountRows[] = {
    {"Num.of pieces on board:", "including white/black pieces:", kPiecesTotal},
    {"Num.of figures on board:", "including white/black figures:", kFiguresTotal},
    {"Number of major figures:", "incl.white/black major figures:", kMajorsTotal},
    {"Number of pawns:", "Including white/black pawns:", kPawnsTotal}};

// The ways a wanted heuristic may go with the others, in the order of EHeuristicUse.
constexpr const char* kUseTexts[] = {"without other heuristics", "with other heuristics",
                                     "partially with other heuristics"};

QLabel* Label(const char* text, QWidget* parent) {
  auto* label = new QLabel(parent);
  SetWindowText(label, text);
  return label;
}

QCheckBox* CheckBox(const char* text, const QString& name, QWidget* parent) {
  auto* box = new QCheckBox(parent);
  box->setObjectName(name);
  SetWindowText(box, text);
  return box;
}

TRangeText RangeOf(const QLineEdit* from, const QLineEdit* to) {
  return {from->text().trimmed().toStdString(), to->text().trimmed().toStdString()};
}

void ShowRange(const TRangeText& range, QLineEdit* from, QLineEdit* to) {
  from->setText(QString::fromStdString(range.from));
  to->setText(QString::fromStdString(range.to));
}

}  // namespace

CProblemSearchDialog::CProblemSearchDialog(const TSearchCriteria& criteria, TFind findWith,
                                           QWidget* parent)
    : QDialog(parent), find(std::move(findWith)) {
  setObjectName("problemSearch");
  setWindowTitle(WindowText("Find problem"));
  auto* layout = new QVBoxLayout(this);
  auto* grid = new QGridLayout();
  layout->addLayout(grid);
  AddTextRows(grid);
  AddCountRows(grid);
  AddHeuristicRows(grid);
  error = new QLabel(this);
  error->setObjectName("error");
  error->setStyleSheet("color: #b00000");
  layout->addWidget(error);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* findButton = buttons->addButton(WindowText("Find"), QDialogButtonBox::AcceptRole);
  findButton->setObjectName("find");
  findButton->setDefault(true);
  QPushButton* reset = buttons->addButton(WindowText("Reset"), QDialogButtonBox::ResetRole);
  reset->setObjectName("reset");
  buttons->addButton(QDialogButtonBox::Cancel);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(reset, &QPushButton::clicked, this, [this] {
    Show({});
    error->clear();
  });
  Show(criteria);
}

QLineEdit* CProblemSearchDialog::AddField(const QString& name, int nWidth) {
  auto* field = new QLineEdit(this);
  field->setObjectName(name);
  if (nWidth > 0) field->setMaximumWidth(nWidth);
  return field;
}

void CProblemSearchDialog::AddTextRows(QGridLayout* grid) {
  grid->addWidget(Label("Search in problem description", this), 0, 0);
  text = AddField("text", 0);
  grid->addWidget(text, 0, 1, 1, 4);
  caseSensitive = CheckBox("Case sensitive", "caseSensitive", this);
  regex = CheckBox("Regular expression", "regex", this);
  grid->addWidget(caseSensitive, 0, 5);
  // The last column takes what the wide entries need beyond the range fields.
  grid->addWidget(regex, 0, 6, 1, 5);
  grid->setColumnStretch(10, 1);
  for (const auto& [label, nColumn] : {std::pair{"white", 6}, std::pair{"black", 8}}) {
    QLabel* side = Label(label, this);
    side->setAlignment(Qt::AlignCenter);
    grid->addWidget(side, 1, nColumn, 1, 2);
  }
  grid->addWidget(Label("Mate in (stipulation):", this), 1, 0);
  grid->addWidget(Label("from", this), 1, 1);
  movesFrom = AddField("movesFrom");
  grid->addWidget(movesFrom, 1, 2);
  grid->addWidget(Label("to", this), 1, 3);
  movesTo = AddField("movesTo");
  grid->addWidget(movesTo, 1, 4);
  grid->addWidget(Label("Search by FEN code:", this), 7, 0);
  fen = AddField("fen", 0);
  grid->addWidget(fen, 7, 1, 1, 10);
  grid->addWidget(Label("Search by tag:", this), 8, 0);
  tag = AddField("tag", 0);
  grid->addWidget(tag, 8, 1, 1, 4);
  kingOnEdge = CheckBox("Only when black king on the edge", "kingOnEdge", this);
  unsolvedOnly = CheckBox("Only unsolved problems", "unsolvedOnly", this);
  grid->addWidget(kingOnEdge, 6, 0, 1, 3);
  grid->addWidget(unsolvedOnly, 6, 3, 1, 4);
}

// One row per kind: the total's range, then the white and the black range.
void CProblemSearchDialog::AddCountRows(QGridLayout* grid) {
  int nRow = 2;
  for (const TCountRow& row : kCountRows) {
    grid->addWidget(Label(row.totalLabel, this), nRow, 0);
    grid->addWidget(Label(row.sidesLabel, this), nRow, 5);
    for (int side = 0; side < 3; ++side) {
      const int field = row.total + side;
      countsFrom[field] = AddField(QString("from%1").arg(field));
      countsTo[field] = AddField(QString("to%1").arg(field));
      const int nColumn = side == 0 ? 2 : 4 + 2 * side;
      grid->addWidget(countsFrom[field], nRow, nColumn);
      grid->addWidget(countsTo[field], nRow, nColumn + (side == 0 ? 2 : 1));
    }
    ++nRow;
  }
}

void CProblemSearchDialog::AddHeuristicRows(QGridLayout* grid) {
  grid->addWidget(Label("Search by heuristics:", this), 9, 0, Qt::AlignTop);
  heuristics = new QListWidget(this);
  heuristics->setObjectName("heuristics");
  heuristics->setMaximumHeight(110);
  for (const auto& entry : heuristics::Catalogue()) {
    auto* item = new QListWidgetItem(
        QString::fromUtf8(entry.name.data(), static_cast<qsizetype>(entry.name.size())),
        heuristics);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setData(Qt::UserRole, heuristics::IndexOfName(entry.name));
  }
  grid->addWidget(heuristics, 9, 1, 2, 5);
  heuristicUse = new QComboBox(this);
  heuristicUse->setObjectName("heuristicUse");
  for (const char* use : kUseTexts) heuristicUse->addItem(WindowText(use));
  grid->addWidget(heuristicUse, 9, 6, 1, 5);
  includeRelaxed = CheckBox("Incl.relaxed heuristics:", "includeRelaxed", this);
  grid->addWidget(includeRelaxed, 10, 6, 1, 5);
  forcedSafeMode = CheckBox("Only with forced SafeMode", "forcedSafeMode", this);
  grid->addWidget(forcedSafeMode, 11, 1, 1, 5);
}

TSearchCriteria CProblemSearchDialog::Criteria() const {
  TSearchCriteria criteria;
  criteria.text = text->text().trimmed().toStdString();
  criteria.bCaseSensitive = caseSensitive->isChecked();
  criteria.bRegex = regex->isChecked();
  criteria.moves = RangeOf(movesFrom, movesTo);
  for (int field = 0; field < kCountFields; ++field)
    criteria.counts[field] = RangeOf(countsFrom[field], countsTo[field]);
  criteria.bBlackKingOnEdge = kingOnEdge->isChecked();
  criteria.bUnsolvedOnly = unsolvedOnly->isChecked();
  criteria.fen = fen->text().trimmed().toStdString();
  criteria.tag = tag->text().trimmed().toStdString();
  const auto use = static_cast<EHeuristicUse>(heuristicUse->currentIndex());
  for (int i = 0; i < heuristics->count(); ++i)
    if (heuristics->item(i)->checkState() == Qt::Checked)
      criteria.heuristics.push_back({heuristics->item(i)->data(Qt::UserRole).toInt(), use});
  criteria.bIncludeRelaxed = includeRelaxed->isChecked();
  criteria.bForcedSafeMode = forcedSafeMode->isChecked();
  return criteria;
}

void CProblemSearchDialog::Show(const TSearchCriteria& criteria) {
  text->setText(QString::fromStdString(criteria.text));
  caseSensitive->setChecked(criteria.bCaseSensitive);
  regex->setChecked(criteria.bRegex);
  ShowRange(criteria.moves, movesFrom, movesTo);
  for (int field = 0; field < kCountFields; ++field)
    ShowRange(criteria.counts[field], countsFrom[field], countsTo[field]);
  kingOnEdge->setChecked(criteria.bBlackKingOnEdge);
  unsolvedOnly->setChecked(criteria.bUnsolvedOnly);
  fen->setText(QString::fromStdString(criteria.fen));
  tag->setText(QString::fromStdString(criteria.tag));
  for (int i = 0; i < heuristics->count(); ++i) {
    const int nIndex = heuristics->item(i)->data(Qt::UserRole).toInt();
    const bool bWanted =
        std::any_of(criteria.heuristics.begin(), criteria.heuristics.end(),
                    [nIndex](const auto& wanted) { return wanted.nIndex == nIndex; });
    heuristics->item(i)->setCheckState(bWanted ? Qt::Checked : Qt::Unchecked);
  }
  heuristicUse->setCurrentIndex(criteria.heuristics.empty()
                                    ? static_cast<int>(EHeuristicUse::WithOthers)
                                    : static_cast<int>(criteria.heuristics.front().use));
  includeRelaxed->setChecked(criteria.bIncludeRelaxed);
  forcedSafeMode->setChecked(criteria.bForcedSafeMode);
}

QString CProblemSearchDialog::ErrorText() const {
  return error->text();
}

void CProblemSearchDialog::accept() {
  const QString refusal = find(Criteria());
  if (!refusal.isEmpty()) {
    error->setText(refusal);
    return;
  }
  error->clear();
  QDialog::accept();
}
