// The window driven through its widgets, keys and menus: navigation, stipulation, files,
// position setting, the clipboard and moves played on the board.
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include "UiTestMain.h"
#include "app/IniFile.h"
#include "app/Options.h"
#include "app/ui/BoardView.h"
#include "app/ui/PiecePalette.h"
#include "app/ui/StepControl.h"
#include "core/Fen.h"

namespace {

SquareIndex Sq(const char* name) {
  return square::Make(name[0] - 'a', name[1] - '1');
}

void ClickSquare(CBoardView* board, const char* name, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mouseClick(board, button, Qt::NoModifier, board->SquareRect(Sq(name)).center());
}

void DragPiece(CBoardView* board, const char* from, const char* to) {
  const QPoint start = board->SquareRect(Sq(from)).center();
  const QPoint end = board->SquareRect(Sq(to)).center();
  QTest::mousePress(board, Qt::LeftButton, Qt::NoModifier, start);
  QTest::mouseMove(board, (start + end) / 2);
  QTest::mouseMove(board, end);
  QTest::mouseRelease(board, Qt::LeftButton, Qt::NoModifier, end);
}

void ClickStep(CStepControl* control, bool bUp, Qt::MouseButton button) {
  QTest::mouseClick(control, button, Qt::NoModifier,
                    QPoint(control->width() / 2, bUp ? 2 : control->height() - 2));
}

}  // namespace

class CMainWindowTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void NavigatesTheSampleFileByKeys() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    TProblemCollection reference;
    QVERIFY(!reference.ReadFile(SampleFilePath().toStdString(), {}));
    const auto& problems = reference.Problems();
    const int first = problems.begin()->first, last = problems.rbegin()->first;
    QCOMPARE(window->CurrentId(), first);
    QCOMPARE(ShownFen(*window),
             QString::fromStdString(fen::WriteShortFen(problems.at(first)->start)));
    QTest::keyClick(window.get(), Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(window->CurrentId(), last);
    QTest::keyClick(window.get(), Qt::Key_Left);
    QCOMPARE(window->CurrentId(), std::prev(problems.end(), 2)->first);
    QTest::keyClick(window.get(), Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(window->CurrentId(), last);
    QTest::keyClick(window.get(), Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(window->CurrentId(), last);
    QTest::keyClick(window.get(), Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(window->CurrentId(), first);
    QTest::keyClick(window.get(), Qt::Key_Left);
    QCOMPARE(window->CurrentId(), first);
    QVERIFY(!window->GoToProblem(last + 1));
    QVERIFY(window->GoToProblem(last));
    QCOMPARE(ShownFen(*window),
             QString::fromStdString(fen::WriteShortFen(problems.at(last)->start)));
  }

  void StipulationArrowsChangeTheProblemThatIsSaved() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    const int nMoves = window->CurrentProblem()->stipulation.Moves();
    auto* control = window->findChild<CStepControl*>("stipulation");
    ClickStep(control, true, Qt::LeftButton);
    ClickStep(control, true, Qt::RightButton);
    ClickStep(control, false, Qt::LeftButton);
    QCOMPARE(window->CurrentProblem()->stipulation.Moves(), nMoves + 10);
    QCOMPARE(control->Text(), QString("#%1").arg(nMoves + 10));
    for (int i = 0; i < 20; ++i) ClickStep(control, false, Qt::RightButton);
    QCOMPARE(window->CurrentProblem()->stipulation.Moves(), 1);  // never below one move
    ClickStep(control, true, Qt::LeftButton);
    QVERIFY(window->IsModified());

    QTemporaryDir folder;
    const QString path = folder.filePath("saved.cp");
    QVERIFY(window->SaveFile(path));
    QVERIFY(!window->IsModified());
    TProblemCollection saved, sample;
    QVERIFY(!saved.ReadFile(path.toStdString(), {}));
    QVERIFY(!sample.ReadFile(SampleFilePath().toStdString(), {}));
    QCOMPARE(saved.Size(), sample.Size());
    QCOMPARE(saved.Find(window->CurrentId())->stipulation.Moves(), 2);
  }

  void AsksBeforeChangesAreDropped() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->Action("stipulationUp")->trigger();
    QVERIFY(window->IsModified());
    AnswerNextQuestion(QMessageBox::Cancel);
    QVERIFY(!window->OpenFile(SampleFilePath()));
    QVERIFY(window->IsModified());
    AnswerNextQuestion(QMessageBox::Discard);
    QVERIFY(window->OpenFile(SampleFilePath()));
    QVERIFY(!window->IsModified());
  }

  void SetsUpAPositionWithThePaletteAndUndo() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    CBoardView* board = window->Board();
    QTest::mouseClick(window->findChild<QWidget*>("settingButton"), Qt::LeftButton);
    QVERIFY(window->IsSettingMode());
    auto* palette = window->findChild<CPiecePalette*>("palette");
    QVERIFY(palette->isVisible());
    QTest::mouseClick(palette->findChild<QWidget*>("paletteClear"), Qt::LeftButton);
    QCOMPARE(ShownFen(*window), QString("8/8/8/8/8/8/8/8"));
    const std::pair<PieceCode, const char*> placed[] = {{piece::kWhiteKing, "e1"},
                                                        {piece::kBlackKing, "h8"},
                                                        {piece::kWhiteQueen, "d6"},
                                                        {piece::kWhiteRook, "h1"}};
    for (const auto& [code, where] : placed) {
      QTest::mouseClick(palette->findChild<QToolButton*>(QString("palette%1").arg(code)),
                        Qt::LeftButton);
      ClickSquare(board, where);
    }
    DragPiece(board, "d6", "g6");
    QCOMPARE(ShownFen(*window), QString("7k/8/6Q1/8/8/8/8/4K2R"));
    // The rook gives check: the position is refused and the mode stays on.
    window->SetSettingMode(false);
    QCOMPARE(TakeMessage(*window),
             QString("Invalid position: Black king cannot be checked in starting position."));
    QVERIFY(window->IsSettingMode());
    ClickSquare(board, "h1", Qt::RightButton);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);  // the rook is back
    QCOMPARE(ShownFen(*window), QString("7k/8/6Q1/8/8/8/8/4K2R"));
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);  // the drag is undone
    QTest::keyClick(window.get(), Qt::Key_Y, Qt::ControlModifier);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);  // and the rook goes
    QCOMPARE(ShownFen(*window), QString("7k/8/3Q4/8/8/8/8/4K3"));
    window->SetSettingMode(false);
    QCOMPARE(TakeMessage(*window), QString());
    QVERIFY(!window->IsSettingMode());
    QVERIFY(window->IsModified());
    QCOMPARE(QString::fromStdString(fen::WriteShortFen(window->CurrentProblem()->start)),
             QString("7k/8/3Q4/8/8/8/8/4K3"));
  }

  void PastesAndCopiesFenThroughTheClipboard() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QApplication::clipboard()->setText("  8/8/8/8/8/1k6/8/1K2Q3 w - - 0 1\n");
    QTest::keyClick(window.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(TakeMessage(*window), QString());
    QCOMPARE(ShownFen(*window), QString("8/8/8/8/8/1k6/8/1K2Q3"));
    QVERIFY(window->IsModified());
    QApplication::clipboard()->clear();
    QTest::keyClick(window.get(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("8/8/8/8/8/1k6/8/1K2Q3"));
    window->Action("copyFullFen")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QString("8/8/8/8/8/1k6/8/1K2Q3 w - - 0 1"));
    const std::pair<const char*, const char*> refused[] = {
        {"not a position", "Improper FEN code"},
        {"8/8/8/8/8/8/8/8", "Illegal number of kings."},
        {"k7/8/8/8/8/8/8/R3K3",
         "Invalid position: Black king cannot be checked in starting position."}};
    for (const auto& [text, reason] : refused) {
      QApplication::clipboard()->setText(text);
      window->Action("paste")->trigger();
      QCOMPARE(TakeMessage(*window), QString(reason));
      QCOMPARE(ShownFen(*window), QString("8/8/8/8/8/1k6/8/1K2Q3"));
    }
  }

  void PlaysLegalMovesByClickAndDrag() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->PastePosition("k7/2P5/1K6/8/8/8/8/8"));
    CBoardView* board = window->Board();
    ClickSquare(board, "b6");
    ClickSquare(board, "b8");  // not a king's move: refused
    QCOMPARE(window->Line().MovesPlayed(), 0);
    std::vector<PieceCode> offered;
    window->choosePromotion = [&offered](const std::vector<PieceCode>& types) {
      offered = types;
      return piece::kRook;
    };
    ClickSquare(board, "c7");
    ClickSquare(board, "c8");
    QCOMPARE(offered.size(), std::size_t{4});
    QCOMPARE(window->MoveListText(), QString("1. c7-c8R"));
    window->Action("moveBack")->trigger();
    QCOMPARE(window->MoveListText(), QString());
    DragPiece(board, "b6", "c6");
    QCOMPARE(window->MoveListText(), QString("1. Kb6-c6"));
    DragPiece(board, "c6", "c5");  // Black is to move: refused
    DragPiece(board, "a8", "b8");  // into the pawn's attack: refused
    DragPiece(board, "a8", "a7");
    window->Action("moveBack")->trigger();
    window->Action("redoMove")->trigger();
    QCOMPARE(window->MoveListText(), QString("1. Kb6-c6 Ka8-a7"));
    QCOMPARE(board->Squares()[Sq("a7")], piece::kBlackKing);
  }

  void BoardSquaresAreFoundWhereTheyAreDrawn_data() {
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("rotated");
    for (int size : {160, 333, 900})
      for (bool bRotated : {false, true})
        QTest::addRow("%d %s", size, bRotated ? "rotated" : "upright") << size << bRotated;
  }
  void BoardSquaresAreFoundWhereTheyAreDrawn() {
    QFETCH(int, size);
    QFETCH(bool, rotated);
    CBoardView board;
    board.resize(size, size);
    board.SetRotated(rotated);
    for (int s = 0; s < 64; ++s) {
      const QRect box = board.SquareRect(static_cast<SquareIndex>(s));
      QVERIFY(board.rect().contains(box));
      QCOMPARE(board.SquareAt(box.center()), static_cast<SquareIndex>(s));
      QCOMPARE(board.SquareAt(box.topLeft()), static_cast<SquareIndex>(s));
    }
    const QRect a1 = board.SquareRect(Sq("a1")), h8 = board.SquareRect(Sq("h8"));
    QCOMPARE(a1.left() < h8.left(), !rotated);
    QCOMPARE(a1.top() > h8.top(), !rotated);
    QCOMPARE(board.SquareAt(QPoint(0, 0)), square::kNone);
  }

  void LanguageMenuRelabelsAtOnceAndKeepsTheChoice_data() {
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("fileMenu");
    QTest::addColumn<QString>("solve");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("about");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("Polish") << 0 << "&Plik" << QString::fromUtf8("&Rozwiąż problem\tF5")
                            << QString::fromUtf8("Ustaw pozycję")
                            << QString::fromUtf8(
                                   "Longmate: program rozwiązujący długie maty wprost.")
                            << QString::fromUtf8("Niedozwolona liczba królów.");
    QTest::newRow("Ukrainian") << 2 << QString::fromUtf8("&Файл")
                               << QString::fromUtf8("&Розв'язати задачу\tF5")
                               << QString::fromUtf8("Встановити позицію")
                               << QString::fromUtf8("Longmate: розв'язувач довгих прямих матів.")
                               << QString::fromUtf8("Неприпустима кількість королів.");
    QTest::newRow("English") << 1 << "&File"
                             << "&Solve problem\tF5"
                             << "Set position"
                             << "Longmate: a solver of long direct mates."
                             << "Illegal number of kings.";
  }
  void LanguageMenuRelabelsAtOnceAndKeepsTheChoice() {
    QFETCH(int, language);
    QFETCH(QString, fileMenu);
    QFETCH(QString, solve);
    QFETCH(QString, button);
    QFETCH(QString, about);
    QFETCH(QString, refusal);
    QTemporaryDir folder;
    const QString previous = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));  // where options.ini is written
    CMainWindow window;
    window.Action(QString("language%1").arg(language))->trigger();
    QCOMPARE(window.menuBar()->actions().front()->text(), fileMenu);
    QCOMPARE(window.Action("solve")->text(), solve);
    QCOMPARE(window.findChild<QPushButton*>("settingButton")->text(), button);
    window.Action("about")->trigger();
    QCOMPARE(TakeMessage(window), about);
    QVERIFY(!window.PastePosition("8/8/8/8/8/8/8/8"));
    QCOMPARE(TakeMessage(window), refusal);
    QVERIFY(window.Action(QString("language%1").arg(language))->isChecked());
    CIniFile settings;
    QVERIFY(settings.Load((folder.path() + "/options.ini").toStdString()));
    QCOMPARE(settings.GetInt("chess", "LanguageId", -1), language);
    window.SetLanguage(kEnglishLanguageId);
    QCOMPARE(window.Action("solve")->text(), QString("&Solve problem\tF5"));
    QVERIFY(QDir::setCurrent(previous));
  }

  void MenusStandInOrderAndOfferTheirCommands() {
    CMainWindow window;
    QStringList titles;
    for (QAction* menu : window.menuBar()->actions()) titles << menu->text();
    QCOMPARE(titles,
             (QStringList{"&File", "&Position", "P&roblem", "&View", "Var&iant", "&Advanced",
                          "Priori&ty", "&Help", QString::fromUtf8("&Language/Język/Mова")}));
    QCOMPARE(window.Action("save")->text(), QString("&Save changes\tCtrl + S"));
    QVERIFY(window.Action("solve")->isEnabled());
    // The entries taken by label keep it, and become commands with names.
    QCOMPARE(window.Action("findProblem")->text(), QString("Find problem...\tCtrl+F"));
    QVERIFY(window.Action("findProblem")->isEnabled());
  }
};

static const bool bRegistered = RegisterUiTest([] { return std::make_unique<CMainWindowTest>(); });

#include "MainWindowTest.moc"
