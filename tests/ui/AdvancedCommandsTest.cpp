// The Advanced menu on a real window: the options dialog's refusals and what a confirmed change
// does (options.ini and the next solve), the heuristics selection dialog, the register's save
// and read round trip, an endgame-table command in the background and a regression run.
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include "UiTestMain.h"
#include "app/Options.h"
#include "app/ui/BackgroundTask.h"
#include "app/ui/HeuristicsDialog.h"
#include "app/ui/OptionsDialog.h"

namespace {

constexpr int kSolveTimeoutMs = 120000;
constexpr int kTaskTimeoutMs = 240000;
// A mate in 2 from the sample file: Ra5-b5.
constexpr const char* kMateInTwo = "1 #2\n{\n\tFEN: 5Q2/8/8/R7/8/1k6/4K3/8\n\tAnswer:  Ra5-b5\n}\n";
// A mate in 3 from the sample file, long enough to fill the temporary register: Qb3-a3.
constexpr const char* kMateInThree =
    "1 #3\n{\n\tFEN: 8/7p/8/4p2K/5kPP/1Q4N1/8/8\n\tAnswer:  Qb3-a3\n}\n";

// A test that works in a folder of its own (options.ini, logs, tables) and leaves the
// process settings as it found them.
class CFolderScope {
 public:
  CFolderScope() : previous(QDir::currentPath()) { QDir::setCurrent(folder.path()); }
  ~CFolderScope() {
    QDir::setCurrent(previous);
    Options() = DefaultOptions();
    Options().nLanguageId = kEnglishLanguageId;
  }
  QString Path(const QString& name) const { return folder.filePath(name); }

