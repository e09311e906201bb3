#pragma once
// The problem search's dialog: every criterion of a search, each empty field not restricting.
// Find hands the criteria to the window, which checks them; wrong ones keep the dialog open
// with the reason shown. The last criteria come back the next time it opens.
#include <QDialog>
#include <array>
#include <functional>

#include "app/SearchCriteria.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;

class CProblemSearchDialog : public QDialog {
  Q_OBJECT
 public:
  // find gets the criteria and returns the reason they are refused, empty when the search
  // has started.
  using TFind = std::function<QString(const TSearchCriteria&)>;

  CProblemSearchDialog(const TSearchCriteria& criteria, TFind find, QWidget* parent = nullptr);

  TSearchCriteria Criteria() const;
  void Show(const TSearchCriteria& criteria);
  QString ErrorText() const;
  void accept() override;

 private:
  void AddTextRows(QGridLayout* grid);
  void AddCountRows(QGridLayout* grid);
  void AddHeuristicRows(QGridLayout* grid);
  QLineEdit* AddField(const QString& name, int nWidth = 40);

  QLineEdit* text = nullptr;
  QCheckBox* caseSensitive = nullptr;
  QCheckBox* regex = nullptr;
  QLineEdit* movesFrom = nullptr;
  QLineEdit* movesTo = nullptr;
  std::array<QLineEdit*, kCountFields> countsFrom{};
  std::array<QLineEdit*, kCountFields> countsTo{};
  QCheckBox* kingOnEdge = nullptr;
  QCheckBox* unsolvedOnly = nullptr;
  QLineEdit* fen = nullptr;
  QLineEdit* tag = nullptr;
  QListWidget* heuristics = nullptr;
  QComboBox* heuristicUse = nullptr;
  QCheckBox* includeRelaxed = nullptr;
  QCheckBox* forcedSafeMode = nullptr;
  QLabel* error = nullptr;
  TFind find;
};
