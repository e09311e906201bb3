// The Variant menu and its pop-up, the comments on moves, the tags and the sort indications,
// each checked in the file the window saves.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "UiTestMain.h"
#include "app/Options.h"
#include "app/ui/SortIndicationsDialog.h"
#include "problems/MainVariant.h"

namespace {

// The sample's second problem: 5Q2/8/8/R7/8/1k6/4K3/8, mate in 2 by Ra5-b5.
constexpr int kMateInTwo = 2;

TProblemCollection SavedAndRead(CMainWindow& window, const QString& path) {
  TProblemCollection saved;
  if (window.SaveFile(path)) saved.ReadFile(path.toStdString(), {});
  return saved;
}

// White's key and Black's king to a2.
bool PlayKeyAndFlight(CMainWindow& window) {
  return window.PlayMove(square::Make(0, 4), square::Make(1, 4)) &&
         window.PlayMove(square::Make(1, 2), square::Make(0, 1));
}

}  // namespace

class CProblemEditsTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void VariantsAreSavedShownRenamedAndRemoved() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->GoToProblem(kMateInTwo));
    QVERIFY(!window->SaveVariant(true));  // no moves played
    QCOMPARE(TakeMessage(*window), QString("Play the moves of the variant first."));
    QVERIFY(!window->SetMoveComment("none"));
    QVERIFY(window->PlayMove(square::Make(0, 4), square::Make(1, 4)));
    QVERIFY(window->SetMoveComment("the key {checks}"));
    QVERIFY(window->PlayMove(square::Make(1, 2), square::Make(0, 1)));
    QCOMPARE(window->MoveListText(), QString("1. Ra5-b5 {the key checks} Kb3-a2"));
    Options().bShowMainVariant = true;
    window->Action("saveMainVariant")->trigger();
    QVERIFY(window->DescriptionText().contains("Main variant: 1. Ra5-b5 {the key checks} Kb3-a2"));
    Options().bShowMainVariant = false;
    window->Action("moveBack")->trigger();
    window->askText = [](const QString&, const QString&, const QString&) {
      return std::optional<QString>("Only the key");
    };
    window->Action("saveVariant")->trigger();

    QTemporaryDir folder;
    TProblemCollection saved = SavedAndRead(*window, folder.filePath("variants.cp"));
    const TProblem* problem = saved.Find(kMateInTwo);
    QVERIFY(problem);
    QCOMPARE(problem->variants,
             (std::vector<std::string>{"1. Ra5-b5 {the key checks} Kb3-a2",
                                       "[Only the key] 1. Ra5-b5 {the key checks}"}));
    QCOMPARE(MainVariantSteps(*problem).size(), std::size_t{2});  // the comment is no move

    // Shown from the start, the comment back in place; the list pop-up names them.
    QVERIFY(window->ShowVariant(1));
    QCOMPARE(window->MoveListText(), QString("1. Ra5-b5 {the key checks}"));
    QStringList offered;
    window->chooseItem = [&offered](const QString&, const QStringList& items) {
      offered = items;
      return 0;
    };
    window->Action("showVariant")->trigger();
    QCOMPARE(offered, (QStringList{"Main variant: 1. Ra5-b5 Kb3-a2", "Only the key"}));
    QCOMPARE(window->MoveListText(), QString("1. Ra5-b5 {the key checks} Kb3-a2"));

    QVERIFY(window->RenameVariant(1, "Key"));
    QVERIFY(window->RenameVariant(0, "Main"));
    QVERIFY(!window->RenameVariant(2, "None"));
    window->Action("copyVariantsShort")->trigger();
    QCOMPARE(QApplication::clipboard()->text(),
             QString("[Main] 1. Rb5+ {the key checks} Ka2\n[Key] 1. Rb5+ {the key checks}"));
    window->Action("removeVariant")->trigger();  // the first, as chosen
    saved = SavedAndRead(*window, folder.filePath("removed.cp"));
    QCOMPARE(saved.Find(kMateInTwo)->variants,
             std::vector<std::string>{"[Key] 1. Ra5-b5 {the key checks}"});
  }

  void AnimationPlaysTheVariantMoveByMove() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->GoToProblem(kMateInTwo));
    QVERIFY(PlayKeyAndFlight(*window));
    QVERIFY(window->PlayMove(square::Make(5, 7), square::Make(0, 7)));
    QVERIFY(window->SaveVariant(true));
    QVERIFY(window->AnimateVariant(0));
    QCOMPARE(window->MoveListText(), QString());  // from the start
    QVERIFY(window->IsAnimating());
    QTRY_COMPARE_WITH_TIMEOUT(window->MoveListText(), QString("1. Ra5-b5"), 5000);
    QTRY_VERIFY_WITH_TIMEOUT(!window->IsAnimating(), 10000);
    QCOMPARE(window->MoveListText(), QString("1. Ra5-b5 Kb3-a2 2. Qf8-a8"));
    // Stopped at once, it shows no more moves.
    QVERIFY(window->AnimateVariant(0));
    window->Action("stopAnimation")->trigger();
    QVERIFY(!window->IsAnimating());
    QCOMPARE(window->MoveListText(), QString());
  }

  void MoveListPopUpOffersTheCommentAndTheVariantList() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->GoToProblem(kMateInTwo));
    QVERIFY(PlayKeyAndFlight(*window));
    auto* moves = window->findChild<QPlainTextEdit*>("moveList");
    Q_EMIT moves->customContextMenuRequested(QPoint(5, 5));
    auto* menu = window->findChild<QMenu*>("moveListMenu");
    QVERIFY(menu);
    QStringList labels;
    for (QAction* action : menu->actions())
      if (!action->isSeparator()) labels << action->text();
    QCOMPARE(labels, (QStringList{"Add/edit comment to to this move", "Save as main variant",
                                  "Save variant as...", "Show main variant", "Show variant...",
                                  "Animate main variant (move by move)", "Animate variant...",
                                  "Stop animating variant", "Rename this variant...",
                                  "Remove variant..."}));
    window->askText = [](const QString&, const QString&, const QString& text) {
      return std::optional<QString>(text.isEmpty() ? "flight" : text);
    };
    menu->actions().front()->trigger();
    menu->close();
    QCOMPARE(window->MoveListText(), QString("1. Ra5-b5 Kb3-a2 {flight}"));
  }

  void TagsAreAddedRemovedAndAppendedFromAnotherFile() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QVERIFY(window->GoToProblem(kMateInTwo));
    window->askText = [](const QString&, const QString&, const QString&) {
      return std::optional<QString>("  miniature ");
    };
    QTest::keyClick(window.get(), Qt::Key_T, Qt::ControlModifier);
    QVERIFY(window->DescriptionText().contains("#miniature"));
    QVERIFY(!window->AddTag("miniature"));  // once only
    QVERIFY(window->AddTag("zeroposition"));
    window->chooseItem = [](const QString&, const QStringList& tags) {
      return static_cast<int>(tags.indexOf("zeroposition"));
    };
    QTest::keyClick(window.get(), Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!window->DescriptionText().contains("zeroposition"));

    // The other file tags the same position and stipulation, and a position of its own.
    QTemporaryDir folder;
    const QString other = folder.filePath("tags.cp");
    QVERIFY(WriteProblemFile(other,
                             "5 #2\n//#TAGS\n//#award\n{\n\tFEN: 5Q2/8/8/R7/8/1k6/4K3/8\n}\n\n"
                             "6 #3\n//#TAGS\n//#other\n{\n\tFEN: 5Q2/8/8/R7/8/1k6/4K3/8\n}\n\n"));
    window->chooseFile = [&other](EFileQuestion) { return other; };
    window->Action("appendTags")->trigger();
    QCOMPARE(TakeMessage(*window), QString("Problems with tags appended: 1."));
    const TProblemCollection saved = SavedAndRead(*window, folder.filePath("tagged.cp"));
    QCOMPARE(saved.Find(kMateInTwo)->tags, (std::set<std::string>{"award", "miniature"}));
  }

  void SortIndicationsDialogRefusesWhatDoesNotReadAndStoresTheRest() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QVERIFY(window->GoToProblem(kMateInTwo));
    QTest::keyClick(window.get(), Qt::Key_W, Qt::ControlModifier);
    auto* dialog = window->findChild<CSortIndicationsDialog*>("sortIndications");
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(dialog->findChild<QLabel*>("syntax")->text(),
             QString("Syntax: [ ~ ] [n.] [F] f1 [| - | : | > ] f2 [ + ]"));
    dialog->Field()->setText("1. Ra5-b5, 0-0-");
    dialog->accept();
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->ErrorText(), QString("Invalid description of SortIndication: 0-0-"));
    QVERIFY(!window->IsModified());
    dialog->Field()->setText("1. Ra5-b5+, ~Qf8-f7");
    dialog->accept();
    QVERIFY(!dialog->isVisible());
    QTemporaryDir folder;
    const QString path = folder.filePath("sorted.cp");
    const TProblemCollection saved = SavedAndRead(*window, path);
    QCOMPARE(sortindication::RenderList(saved.Find(kMateInTwo)->sortIndications),
             std::string("~Qf8-f7, 1. Ra5-b5+"));
  }

  void DescriptionIsEdited() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->SetDescription("  New text Y123 "));
    QVERIFY(window->DescriptionText().contains(">Y123</a>"));
    QCOMPARE(window->CurrentProblem()->description, std::string("New text Y123"));
    QVERIFY(window->IsModified());
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CProblemEditsTest>(); });

#include "ProblemEditsTest.moc"
