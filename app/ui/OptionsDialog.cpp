#include "app/ui/OptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/OnlineTablebase.h"
#include "app/ThreadControls.h"
#include "app/ui/InterfaceLanguage.h"

namespace {

// Scheduler levels are kept as the number of levels; the dialog offers up to 9.
constexpr int kMaxSchedulerLevels = 9;
constexpr int kMaxObserverLevels = 64;

// The number the user typed; a field that is not a number reads as 0, as an empty one does.
long long FieldNumber(const QLineEdit* field) {
  return field->text().trimmed().toLongLong();
}

QComboBox* ChoiceBox(QWidget* parent, const char* name, std::initializer_list<const char*> texts) {
  auto* box = new QComboBox(parent);
  box->setObjectName(name);
  for (const char* text : texts) box->addItem(WindowText(text));
  return box;
}

}  // namespace

COptionsDialog::COptionsDialog(const COptions& options, const TThreadSettings& threads,
                               QWidget* parent)
    : QDialog(parent),
      initial(options),
      initialThreads(threads),
      chosen(options),
      chosenThreads(threads) {
  setObjectName("optionsDialog");
  setWindowTitle(WindowText("Program options"));
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout();
  form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  BuildFields(form);
  layout->addLayout(form);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &COptionsDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  Show(options, threads);
}

QCheckBox* COptionsDialog::AddSwitch(QFormLayout* form, const char* label, const char* name) {
  auto* box = new QCheckBox(WindowText(label), this);
  box->setObjectName(name);
  form->addRow(box);
  return box;
}

QSpinBox* COptionsDialog::AddNumber(QFormLayout* form, const char* label, const char* name,
                                    int nMin, int nMax) {
  auto* box = new QSpinBox(this);
  box->setObjectName(name);
  box->setRange(nMin, nMax);
  form->addRow(WindowText(label), box);
  return box;
}

QLineEdit* COptionsDialog::AddTextField(QFormLayout* form, const char* label, const char* name) {
  auto* field = new QLineEdit(this);
  field->setObjectName(name);
  field->setMaximumWidth(80);
  form->addRow(WindowText(label), field);
  return field;
}

void COptionsDialog::BuildFields(QFormLayout* form) {
  threadsField =
      AddTextField(form, "Number of engine threads (applies to 1st move)", "threadsField");
  levelsField = AddTextField(form, "Number of multithreading levels", "levelsField");
  schedulerLevels = AddNumber(form, "Num.of scheduler levels (default=6, off=0)", "schedulerLevels",
                              0, kMaxSchedulerLevels);
  customScheduler = AddSwitch(form, "Custom scheduler", "customScheduler");
  observerLevels = AddNumber(form, "Num.of observer levels (default=0, off=0)", "observerLevels", 0,
                             kMaxObserverLevels);
  sameMoveTwice = AddSwitch(form, "Let two threads analyze the same move", "sameMoveTwice");
  manualEngineControl = AddSwitch(form, "Enable manual engine control", "manualEngineControl");
  const QString lichessLabel = WindowText("Levels of analysis with solutions downloaded from %1")
                                   .arg(QString::fromStdString(initial.sLichessHost));
  lichessField = new QLineEdit(this);
  lichessField->setObjectName("lichessLevels");
  lichessField->setMaximumWidth(80);
  form->addRow(lichessLabel, lichessField);
  quickMode = ChoiceBox(this, "quickMode", {"Yes (quick mode)", "No (safe mode)"});
  form->addRow(WindowText("Add repeated positions to temporary data"), quickMode);
  promptHeuristics =
      AddSwitch(form, "Always display heuristics selection dialog", "promptHeuristics");
  tempRegRatio = AddNumber(form, "Max. % of RAM that temporary data of a problem can occupy",
                           "tempRegRatio", 1, 100);
  clearRegister =
      AddSwitch(form, "Always clear temporary data when starting solving", "clearRegister");
  precalcRatio = AddNumber(form, "Max. % of memory that precalculated/Nalimov data can occupy",
                           "precalcRatio", 1, 100);
  forceDiskAccess = AddSwitch(
      form, "Read precalculated data from disk (do not load it into memory)", "forceDiskAccess");
  showMainVariant = AddSwitch(form, "Always display main variant when navigating to a problem",
                              "showMainVariant");
  mainVariantSort =
      AddSwitch(form, "Use main variant as sort indications for engine", "mainVariantSort");
  commentCompatibility =
      AddSwitch(form, "Write comments in the compatible form", "commentCompatibility");
  logMoves = AddSwitch(form, "Write full log of analysis (unrecommended)", "logMoves");
  registerLog = AddSwitch(form, "Write log of temporary data", "registerLog");
  relaxLog = AddSwitch(form, "Write log of relaxing special heuristics", "relaxLog");
  minimizeToTray = ChoiceBox(this, "minimizeToTray", {"No", "Yes", "Only with Ctrl key"});
  form->addRow(WindowText("Minimize program to notification area (sys.tray)"), minimizeToTray);
  warnSecondInstance = AddNumber(form, "Warn if not the first instance of program (0..2)",
                                 "warnSecondInstance", 0, 2);
}