 private:
  QTemporaryDir folder;
  QString previous;
};

std::unique_ptr<CMainWindow> OpenWindowOn(const CFolderScope& scope, const char* problems) {
  auto window = std::make_unique<CMainWindow>();
  window->show();
  if (!QTest::qWaitForWindowExposed(window.get())) return nullptr;
  if (!WriteProblemFile(scope.Path("test.cp"), problems)) return nullptr;
  if (!window->OpenFile(scope.Path("test.cp"))) return nullptr;
  return window;
}

COptionsDialog* OpenOptions(CMainWindow& window) {
  window.Action("options")->trigger();
  return window.findChild<COptionsDialog*>("optionsDialog");
}

QString ReadText(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

class CAdvancedCommandsTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void OptionsDialogRefusesOutOfBoundsFields() {
    const CFolderScope scope;
    auto window = OpenWindowOn(scope, kMateInTwo);
    QVERIFY(window);
    const struct {
      const char* threads;
      const char* levels;
      const char* lichess;
      const char* refusal;  // empty: accepted
      const char* note;
    } cases[] = {
        {"4", "2", "11",
         "Invalid number of levels of analysis with solutions dowanloaded from "
         "tablebase.lichess.ovh (min=-1, max=10)",
         ""},
        {"4", "2", "-2", "(min=-1, max=10)", ""},
        {"64", "64", "1", "Too many threads and/or multithreading levels.", ""},
        {"3", "0", "1", "",
         "Improper value in multithreading levels option: value truncated/adjusted"},
        {"1", "99", "-1", "", ""},  // one thread: the levels field is not looked at
    };
    for (const auto& c : cases) {
      COptionsDialog* dialog = OpenOptions(*window);
      QVERIFY(dialog);
      const QString threadsBefore = dialog->findChild<QLineEdit*>("threadsField")->text();
      dialog->findChild<QLineEdit*>("threadsField")->setText(c.threads);
      dialog->findChild<QLineEdit*>("levelsField")->setText(c.levels);
      dialog->findChild<QLineEdit*>("lichessLevels")->setText(c.lichess);
      dialog->accept();
      if (*c.refusal != '\0') {
        auto* box = dialog->findChild<QMessageBox*>("messageBox");
        QVERIFY2(box && box->text().contains(c.refusal), c.refusal);
        QVERIFY(dialog->isVisible());
        box->accept();
        if (QString(c.refusal).startsWith("Too many"))  // every field is taken back
          QCOMPARE(dialog->findChild<QLineEdit*>("threadsField")->text(), threadsBefore);
        dialog->reject();
        QTRY_VERIFY(!window->findChild<COptionsDialog*>("optionsDialog"));
        continue;
      }
      QTRY_VERIFY(!window->findChild<COptionsDialog*>("optionsDialog"));
      QCOMPARE(TakeMessage(*window), QString(c.note));
      QCOMPARE(Options().nLichessLevels, QString(c.lichess).toInt());
    }
    // The last case left one thread at one level.
    QCOMPARE(Options().nMultithreadingLevels, 1);
  }

  void ConfirmedOptionsReachTheFileAndTheNextSolve() {
    const CFolderScope scope;
    auto window = OpenWindowOn(scope, kMateInTwo);
    QVERIFY(window);
    COptionsDialog* dialog = OpenOptions(*window);
    QVERIFY(dialog);
    dialog->findChild<QComboBox*>("quickMode")->setCurrentIndex(1);
    dialog->findChild<QSpinBox*>("schedulerLevels")->setValue(9);
    dialog->findChild<QCheckBox*>("logMoves")->setChecked(true);
    dialog->findChild<QComboBox*>("minimizeToTray")->setCurrentIndex(0);
    dialog->accept();
    const QString ini = ReadText(scope.Path("options.ini"));
    for (const char* line : {"QuickMode=0", "SchedulerLevels=8", "LogMoves=1", "MinimizeToTray=0"})
      QVERIFY2(ini.contains(line), qPrintable(ini));
    QCOMPARE(Options().nMinimizeToTray, 0);
    // The moves log is written by the solve that follows, in the working folder.
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StartSolve(false);
    QVERIFY(reported.wait(kSolveTimeoutMs));
    QVERIFY(!QDir(scope.Path("")).entryList({"MovesLogger_problem1_thread*.log"}).isEmpty());
  }

  void HeuristicsDialogShowsThePathAndStartsTheSolve() {
    const CFolderScope scope;
    auto window = OpenWindowOn(scope, kMateInTwo);
    QVERIFY(window);
    window->activateWindow();  // the keys are the window's shortcuts
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_F5, Qt::ControlModifier);
    auto* dialog = window->findChild<CHeuristicsDialog*>("heuristicsDialog");
    QVERIFY(dialog);
    QVERIFY(!window->IsSolving());
    dialog->findChild<QCheckBox*>("automatic")->setChecked(false);
    auto* catalogue = dialog->findChild<QTableWidget*>("catalogue");
    const auto rows = catalogue->findItems("SH_FINDFORCEDMATE", Qt::MatchExactly);
    QCOMPARE(rows.size(), 1);
    rows.front()->setCheckState(Qt::Checked);
    catalogue->item(rows.front()->row(), 1)->setText("no such word");
    dialog->accept();  // refused: the word is not one of the heuristic's
    auto* box = dialog->findChild<QMessageBox*>("messageBox");
    QVERIFY(box);
    box->accept();
    catalogue->item(rows.front()->row(), 1)->setText("#1");
    dialog->findChild<QPushButton*>("showPath")->click();
    const QString path = dialog->findChild<QPlainTextEdit*>("relaxationPath")->toPlainText();
    QVERIFY2(path.startsWith("1: SH_FINDFORCEDMATE"), qPrintable(path));
    dialog->findChild<QCheckBox*>("pass2")->setChecked(false);
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    dialog->accept();
    QVERIFY(window->IsSolving());
    QVERIFY(reported.wait(kSolveTimeoutMs));
  }

  void RegisterSavedAndReadBack() {
    const CFolderScope scope;
    auto window = OpenWindowOn(scope, kMateInThree);
    QVERIFY(window);
    const QString file = scope.Path("saved.ltr");
    window->chooseFile = [file](EFileQuestion) { return file; };
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StartSolve(true);
    QVERIFY(reported.wait(kSolveTimeoutMs));
    const QString filled = window->RegisterCountersText();
    QVERIFY2(!filled.startsWith("Temp.reg.: 0 "), qPrintable(filled));
    window->Action("saveRegisterAs")->trigger();
    QVERIFY(!TakeMessage(*window).isEmpty());
    QVERIFY(QFile::exists(file));
    window->Action("clearRegister")->trigger();
    TakeMessage(*window);
    QVERIFY(window->RegisterCountersText().startsWith("Temp.reg.: 0 "));
    window->Action("readRegisterFrom")->trigger();
    TakeMessage(*window);
    QCOMPARE(window->RegisterCountersText(), filled);
  }

