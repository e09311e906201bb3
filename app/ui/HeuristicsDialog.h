#pragma once
// The heuristics selection dialog shown before a solve (Ctrl+F5, Shift+Ctrl+F5, Ctrl on the
// Start button, or always with PromptHeuristics): the passes the position would get, the
// catalogue of special heuristics with their parameter words for a set chosen by hand, the
// relaxation path of the set behind "Show", the pass without heuristics and quick or safe mode.
#include <QDialog>
#include <optional>
#include <vector>

#include "engine/HeuristicChoice.h"
#include "problems/Problem.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QTableWidget;

// What the dialog asks of the solve.
struct THeuristicsChoice {
  std::optional<heuristicchoice::TNamedSet> named;  // nothing: the automatic choice
  bool bPass2 = true;
  bool bQuickMode = true;
};

class CHeuristicsDialog : public QDialog {
  Q_OBJECT
 public:
  CHeuristicsDialog(const TProblem& problem, bool bQuickMode, QWidget* parent);

  const THeuristicsChoice& Choice() const { return choice; }
  // The set the rows describe as the reader of named sets takes it ("SH_X(word), SH_Y").
  QString ChosenText() const;
  // Shows the passes the solve would run in the path area.
  void ShowPath();

  void accept() override;

 private:
  void BuildCatalogue();
  QString PassesText(const std::vector<THeuristicSet>& passes) const;

  const TProblem& problem;
  THeuristicsChoice choice;
  QCheckBox* automatic = nullptr;
  QTableWidget* catalogue = nullptr;
  QPlainTextEdit* path = nullptr;
  QCheckBox* pass2 = nullptr;
  QComboBox* quickMode = nullptr;
};
