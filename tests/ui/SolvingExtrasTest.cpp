// Solving beyond the key from the window: the whole solution tree after Alt+F5, Black's best
// defence while a solution is played out, the board's pop-up during a solve with the copy of
// the position for another copy of the program, and the Help menu's manual and threads.
#include <QFile>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextBrowser>

#include "UiTestMain.h"
#include "app/Options.h"
#include "app/ui/BoardView.h"
#include "app/ui/StepControl.h"
#include "core/Fen.h"

namespace {

constexpr int kTaskTimeoutMs = 120000;
// The sample's second problem: 5Q2/8/8/R7/8/1k6/4K3/8, mate in 2 by Ra5-b5.
constexpr int kMateInTwo = 2;

}  // namespace

class CSolvingExtrasTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void AltF5ShowsTheTreeAndPlaysTheMainVariation() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QVERIFY(window->GoToProblem(kMateInTwo));
    QSignalSpy finished(window.get(), &CMainWindow::TaskFinished);
    QTest::keyClick(window.get(), Qt::Key_F5, Qt::AltModifier);
    QVERIFY(window->IsSolving());
    QVERIFY(finished.wait(kTaskTimeoutMs));
    const QString tree = window->SolutionTreeText();
    QVERIFY2(tree.startsWith("Main variation: 1. Ra5-b5 "), qPrintable(tree));
    QVERIFY(tree.contains("(best)"));
    QVERIFY(window->ResultText().contains(tree));
    // Key, best defence and mate stand on the board.
    QCOMPARE(window->Line().MovesPlayed(), 3);
    QVERIFY(window->Line().IsMate());
    QVERIFY(window->MoveListText().startsWith("1. Ra5-b5 "));
  }

  void F5WhilePlayingOutPlaysBlacksBestDefence() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QVERIFY(window->GoToProblem(kMateInTwo));
    QVERIFY(window->PlayMove(square::Make(0, 4), square::Make(1, 4)));
    QSignalSpy finished(window.get(), &CMainWindow::TaskFinished);
    for (bool bThorough : {false, true}) {
      if (bThorough)
        Q_EMIT window->Board()->SquareClicked(0, Qt::RightButton);
      else
        QTest::keyClick(window.get(), Qt::Key_F5);
      QVERIFY(!window->IsSolving());  // no solve: the defence is sought beside
      QVERIFY(finished.wait(kTaskTimeoutMs));
      QCOMPARE(window->Line().MovesPlayed(), 2);
      QVERIFY(window->ResultText().contains("Best defence: "));
      // White still mates at once after it: some White move ends in mate.
      bool bMate = false;
      for (TMove move : window->Line().LegalMoves()) {
        TPlayedLine after = window->Line();
        bMate = bMate || (after.Play(move) && after.IsMate());
      }
      QVERIFY(bMate);
      window->Action("moveBack")->trigger();
    }
    // With White to move there is nothing to defend.
    window->Action("moveBack")->trigger();
    window->Action("bestDefence")->trigger();
    QCOMPARE(TakeMessage(*window), QString("Play White's move first, within the stipulation."));
  }

  void BoardPopUpDuringASolveCopiesThePositionForANewInstance() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->GoToProblem(LongestSampleProblem()));
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StartSolve(false);
    QVERIFY(window->IsSolving());
    Q_EMIT window->Board()->SquareClicked(0, Qt::RightButton);
    auto* menu = window->findChild<QMenu*>("boardMenu");
    QVERIFY(menu);
    QStringList enabled, disabled;
    for (QAction* action : menu->actions())
      if (!action->isSeparator()) (action->isEnabled() ? enabled : disabled) << action->text();
    QCOMPARE(enabled,
             (QStringList{"Copy position to clipboard", "Copy FEN of the position to clipboard",
                          "Display position in new instance of program"}));
    QCOMPARE(disabled, (QStringList{"Shift current move to be analyzed as the last one",
                                    "Swap order of analysis with the next move",
                                    "Skip to analysis of next move"}));
    QStringList started;
    window->startProgram = [&started](const QString& program, const QStringList& arguments) {
      started = QStringList{program} + arguments;
      return true;
    };
    menu->actions().at(2)->trigger();
    menu->close();
    QCOMPARE(started.size(), 2);
    TProblemCollection copy;
    QVERIFY(!copy.ReadFile(started.at(1).toStdString(), {}));
    QCOMPARE(copy.Size(), std::size_t{1});
    const TProblem& shown = *copy.Problems().begin()->second;
    QCOMPARE(QString::fromStdString(fen::WriteShortFen(shown.start)), ShownFen(*window));
    QCOMPARE(shown.stipulation.Moves(), window->CurrentProblem()->stipulation.Moves());
    QFile::remove(started.at(1));
    // The main menu's entry follows the setting each time its menu opens.
    QAction* skip = window->Action("skipMove");
    QVERIFY(!skip->isEnabled());
    Options().bEnableManualEngineControl = true;
    auto* advanced = qobject_cast<QMenu*>(skip->associatedObjects().front());
    QVERIFY(advanced);
    Q_EMIT advanced->aboutToShow();
    QVERIFY(skip->isEnabled());
    Options().bEnableManualEngineControl = false;
    window->StopSolve();
    QVERIFY(reported.wait(kTaskTimeoutMs));
  }

  void HelpShowsTheManualInTheLanguageAndSetsThreads() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->Action("manual")->trigger();
    auto* manual = window->findChild<QTextBrowser*>("documentText");
    QVERIFY(manual);
    QVERIFY(manual->toPlainText().contains("Longmate — quick start"));
    window->Action("readme")->trigger();
    window->askText = [](const QString&, const QString&, const QString&) {
      return std::optional<QString>("99");
    };
    window->Action("threadsHelp")->trigger();
    QVERIFY(!TakeMessage(*window).isEmpty());  // refused
    window->askText = [](const QString&, const QString&, const QString&) {
      return std::optional<QString>("3");
    };
    window->Action("threadsHelp")->trigger();
    QVERIFY(window->findChild<CStepControl*>("threads")->Text().trimmed().startsWith("3thrd"));
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CSolvingExtrasTest>(); });

#include "SolvingExtrasTest.moc"
