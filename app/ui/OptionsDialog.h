#pragma once
// The options dialog: every setting of options.ini that the user may change, and the thread
// count and levels of the solves. OK checks the thread pair and the tablebase levels first:
// a refusal is shown over the dialog, which then shows the values it was opened with again;
// a levels field that had to be adjusted is accepted with a note (Note()).
#include <QDialog>
#include <QString>

#include "app/Options.h"
#include "app/ThreadSettings.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;

class COptionsDialog : public QDialog {
  Q_OBJECT
 public:
  COptionsDialog(const COptions& options, const TThreadSettings& threads, QWidget* parent);

  // The settings as accepted.
  const COptions& Chosen() const { return chosen; }
  const TThreadSettings& ChosenThreads() const { return chosenThreads; }
  // What the user is to be told after the dialog closed; empty for nothing.
  const QString& Note() const { return note; }

  void accept() override;

 private:
  void BuildFields(QFormLayout* form);
  void Show(const COptions& options, const TThreadSettings& threads);
  // The refusal of the tablebase levels field, empty when it is in its bounds.
  QString LichessLevelsRefusal(int& nLevels) const;
  void Refuse(const QString& text);
  QCheckBox* AddSwitch(QFormLayout* form, const char* label, const char* name);
  QSpinBox* AddNumber(QFormLayout* form, const char* label, const char* name, int nMin, int nMax);
  QLineEdit* AddTextField(QFormLayout* form, const char* label, const char* name);

  const COptions initial;
  const TThreadSettings initialThreads;
  COptions chosen;
  TThreadSettings chosenThreads;
  QString note;

  QLineEdit* threadsField = nullptr;
  QLineEdit* levelsField = nullptr;
  QLineEdit* lichessField = nullptr;
  QComboBox* quickMode = nullptr;
  QComboBox* minimizeToTray = nullptr;
  QSpinBox* schedulerLevels = nullptr;
  QSpinBox* observerLevels = nullptr;
  QSpinBox* warnSecondInstance = nullptr;
  QSpinBox* tempRegRatio = nullptr;
  QSpinBox* precalcRatio = nullptr;
  QCheckBox* customScheduler = nullptr;
  QCheckBox* promptHeuristics = nullptr;
  QCheckBox* clearRegister = nullptr;
  QCheckBox* sameMoveTwice = nullptr;
  QCheckBox* commentCompatibility = nullptr;
  QCheckBox* showMainVariant = nullptr;
  QCheckBox* mainVariantSort = nullptr;
  QCheckBox* logMoves = nullptr;
  QCheckBox* registerLog = nullptr;
  QCheckBox* relaxLog = nullptr;
  QCheckBox* forceDiskAccess = nullptr;
  QCheckBox* manualEngineControl = nullptr;
};