  void TableCommandsRunInTheBackground() {
    const CFolderScope scope;
    auto window = OpenWindowOn(scope, kMateInTwo);
    QVERIFY(window);
    QVERIFY(window->PastePosition("8/8/8/8/8/2k5/8/R3K3 w - - 0 1"));
    QSignalSpy reported(window.get(), &CMainWindow::TaskReported);
    window->Action("precalculateType")->trigger();
    QVERIFY(window->Task()->IsRunning());
    QVERIFY(reported.wait(kTaskTimeoutMs));
    QVERIFY2(reported.last().at(0).toString().contains("KRK: generated"),
             qPrintable(reported.last().at(0).toString()));
    TakeMessage(*window);
    window->Action("positionInformation")->trigger();
    QVERIFY(reported.wait(kTaskTimeoutMs));
    const QString information = reported.last().at(0).toString();
    QVERIFY2(information.contains("Position type KRK") && information.contains("mate in"),
             qPrintable(information));
    TakeMessage(*window);
    window->Action("maxNext")->trigger();  // KRK's longest mate goes on the board
    QVERIFY(reported.wait(kTaskTimeoutMs));
    QVERIFY2(reported.last().at(0).toString().contains("Max #n for KRK: 16"),
             qPrintable(reported.last().at(0).toString()));
    TakeMessage(*window);
    // A position pasted by its index is found at that index again, and the next one after it.
    const auto informationIndex = [&]() -> qulonglong {
      window->Action("positionInformation")->trigger();
      if (!reported.wait(kTaskTimeoutMs)) return 0;
      TakeMessage(*window);
      const QString text = reported.last().at(0).toString();
      return text.section("index ", 1).section('\n', 0, 0).toULongLong();
    };
    window->askNumber = [](const QString&) { return std::optional<qulonglong>(1000); };
    window->Action("pasteByIndex")->trigger();
    QCOMPARE(informationIndex(), 1000ULL);
    window->Action("nextOfType")->trigger();
    const qulonglong next = informationIndex();
    QVERIFY(next > 1000);
    window->Action("previousOfType")->trigger();
    QCOMPARE(informationIndex(), 1000ULL);
  }

  // Stop pressed as KPK's generation reports its first progress ends it there: the tables it
  // needed first (KQK, KRK, KBK, KNK) are on disk, KPK is not, and nothing else is left.
  void StopEndsATableGenerationWithoutItsFile() {
    const CFolderScope scope;
    auto window = OpenWindowOn(scope, kMateInTwo);
    QVERIFY(window);
    QVERIFY(window->PastePosition("8/8/8/8/8/2k5/4P3/4K3 w - - 0 1"));
    auto* stop = window->findChild<QPushButton*>("taskStop");
    // KPK's rounds after its first report take far longer than the click takes to come.
    connect(window->Task(), &CBackgroundTask::Progress, stop, [stop](const QString& text, double) {
      if (text == "KPK" && stop->isEnabled()) stop->click();
    });
    QSignalSpy reported(window.get(), &CMainWindow::TaskReported);
    window->Action("precalculateType")->trigger();
    QVERIFY(reported.wait(kTaskTimeoutMs));
    TakeMessage(*window);
    const QString outcome = reported.last().at(0).toString();
    QVERIFY2(outcome.startsWith("Stopped.") && outcome.contains("KNK: generated") &&
                 !outcome.contains("KPK"),
             qPrintable(outcome));
    QStringList files;
    QDirIterator found(scope.Path("Precalc"), QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext()) {
      const QString name = QFileInfo(found.next()).fileName();
      if (!name.endsWith(".log")) files << name;
    }
    files.sort();
    QCOMPARE(files, (QStringList{"KBK.lmt", "KNK.lmt", "KQK.lmt", "KRK.lmt"}));
  }

