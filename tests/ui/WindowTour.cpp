// Not checks: with LONGMATE_SCREENSHOTS naming a folder, the window is taken through a few
// typical states and each is saved there as a PNG, for a person to look at
// (scripts/screenshots.sh); with LONGMATE_MEASURE set, the time the window takes to open with
// the sample file and the longest gap of the event loop during a two-thread solve are printed.
// Skipped otherwise.
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "UiTestMain.h"
#include "app/Options.h"
#include "app/ui/BoardView.h"
#include "app/ui/PiecePalette.h"
#include "app/ui/StepControl.h"

class CWindowTour : public QObject {
  Q_OBJECT
  // The dialogs of the Advanced menu, and the answer of a table command.
  static void SaveDialogs(CMainWindow& window, const QString& folder) {
    const auto grab = [&](const char* name, const char* file) {
      auto* dialog = window.findChild<QDialog*>(name);
      QVERIFY(dialog && QTest::qWaitForWindowExposed(dialog));
      QVERIFY(dialog->grab().save(QDir(folder).filePath(file)));
      dialog->reject();
    };
    window.Action("options")->trigger();
    grab("optionsDialog", "19-options.png");
    window.Action("heuristicsSolve")->trigger();
    window.findChild<QPushButton*>("showPath")->click();
    grab("heuristicsDialog", "20-heuristics.png");
    QSignalSpy reported(&window, &CMainWindow::TaskReported);
    window.Action("tablesStatus")->trigger();
    QVERIFY(reported.wait(60000));
    auto* box = window.findChild<QMessageBox*>("messageBox");
    QVERIFY(box && QTest::qWaitForWindowExposed(box));
    QVERIFY(box->grab().save(QDir(folder).filePath("21-tables-status.png")));
    TakeMessage(window);
  }

 private Q_SLOTS:
  void MeasuresOpeningAndResponsiveness() {
    if (qEnvironmentVariableIsEmpty("LONGMATE_MEASURE")) QSKIP("LONGMATE_MEASURE is not set");
    QElapsedTimer clock;
    clock.start();
    auto window = OpenSampleWindow();
    QVERIFY(window);
    qInfo("window open with the sample file: %lld ms", static_cast<long long>(clock.elapsed()));

    QVERIFY(window->GoToProblem(LongestSampleProblem()));
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StartSolve(true);  // all solutions: the whole tree is searched
    // A timer that should fire every 5 ms: the longest gap between its calls is the longest
    // time the window could not answer, status line redraws included.
    qint64 nLongestGap = 0, nLast = 0;
    int nTicks = 0;
    QElapsedTimer gaps;
    gaps.start();
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] {
      nLongestGap = std::max(nLongestGap, gaps.elapsed() - nLast);
      nLast = gaps.elapsed();
      ++nTicks;
      window->Board()->repaint();  // a frame drawn at every tick
    });
    ticker.start(5);
    QEventLoop loop;
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    loop.exec();
    ticker.stop();
    qInfo(
        "solving (all solutions) with 2 threads for 10 s: %d frames, longest gap %lld ms, %s, "
        "status: %s",
        nTicks, static_cast<long long>(nLongestGap),
        window->IsSolving() ? "still solving" : "solve ended", qPrintable(window->StatusText()));
    window->StopSolve();
    QVERIFY(reported.wait(60000));
  }

  void TakesTheWindowThroughTypicalStates() {
    const QString folder = qEnvironmentVariable("LONGMATE_SCREENSHOTS");
    if (folder.isEmpty()) QSKIP("LONGMATE_SCREENSHOTS names no folder");
    QVERIFY(QDir().mkpath(folder));
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->resize(1000, 640);
    const auto save = [&](const char* name) {
      QApplication::processEvents();  // the layout follows the texts a report has just set
      QVERIFY(window->grab().save(QDir(folder).filePath(name)));
    };
    save("1-sample-open.png");

    QVERIFY(window->GoToProblem(LongestSampleProblem()));
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StartSolve(false);
    QTRY_VERIFY_WITH_TIMEOUT(window->StatusText().contains("Thrds="), 60000);
    save("2-solving.png");
    // The progress line of the first thread alone, then of all again.
    auto* peek = window->findChild<CStepControl*>("peek");
    QVERIFY(peek);
    QSignalSpy shown(window.get(), &CMainWindow::ProgressShown);
    Q_EMIT peek->Stepped(1, Qt::LeftButton);
    QVERIFY(shown.wait(60000));
    save("2b-solving-thread-1.png");
    Q_EMIT peek->Stepped(-1, Qt::LeftButton);
    window->StopSolve();
    QVERIFY(reported.wait(60000));

    QVERIFY(window->GoToProblem(2));
    window->StartSolve(false);
    QVERIFY(reported.wait(60000));
    save("3-result.png");

    window->Board()->SetRotated(true);
    window->SetSettingMode(true);
    window->findChild<CPiecePalette*>("palette")->Choose(piece::kBlackQueen);
    save("4-setting-mode-rotated.png");

    window->SetSettingMode(false);
    window->Board()->SetRotated(false);
    window->Action("selectFromList")->trigger();
    auto* list = window->findChild<QDialog*>("problemList");
    QVERIFY(list && QTest::qWaitForWindowExposed(list));
    QVERIFY(list->grab().save(QDir(folder).filePath("5-problem-list.png")));
    list->reject();

    QVERIFY(window->GoToProblem(2));  // a mate in 2 played out without mate
    const auto sq = [](int file, int rank) { return square::Make(file, rank - 1); };
    QVERIFY(window->PlayMove(sq(4, 2), sq(4, 1)));  // Ke2-e1
    QVERIFY(window->PlayMove(sq(1, 3), sq(1, 2)));  // Kb3-b2
    QVERIFY(window->PlayMove(sq(4, 1), sq(4, 2)));  // Ke1-e2
    save("6-last-move-no-mate.png");
    QVERIFY(window->GoToProblem(LongestSampleProblem()));  // a position with heuristic passes
    SaveDialogs(*window, folder);

    QTemporaryDir files;
    const QString linked = files.filePath("linked.cp");
    QVERIFY(WriteProblemFile(linked,
                             "1 #2\n{\n\tDescription: Y37503 S. Loyd 1859, M139280, see "
                             "https://example.org/loyd.\n\tFEN: "
                             "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n}\n"));
    QVERIFY(window->OpenFile(linked));
    save("7-description-links.png");
    window->Action("copyDiagram")->trigger();
    QVERIFY(QApplication::clipboard()->image().save(QDir(folder).filePath("9-copied-diagram.png")));

    QVERIFY(QDir::setCurrent(folder));  // the language is kept in options.ini there
    window->SetLanguage(0);
    window->SetSettingMode(true);
    save("8-polish-menus-and-buttons.png");
    window->SetSettingMode(false);
    window->Action("options")->trigger();
    auto* options = window->findChild<QDialog*>("optionsDialog");
    QVERIFY(options && QTest::qWaitForWindowExposed(options));
    QVERIFY(options->grab().save(QDir(folder).filePath("22-polish-options.png")));
    options->reject();
    window->SetLanguage(kEnglishLanguageId);
  }
};

static const bool bRegistered = RegisterUiTest([] { return std::make_unique<CWindowTour>(); });

#include "WindowTour.moc"
