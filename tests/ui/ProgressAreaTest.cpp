// The progress area during a solve: the peek at one thread's first move and back to all of
// them, and the size of the area from its menu entry and from its button.
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include "UiTestMain.h"
#include "app/ui/StepControl.h"

namespace {

constexpr int kReportTimeoutMs = 60000;
// Reports looked at before a thread must have been seen on a first move of its own.
constexpr int kReportsToSeeAMove = 40;

}  // namespace

class CProgressAreaTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  // With two threads the control goes A, 1, 2, A up and back down; a thread peeked at shows
  // the first move it searches.
  void PeekShowsEachThreadsFirstMoveAndAllAgain() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->GoToProblem(LongestSampleProblem()));
    auto* peek = window->findChild<CStepControl*>("peek");
    auto* progress = window->findChild<QLabel*>("progress");
    QVERIFY(peek && progress);
    window->askText = [](const QString&, const QString&, const QString&) {
      return std::optional<QString>("2");
    };
    window->Action("threadsHelp")->trigger();
    QSignalSpy shown(window.get(), &CMainWindow::ProgressShown);
    window->StartSolve(false);
    QVERIFY(window->IsSolving());
    QVERIFY(shown.wait(kReportTimeoutMs));
    const QRegularExpression all("^(\\d+)/(\\d+) \\S+$");
    QVERIFY2(all.match(progress->text()).hasMatch(), qPrintable(progress->text()));

    const struct {
      int direction;
      const char* text;
    } steps[] = {{1, "1"}, {1, "2"}, {1, "A"}, {-1, "2"}, {-1, "1"}};
    for (const auto& step : steps) {
      Q_EMIT peek->Stepped(step.direction, Qt::LeftButton);
      QCOMPARE(peek->Text(), QString(step.text));
      const QString text = progress->text();
      if (*step.text == 'A')
        QVERIFY2(all.match(text).hasMatch(), qPrintable(text));
      else
        QVERIFY2(text.startsWith(QString("Thread %1: ").arg(step.text)), qPrintable(text));
    }

    // Thread 1 takes first moves of its own: one of them is shown at some report.
    const QRegularExpression own("^Thread 1: (\\d+)/(\\d+) \\S+$");
    bool bOwnMove = false;
    for (int n = 0; n < kReportsToSeeAMove && !bOwnMove; ++n) {
      QVERIFY(shown.wait(kReportTimeoutMs));
      const QRegularExpressionMatch match = own.match(progress->text());
      bOwnMove = match.hasMatch();
      if (bOwnMove) QVERIFY(match.captured(1).toInt() <= match.captured(2).toInt());
    }
    QVERIFY2(bOwnMove, qPrintable(progress->text()));

    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StopSolve();
    QVERIFY(reported.wait(kReportTimeoutMs));
  }

  // The menu entry and the button step through the same sizes; the button's arrow shows
  // where the next click goes.
  void ProgressAreaGoesLargeThenAwayThenBack() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    auto* moves = window->findChild<QPlainTextEdit*>("moveList");
    auto* result = window->findChild<QPlainTextEdit*>("result");
    auto* button = window->findChild<QToolButton*>("progressSize");
    QVERIFY(moves && result && button);
    QCOMPARE(button->toolTip(), QString("Click to change size of progress information area"));
    const auto shown = [&] { return std::pair{moves->isVisible(), result->isVisible()}; };
    const struct {
      std::pair<bool, bool> visible;  // the move list, the result area
      Qt::ArrowType arrow;
    } steps[] = {
        {{false, true}, Qt::DownArrow}, {{true, false}, Qt::UpArrow}, {{true, true}, Qt::UpArrow}};
    for (const bool bButton : {false, true}) {
      QCOMPARE(shown(), std::pair(true, true));
      for (const auto& step : steps) {
        if (bButton)
          QTest::mouseClick(button, Qt::LeftButton);
        else
          window->Action("progressArea")->trigger();
        QCOMPARE(shown(), step.visible);
        QCOMPARE(button->arrowType(), step.arrow);
      }
    }
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CProgressAreaTest>(); });

#include "ProgressAreaTest.moc"
