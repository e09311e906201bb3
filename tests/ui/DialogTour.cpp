// Not checks: with LONGMATE_SCREENSHOTS naming a folder, the dialogs and pop-ups of the
// variants, the search, the sort indications, the solution tree and the manual are saved
// there as PNGs for a person to look at (scripts/screenshots.sh). Skipped otherwise.
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "UiTestMain.h"
#include "app/Options.h"
#include "app/ui/BoardView.h"
#include "app/ui/ProblemSearchDialog.h"
#include "app/ui/SortIndicationsDialog.h"

namespace {

// The layouts a change asked for are done before the picture is taken.
bool Save(QWidget* widget, const QString& folder, const char* name) {
  if (!widget || !QTest::qWaitForWindowExposed(widget)) return false;
  QCoreApplication::sendPostedEvents();
  return widget->grab().save(QDir(folder).filePath(name));
}

}  // namespace

class CDialogTour : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void TakesTheDialogsThroughTypicalStates() {
    const QString folder = qEnvironmentVariable("LONGMATE_SCREENSHOTS");
    if (folder.isEmpty()) QSKIP("LONGMATE_SCREENSHOTS names no folder");
    QVERIFY(QDir().mkpath(folder));
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->resize(1000, 640);
    QVERIFY(window->GoToProblem(2));

    window->Action("sortIndications")->trigger();
    auto* sort = window->findChild<CSortIndicationsDialog*>("sortIndications");
    sort->Field()->setText("1. Ra5-b5+, ~Qf8-f7, 0-0-");
    sort->accept();
    QVERIFY(Save(sort, folder, "10-sort-indications.png"));
    sort->reject();

    window->Action("findProblem")->trigger();
    auto* search = window->findChild<CProblemSearchDialog*>("problemSearch");
    search->findChild<QLineEdit*>("movesFrom")->setText("3");
    search->findChild<QLineEdit*>("from3")->setText("x");
    search->accept();
    QVERIFY(Save(search, folder, "11-problem-search.png"));
    search->findChild<QLineEdit*>("from3")->clear();
    search->findChild<QLineEdit*>("movesTo")->setText("3");
    search->accept();
    TakeMessage(*window);
    window->Action("findNext")->trigger();
    QVERIFY(window->AddTag("miniature"));
    QVERIFY(window->AddTag("1st prize"));
    QVERIFY(Save(window.get(), folder, "12-search-status-and-tags.png"));

    QVERIFY(window->GoToProblem(2));
    QSignalSpy finished(window.get(), &CMainWindow::TaskFinished);
    window->Action("solveTree")->trigger();
    QVERIFY(finished.wait(120000));
    QVERIFY(window->SaveVariant(true));
    QVERIFY(window->SetMoveComment("mate"));
    QVERIFY(Save(window.get(), folder, "13-solution-tree.png"));

    auto* moves = window->findChild<QPlainTextEdit*>("moveList");
    Q_EMIT moves->customContextMenuRequested(QPoint(5, 5));
    QVERIFY(Save(window->findChild<QMenu*>("moveListMenu"), folder, "14-variant-list.png"));
    window->findChild<QMenu*>("moveListMenu")->close();

    Options().bEnableManualEngineControl = true;
    int nLongest = 0, idLongest = 0;
    for (int id = 1; window->GoToProblem(id); ++id)
      if (window->CurrentProblem()->stipulation.Moves() > nLongest) {
        nLongest = window->CurrentProblem()->stipulation.Moves();
        idLongest = id;
      }
    QVERIFY(window->GoToProblem(idLongest));
    QSignalSpy reported(window.get(), &CMainWindow::SolveReported);
    window->StartSolve(false);
    Q_EMIT window->Board()->SquareClicked(0, Qt::RightButton);
    QVERIFY(Save(window->findChild<QMenu*>("boardMenu"), folder, "15-board-menu-solving.png"));
    window->findChild<QMenu*>("boardMenu")->close();
    window->StopSolve();
    QVERIFY(reported.wait(60000));
    Options().bEnableManualEngineControl = false;

    window->Action("manual")->trigger();
    QVERIFY(Save(window->findChild<QDialog*>("document"), folder, "16-manual.png"));
    window->findChild<QDialog*>("document")->close();

    const QString previous = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder));  // the language is kept in options.ini there
    window->SetLanguage(0);
    window->Action("findProblem")->trigger();
    QVERIFY(Save(window->findChild<CProblemSearchDialog*>("problemSearch"), folder,
                 "17-polish-search.png"));
    window->findChild<CProblemSearchDialog*>("problemSearch")->reject();
    window->Action("manual")->trigger();
    QVERIFY(Save(window->findChild<QDialog*>("document"), folder, "18-polish-manual.png"));
    window->findChild<QDialog*>("document")->close();
    window->SetLanguage(kEnglishLanguageId);
    QVERIFY(QDir::setCurrent(previous));
  }
};

static const bool bRegistered = RegisterUiTest([] { return std::make_unique<CDialogTour>(); });

#include "DialogTour.moc"
