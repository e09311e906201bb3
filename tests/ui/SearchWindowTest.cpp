// The problem search from the window: the dialog's validation texts, the problems a search
// selects and the walk through them with F3 and Shift+F3, similar positions, and the search by
// heuristics with its question, its steps and its Stop.
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "UiTestMain.h"
#include "app/ProblemSearch.h"
#include "app/ui/ProblemSearchDialog.h"
#include "problems/HeuristicCatalogue.h"

namespace {

TProblemCollection ReadSample() {
  TProblemCollection problems;
  problems.ReadFile(SampleFilePath().toStdString(), {});
  return problems;
}

CProblemSearchDialog* OpenDialog(CMainWindow& window) {
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
  return window.findChild<CProblemSearchDialog*>("problemSearch");
}

// Types into the field of that name and clicks Find; the dialog's error text.
QString FindWith(CProblemSearchDialog& dialog, const QString& field, const QString& text) {
  dialog.findChild<QLineEdit*>(field)->setText(text);
  QTest::mouseClick(dialog.findChild<QPushButton*>("find"), Qt::LeftButton);
  return dialog.findChild<QLabel*>("error")->text();
}

QString ProblemText(int id, const QString& fen) {
  return QString("%1 #2\n{\n\tFEN: %2\n}\n\n").arg(id).arg(fen);
}

}  // namespace

class CSearchWindowTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void DialogNamesTheFirstWrongField_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("fen") << "fen"
                         << "8/8/x"
                         << "Improper FEN code.";
    QTest::newRow("moves") << "movesFrom"
                           << "three"
                           << "Improper number of moves";
    for (int field = 0; field < kCountFields; ++field)
      QTest::newRow(qPrintable(QString("count %1").arg(field)))
          << QString("to%1").arg(field) << "many"
          << ImproperCountText(static_cast<ECountField>(field));
  }
  void DialogNamesTheFirstWrongField() {
    QFETCH(QString, field);
    QFETCH(QString, text);
    QFETCH(QString, refusal);
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    CProblemSearchDialog* dialog = OpenDialog(*window);
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(FindWith(*dialog, field, text), refusal);
    QVERIFY(dialog->isVisible());
    QVERIFY(window->FoundProblems().empty());
    // Reset empties every field: nothing restricts, and every problem is found.
    QTest::mouseClick(dialog->findChild<QPushButton*>("reset"), Qt::LeftButton);
    QCOMPARE(dialog->findChild<QLineEdit*>(field)->text(), QString());
    QCOMPARE(dialog->ErrorText(), QString());
  }

  void SearchSelectsTheProblemsAndF3WalksThem() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    const TProblemCollection sample = ReadSample();
    std::vector<int> threeMovers;
    for (const auto& [id, problem] : sample.Problems())
      if (problem->stipulation.Moves() == 3) threeMovers.push_back(id);
    QVERIFY(threeMovers.size() >= 2);
    CProblemSearchDialog* dialog = OpenDialog(*window);
    QVERIFY(dialog);
    dialog->findChild<QLineEdit*>("movesFrom")->setText("3");
    QCOMPARE(FindWith(*dialog, "movesTo", "3"), QString());
    QVERIFY(!dialog->isVisible());
    QCOMPARE(window->FoundProblems(), threeMovers);
    QCOMPARE(TakeMessage(*window),
             QString("Found problems that match criteria: %1 (use F3/Shift+F3 to navigate to "
                     "next/previous matching problem)")
                 .arg(threeMovers.size()));
    QCOMPARE(window->CurrentId(), threeMovers[0]);
    const QString navigation = QString("Problem %1 of %2 that match criteria");
    QCOMPARE(window->StatusText(), navigation.arg(1).arg(threeMovers.size()));
    QTest::keyClick(window.get(), Qt::Key_F3);
    QCOMPARE(window->CurrentId(), threeMovers[1]);
    QCOMPARE(window->StatusText(), navigation.arg(2).arg(threeMovers.size()));
    QTest::keyClick(window.get(), Qt::Key_F3, Qt::ShiftModifier);
    QTest::keyClick(window.get(), Qt::Key_F3, Qt::ShiftModifier);  // none before the first
    QCOMPARE(window->CurrentId(), threeMovers[0]);

    // The dialog comes back with the last criteria; a text no description holds finds none.
    dialog = OpenDialog(*window);
    QCOMPARE(dialog->findChild<QLineEdit*>("movesFrom")->text(), QString("3"));
    QCOMPARE(FindWith(*dialog, "text", "no such composer anywhere"), QString());
    QCOMPARE(TakeMessage(*window), QString("No problem found that matches search criteria"));
    QVERIFY(window->FoundProblems().empty());
  }

  void SimilarPositionsLeaveTheShownOneOut() {
    QTemporaryDir folder;
    const QString path = folder.filePath("similar.cp");
    QVERIFY(WriteProblemFile(path, ProblemText(1, "5Q2/8/8/R7/8/1k6/4K3/8") +
                                       ProblemText(2, "6Q1/8/8/R7/8/1k6/4K3/8") +
                                       ProblemText(3, "8/8/8/8/8/8/6k1/4K2R") +
                                       ProblemText(4, "5Q2/8/8/R7/8/1k6/4K3/8")));
    auto window = OpenSampleWindow();
    QVERIFY(window && window->OpenFile(path));
    window->Action("findSimilar")->trigger();
    QCOMPARE(window->FoundProblems(), (std::vector<int>{4, 2}));  // the best first
    QCOMPARE(TakeMessage(*window),
             QString("Only similar positions found\nFound similar problems: 2"));
    QCOMPARE(window->CurrentId(), 4);
  }

  void HeuristicsSearchAsksFirstAndRunsInStepsUntilStopped() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    TSearchCriteria criteria;
    criteria.heuristics.push_back(
        {heuristics::IndexOfName(heuristics::Catalogue()[0].name), EHeuristicUse::WithOthers});
    AnswerNextQuestion(QMessageBox::No);
    QCOMPARE(window->FindProblems(criteria), QString("The search was not started."));
    QVERIFY(!window->IsSearching());

    QSignalSpy finished(window.get(), &CMainWindow::SearchFinished);
    AnswerNextQuestion(QMessageBox::Yes);
    QCOMPARE(window->FindProblems(criteria), QString());
    QVERIFY(window->IsSearching());  // the window answers while it goes on
    QVERIFY(finished.wait(10000));
    QVERIFY(!window->IsSearching());
    const TProblemCollection sample = ReadSample();
    const TSearchResult expected =
        CProblemSearch(std::get<TSearchQuery>(CheckCriteria(criteria))).Run(sample);
    QCOMPARE(window->FoundProblems().size(), expected.hits.size());
    TakeMessage(*window);

    AnswerNextQuestion(QMessageBox::Yes);
    QCOMPARE(window->FindProblems(criteria), QString());
    auto* stop = window->findChild<QPushButton*>("stopSearch");
    QVERIFY(stop);
    QTest::mouseClick(stop, Qt::LeftButton);
    QCOMPARE(finished.count(), 2);
    QVERIFY(!window->IsSearching());
    QCOMPARE(window->findChild<QPushButton*>("stopSearch"), nullptr);
  }

  void HeuristicsSearchWaitsForTheSolve() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    int nLongest = 0;
    const TProblemCollection sample = ReadSample();
    for (const auto& [id, problem] : sample.Problems())
      if (problem->stipulation.Moves() > nLongest) {
        nLongest = problem->stipulation.Moves();
        QVERIFY(window->GoToProblem(id));
      }
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StartSolve(false);
    QVERIFY(window->IsSolving());
    TSearchCriteria criteria;
    criteria.heuristics.push_back({0, EHeuristicUse::Alone});
    QCOMPARE(window->FindProblems(criteria),
             QString("Problem solving is pending - search by heuristics is unavailable until "
                     "solving is complete."));
    window->StopSolve();
    QVERIFY(reported.wait(60000));
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CSearchWindowTest>(); });

#include "SearchWindowTest.moc"