void COptionsDialog::Show(const COptions& options, const TThreadSettings& threads) {
  threadsField->setText(QString::number(threads.nThreads));
  levelsField->setText(QString::number(threads.nLevels));
  schedulerLevels->setValue(options.nSchedulerLevels);
  customScheduler->setChecked(options.bCustomScheduler);
  observerLevels->setValue(options.nObserverLevels);
  sameMoveTwice->setChecked(options.bLetAnalyzeTheSameMoveInTwoThreads);
  manualEngineControl->setChecked(options.bEnableManualEngineControl);
  lichessField->setText(QString::number(options.nLichessLevels));
  quickMode->setCurrentIndex(options.bQuickMode ? 0 : 1);
  promptHeuristics->setChecked(options.bPromptHeuristics);
  tempRegRatio->setValue(options.nMaxMemRatioForTempReg);
  clearRegister->setChecked(options.bClearRegisterOnStartSolving);
  precalcRatio->setValue(options.nMaxMemRatioForPrecalculatedData);
  forceDiskAccess->setChecked(options.bGlobalRegisterForceDiskAccess);
  showMainVariant->setChecked(options.bShowMainVariant);
  mainVariantSort->setChecked(options.bUseMainVariantAsSortIndications);
  commentCompatibility->setChecked(options.bCommentCompatibilityMode);
  logMoves->setChecked(options.bLogMoves);
  registerLog->setChecked(options.bRegisterInfoLog);
  relaxLog->setChecked(options.bTryRelaxSpecialHeuristicsLog);
  minimizeToTray->setCurrentIndex(options.nMinimizeToTray);
  warnSecondInstance->setValue(options.nWarnAboutSecondInstanceOfProgram);
}

QString COptionsDialog::LichessLevelsRefusal(int& nLevels) const {
  bool bNumber = false;
  const long long value = lichessField->text().trimmed().toLongLong(&bNumber);
  if (bNumber && value >= -1 && value <= kMaxTablebaseLevels) {
    nLevels = static_cast<int>(value);
    return {};
  }
  return WindowText("Invalid number of levels of analysis with solutions dowanloaded from") +
         QString(" %1 (min=-1, max=%2)")
             .arg(QString::fromStdString(initial.sLichessHost))
             .arg(kMaxTablebaseLevels);
}

void COptionsDialog::Refuse(const QString& text) {
  auto* box =
      new QMessageBox(QMessageBox::Warning, WindowText("Warning"), text, QMessageBox::Ok, this);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setObjectName("messageBox");
  box->open();
}

void COptionsDialog::accept() {
  int nLichessLevels = 0;
  if (const QString refusal = LichessLevelsRefusal(nLichessLevels); !refusal.isEmpty())
    return Refuse(refusal);
  const TThreadDialogOutcome threads =
      ValidateThreadDialog(initialThreads, FieldNumber(threadsField), FieldNumber(levelsField));
  QStringList messages;
  for (const EThreadSettingsMessage message : threads.messages)
    messages << WindowText(ThreadSettingsMessageText(message).c_str());
  if (!threads.bAccepted) {
    Show(initial, initialThreads);  // a refusal takes back every field
    return Refuse(messages.join('\n'));
  }
  note = messages.join('\n');
  chosenThreads = threads.settings;
  chosen = initial;
  chosen.nMultithreadingLevels = static_cast<std::uint8_t>(chosenThreads.nLevels);
  chosen.nSchedulerLevels = static_cast<std::int16_t>(schedulerLevels->value());
  chosen.bCustomScheduler = customScheduler->isChecked();
  chosen.nObserverLevels = static_cast<std::int16_t>(observerLevels->value());
  chosen.bLetAnalyzeTheSameMoveInTwoThreads = sameMoveTwice->isChecked();
  chosen.bEnableManualEngineControl = manualEngineControl->isChecked();
  chosen.nLichessLevels = static_cast<std::int16_t>(nLichessLevels);
  chosen.bQuickMode = quickMode->currentIndex() == 0;
  chosen.bPromptHeuristics = promptHeuristics->isChecked();
  chosen.nMaxMemRatioForTempReg = static_cast<std::uint8_t>(tempRegRatio->value());
  chosen.bClearRegisterOnStartSolving = clearRegister->isChecked();
  chosen.nMaxMemRatioForPrecalculatedData = static_cast<std::uint8_t>(precalcRatio->value());
  chosen.bGlobalRegisterForceDiskAccess = forceDiskAccess->isChecked();
  chosen.bShowMainVariant = showMainVariant->isChecked();
  chosen.bUseMainVariantAsSortIndications = mainVariantSort->isChecked();
  chosen.bCommentCompatibilityMode = commentCompatibility->isChecked();
  chosen.bLogMoves = logMoves->isChecked();
  chosen.bRegisterInfoLog = registerLog->isChecked();
  chosen.bTryRelaxSpecialHeuristicsLog = relaxLog->isChecked();
  chosen.nMinimizeToTray = minimizeToTray->currentIndex();
  chosen.nWarnAboutSecondInstanceOfProgram = warnSecondInstance->value();
  QDialog::accept();
}