  // The run's own session tells its notices in the progress area, here a moves log that
  // cannot be opened because a folder stands at its name.
  void RegressionRunWritesAndOpensItsLogAndShowsTheSessionsNotices() {
    const CFolderScope scope;
    QVERIFY(QDir().mkdir(scope.Path("MovesLogger_problem1_thread0.log")));
    Options().bLogMoves = true;
    auto window = OpenWindowOn(scope, kMateInTwo);
    QVERIFY(window);
    QString opened;
    window->openLog = [&opened](const QString& path) { opened = path; };
    QSignalSpy reported(window.get(), &CMainWindow::TaskReported);
    AnswerNextQuestion(QMessageBox::Ok);
    window->Action("quickRegressionTest")->trigger();
    QCOMPARE(TakeMessage(*window),
             QString("Test results will be written to file RegressionTest.log"));
    QVERIFY(reported.wait(kTaskTimeoutMs));
    QVERIFY2(reported.last().at(0).toString().contains("Passed 1, failed 0, skipped 0"),
             qPrintable(reported.last().at(0).toString()));
    QVERIFY(opened.endsWith("RegressionTest.log"));
    QVERIFY(ReadText(opened).contains("Test #1 ok"));
    QVERIFY2(window->ResultText().contains("Error opening file: MovesLogger_problem1_thread0.log"),
             qPrintable(window->ResultText()));
  }

  void StopEndsARegressionRunAfterTheCurrentProblem() {
    const CFolderScope scope;
    // A mate in 4 from the sample file before two mates in 2, and Stop pressed as soon as the
    // run has begun: whether the mate in 4 is being solved then or the run has not reached it
    // yet, it is finished and passes, and the mates in 2 are not begun.
    const QString first =
        "1 #4\n{\n\tFEN: 1N1K4/2R5/3ppP2/1P1kpb2/2n4P/2P1PPB1/2npp1NQ/4b3\n\tAnswer:  Qh2-h1\n}\n";
    const QString second = QString(kMateInTwo).replace("1 #2", "2 #2");
    const QString third = QString(kMateInTwo).replace("1 #2", "3 #2");
    auto window = OpenWindowOn(scope, (first + "\n" + second + "\n" + third).toUtf8().constData());
    QVERIFY(window);
    window->openLog = [](const QString&) {};
    QSignalSpy reported(window.get(), &CMainWindow::TaskReported);
    AnswerNextQuestion(QMessageBox::Ok);
    window->Action("regressionTest")->trigger();
    TakeMessage(*window);
    QTest::mouseClick(window->findChild<QPushButton*>("taskStop"), Qt::LeftButton);
    QVERIFY(reported.wait(kTaskTimeoutMs));
    const QString outcome = reported.last().at(0).toString();
    QVERIFY2(outcome.startsWith("Stopped.") && outcome.contains("Passed 1, failed 0, skipped 0"),
             qPrintable(outcome + "\n" + window->ResultText()));
  }

  void PromptHeuristicsShowsTheDialogBeforeEverySolve() {
    const CFolderScope scope;
    auto window = OpenWindowOn(scope, kMateInTwo);
    QVERIFY(window);
    Options().bPromptHeuristics = true;
    window->StartSolve(false);
    auto* dialog = window->findChild<CHeuristicsDialog*>("heuristicsDialog");
    QVERIFY(dialog);
    QVERIFY(!window->IsSolving());
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    dialog->accept();
    QVERIFY(window->IsSolving());
    QVERIFY(reported.wait(kSolveTimeoutMs));
    dialog = nullptr;
    QTRY_VERIFY(!window->findChild<CHeuristicsDialog*>("heuristicsDialog"));

    // Without the setting, Ctrl held on the Start button asks as well.
    Options().bPromptHeuristics = false;
    QTest::mouseClick(window->findChild<QPushButton*>("start"), Qt::LeftButton,
                      Qt::ControlModifier);
    QVERIFY(window->findChild<CHeuristicsDialog*>("heuristicsDialog"));
    QVERIFY(!window->IsSolving());
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CAdvancedCommandsTest>(); });

#include "AdvancedCommandsTest.moc"
