// Solving from the window: F5 on a mate in 2 and on a selfmate, a long solve stopped from
// the Start button, the register's counters beside a long status line, a window closed while it
// solves, and the status line composed from the session's snapshot.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "UiTestMain.h"
#include "app/Options.h"
#include "app/SolvingReports.h"
#include "app/ui/SolveController.h"
#include "core/Notation.h"

namespace {

constexpr int kSolveTimeoutMs = 120000;

// The sample problem with the longest stipulation: it runs for far longer than a test.
int LongestProblem(const TProblemCollection& problems) {
  int id = 0, nMost = 0;
  for (const auto& [nId, problem] : problems.Problems())
    if (problem->stipulation.Moves() > nMost) {
      nMost = problem->stipulation.Moves();
      id = nId;
    }
  return id;
}

TProblemCollection ReadSample() {
  TProblemCollection problems;
  problems.ReadFile(SampleFilePath().toStdString(), {});
  return problems;
}

}  // namespace

class CSolvingWindowTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void SolvesWithF5_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("moves");  // 0: any
    QTest::newRow("mate in 2") << TStipulation::kDirectMate << 2;
    QTest::newRow("selfmate") << TStipulation::kSelfmate << 0;
  }
  // The first sample problem of the kind with a recorded answer.
  void SolvesWithF5() {
    QFETCH(int, type);
    QFETCH(int, moves);
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    const TProblemCollection sample = ReadSample();
    const TProblem* chosen = nullptr;
    for (const auto& [id, problem] : sample.Problems())
      if (problem->stipulation.type == type &&
          (moves == 0 || problem->stipulation.Moves() == moves) && !problem->answer.empty()) {
        chosen = problem.get();
        break;
      }
    QVERIFY(chosen);
    QVERIFY(window->GoToProblem(chosen->id));
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    QTest::keyClick(window.get(), Qt::Key_F5);
    QVERIFY(window->IsSolving());
    QVERIFY(reported.wait(kSolveTimeoutMs));
    QVERIFY(!window->IsSolving());
    const QString key =
        QString::fromStdString(notation::MoveToText(chosen->start, chosen->answer.front()));
    const QString label = QString::number(chosen->id);
    QVERIFY2(window->ResultText().contains("Keys: " + key), qPrintable(window->ResultText()));
    QVERIFY(window->ResultText().contains(QString::fromStdString(
        ThreadCompletionText(kEnglishLanguageId, label.toStdString(), false, ""))));
    QVERIFY(window->ResultText().contains(
        QString::fromStdString(SolutionCountText(kEnglishLanguageId, label.toStdString(), 1))));
    // The key is on the board for a moment after the report.
    QCOMPARE(window->MoveListText(), "1. " + key);
    QTRY_COMPARE_WITH_TIMEOUT(window->MoveListText(), QString(), 5000);
  }

  void StopsALongSolveFromTheStartButton() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    const int id = LongestProblem(ReadSample());
    QVERIFY(window->GoToProblem(id));
    auto* start = window->findChild<QPushButton*>("start");
    QSignalSpy started(window.get(), &CMainWindow::SolveStarted);
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    QTest::mouseClick(start, Qt::LeftButton);
    QCOMPARE(started.count(), 1);
    QCOMPARE(start->text(), QString("Stop"));
    // The status line comes from the session's progress, handed to the GUI thread.
    QTRY_VERIFY_WITH_TIMEOUT(window->StatusText().startsWith("Pass "), kSolveTimeoutMs);
    QVERIFY(window->StatusText().contains(
        QString(" %1# Thrds=").arg(window->CurrentProblem()->stipulation.Moves())));
    window->Action("pause")->trigger();
    QCOMPARE(start->text(), QString("Paused"));
    window->Action("resume")->trigger();
    QTest::mouseClick(start, Qt::LeftButton);
    QVERIFY(reported.wait(kSolveTimeoutMs));
    QCOMPARE(start->text(), QString("Start"));
    QVERIFY2(window->ResultText().contains(QString::fromStdString(
                 EngineEndText(kEnglishLanguageId, std::to_string(id), true))),
             qPrintable(window->ResultText()));
    QCOMPARE(window->MoveListText(), QString());  // nothing was found to show
  }

  // The long status line of a solve gives way to the register's counters, which stay whole in
  // a window 1000 pixels wide, and is cut to what its place shows. Checked at every report
  // until one of the long lines of the heuristic passes has come.
  void RegisterCountersStayWholeBesideALongStatusLine() {
    constexpr int kLongLine = 100;  // characters: far wider than the place left at 1000 px
    constexpr int kMostReports = 400;
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->resize(1000, 600);
    QVERIFY(window->GoToProblem(LongestProblem(ReadSample())));
    auto* counters = window->findChild<QLabel*>("registerCounters");
    auto* status = window->findChild<QLabel*>("status");
    QVERIFY(counters && status);
    QSignalSpy shown(window.get(), &CMainWindow::ProgressShown);
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StartSolve(false);
    bool bLongLineSeen = false;
    for (int nReport = 0; nReport < kMostReports && !bLongLineSeen; ++nReport) {
      QVERIFY(shown.wait(kSolveTimeoutMs));
      QCoreApplication::processEvents();  // the layout follows the new texts
      const QString where = QString("%1 px of %2 for \"%3\" beside \"%4\" in %5 px")
                                .arg(counters->width())
                                .arg(counters->sizeHint().width())
                                .arg(counters->text(), status->text())
                                .arg(status->width());
      QVERIFY2(counters->width() >= counters->sizeHint().width(), qPrintable(where));
      QVERIFY2(status->fontMetrics().horizontalAdvance(status->text()) <= status->width(),
               qPrintable(where));
      bLongLineSeen = window->StatusText().size() > kLongLine;
    }
    QVERIFY(bLongLineSeen);
    window->StopSolve();
    QVERIFY(reported.wait(kSolveTimeoutMs));
  }

  void ClosingTheWindowDuringASolveStopsIt() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->GoToProblem(LongestProblem(ReadSample())));
    window->StartSolve(false);
    QVERIFY(window->IsSolving());
    QVERIFY(window->close());
    // The solve must end before the problems it reads go, and at once: a solve that went on
    // reading a freed problem ran for a minute on a stipulation of garbage.
    QElapsedTimer clock;
    clock.start();
    window.reset();
    QVERIFY2(clock.elapsed() < 10000, qPrintable(QString::number(clock.elapsed())));
  }

  void StatusLineItemsComeFromTheSnapshot_data() {
    QTest::addColumn<QString>("pass");
    QTest::addColumn<QString>("heuristics");
    QTest::addColumn<double>("share");
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<QString>("line");
    QTest::newRow("pass 2 starts")
        << "2"
        << "" << 0.0 << qint64{0} << "Pass 2 SH() 5# Thrds=4 0.0% 98765 0:00";
    QTest::newRow("pass 1b, an hour")
        << "1b"
        << "SH_DONTLETKINGMOVE" << 0.125 << qint64{3665}
        << "Pass 1b SH(SH_DONTLETKINGMOVE) 5# Thrds=4 12.5% 98765 1:01:05";
  }
  void StatusLineItemsComeFromTheSnapshot() {
    QFETCH(QString, pass);
    QFETCH(QString, heuristics);
    QFETCH(double, share);
    QFETCH(qint64, seconds);
    QFETCH(QString, line);
    TPassProgress progress;
    progress.sPass = pass.toStdString();
    progress.sHeuristics = heuristics.toStdString();
    progress.nMoves = 5;
    progress.nThreads = 4;
    progress.dShareDone = share;
    progress.nPositions = 98765;
    progress.nElapsedSeconds = seconds;
    QCOMPARE(QString::fromStdString(ComposeStatusLine(StatusItemsOf(progress), 200)), line);
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CSolvingWindowTest>(); });

#include "SolvingWindowTest.moc"
