// The Position menu's commands beyond FEN copy and paste, the report of a last move without
// mate, the description's links, and the minimised window's notification-area icon.
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QSystemTrayIcon>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include "UiTestMain.h"
#include "app/Options.h"
#include "app/SearchCriteria.h"
#include "app/ui/BoardView.h"
#include "core/Fen.h"

namespace {

SquareIndex Sq(const char* name) {
  return square::Make(name[0] - 'a', name[1] - '1');
}

void DragPiece(CBoardView* board, const char* from, const char* to) {
  const QPoint start = board->SquareRect(Sq(from)).center();
  const QPoint end = board->SquareRect(Sq(to)).center();
  QTest::mousePress(board, Qt::LeftButton, Qt::NoModifier, start);
  QTest::mouseMove(board, end);
  QTest::mouseRelease(board, Qt::LeftButton, Qt::NoModifier, end);
}

}  // namespace

// Stands in for the browser: takes the addresses the window opens.
class CBrowser : public QObject {
  Q_OBJECT
 public:
  QList<QUrl> opened;
 public Q_SLOTS:
  void Open(const QUrl& address) { opened << address; }
};

class CPositionCommandsTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void TurnsSwapsAndShiftsThePosition_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("left") << "shiftLeft"
                          << "Ctrl+L"
                          << "8/8/8/8/8/k7/8/K2Q4";
    QTest::newRow("right") << "shiftRight"
                           << "Ctrl+R"
                           << "8/8/8/8/8/2k5/8/2K2Q2";
    QTest::newRow("up") << "shiftUp"
                        << "Ctrl+U"
                        << "8/8/8/8/1k6/8/1K2Q3/8";
    QTest::newRow("down refused") << "shiftDown"
                                  << "Ctrl+D"
                                  << "8/8/8/8/8/1k6/8/1K2Q3";
    QTest::newRow("quarter turn") << "rotate90"
                                  << ""
                                  << "8/K1k5/8/8/Q7/8/8/8";
    QTest::newRow("colours") << "swapColours"
                             << ""
                             << "1k2q3/8/1K6/8/8/8/8/8";
  }
  void TurnsSwapsAndShiftsThePosition() {
    QFETCH(QString, command);
    QFETCH(QString, key);
    QFETCH(QString, expected);
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QVERIFY(window->PastePosition("8/8/8/8/8/1k6/8/1K2Q3"));
    if (!key.isEmpty())
      QTest::keySequence(window.get(), QKeySequence(key));
    else
      window->Action(command)->trigger();
    QCOMPARE(ShownFen(*window), expected);
    const bool bRefused = expected == "8/8/8/8/8/1k6/8/1K2Q3";
    QCOMPARE(TakeMessage(*window).contains("cannot be shifted"), bRefused);
    QCOMPARE(QString::fromStdString(fen::WriteShortFen(window->CurrentProblem()->start)), expected);

    // In setting mode the command moves the pieces being set up, and Ctrl+Z takes it back.
    window->SetSettingMode(true);
    window->Action(command)->trigger();
    TakeMessage(*window);
    window->Action("undo")->trigger();
    QCOMPARE(ShownFen(*window), expected);
  }

  // The id of the position shown goes to the clipboard and finds its problem again; the FEN
  // codes of a text file are looked up among the file's problems.
  void ShowsThePositionIdAndChecksTheFenCodesOfAFile() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->GoToProblem(2));  // 5Q2/8/8/R7/8/1k6/4K3/8
    window->Action("positionId")->trigger();
    const QString id = QApplication::clipboard()->text();
    QVERIFY(!id.isEmpty());
    QVERIFY(TakeMessage(*window).contains(id));
    TSearchCriteria byId;
    byId.text = id.toStdString();
    QCOMPARE(window->FindProblems(byId), QString());
    QVERIFY(std::count(window->FoundProblems().begin(), window->FoundProblems().end(), 2) == 1);

    QTemporaryDir folder;
    const QString list = folder.filePath("list.txt");
    QFile out(list);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write("Found in a magazine:\n5Q2/8/8/R7/8/1k6/4K3/8 w - - 0 1\nk7/8/8/8/8/8/6P1/K7\n");
    out.close();
    window->chooseFile = [&](EFileQuestion question) {
      return question == EFileQuestion::kCheckFens ? list : QString();
    };
    window->Action("checkFens")->trigger();
    const QString result = window->ResultText();
    QVERIFY2(result.contains("line 2: 5Q2/8/8/R7/8/1k6/4K3/8: problem 2"), qPrintable(result));
    QVERIFY2(result.contains("line 3: k7/8/8/8/8/8/6P1/K7: not found"), qPrintable(result));
    QVERIFY2(result.contains("1 of 2 FEN codes"), qPrintable(result));
    while (!TakeMessage(*window).isEmpty()) {
    }  // what the search said
    QVERIFY(window->CheckFensOf(folder.filePath("missing.txt")).contains("missing.txt"));
    QVERIFY(TakeMessage(*window).contains("missing.txt"));
  }

  void CopiesTheProblemItsDiagramAndTheMovesPlayed() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_C, Qt::ControlModifier);
    const QString text = QApplication::clipboard()->text();
    QVERIFY2(text.startsWith("1 #2\n{") && text.contains("FEN: 2brrb2/8/p7/7Q/1p1kpPp1/"),
             qPrintable(text));
    window->Action("copyDiagram")->trigger();
    const QMimeData* content = QApplication::clipboard()->mimeData();
    QVERIFY(content->hasFormat("image/svg+xml"));
    QVERIFY(content->data("image/svg+xml").contains("<svg"));
    const QImage picture = QApplication::clipboard()->image();
    QVERIFY(picture.width() > 200 && picture.height() > 200);

    QVERIFY(window->GoToProblem(2));  // 5Q2/8/8/R7/8/1k6/4K3/8
    DragPiece(window->Board(), "e2", "e1");
    window->Action("copyMovesFull")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QString("1. Ke2-e1"));
    window->Action("copyMovesShort")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QString("1. Ke1"));

    QApplication::clipboard()->setText("8/8/8/8/8/1k6/8/1K2Q3");
    window->Action("pasteMirror")->trigger();
    QCOMPARE(ShownFen(*window), QString("8/8/8/8/8/6k1/8/3Q2K1"));
  }

  // Ctrl+V takes a FEN, a problem copied with Ctrl+C, or moves to play.
  void PastesProblemsAndMoves() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QVERIFY(window->GoToProblem(3));
    QTest::keyClick(window.get(), Qt::Key_C, Qt::ControlModifier);
    const QString problemThree = ShownFen(*window);
    QVERIFY(window->GoToProblem(2));  // 5Q2/8/8/R7/8/1k6/4K3/8
    QApplication::clipboard()->setText("1. Ke2-e1 Kb3-b2 2. Kf2");
    QTest::keyClick(window.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window->MoveListText(), QString("1. Ke2-e1 Kb3-b2 2. Ke1-f2"));
    QVERIFY(!window->IsModified());  // moves played change no problem

    QApplication::clipboard()->setText("3 #4\n{\n\tFEN: " + problemThree + "\n}\n");
    QTest::keyClick(window.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(TakeMessage(*window), QString());
    QCOMPARE(window->CurrentId(), 2);
    QCOMPARE(ShownFen(*window), problemThree);
    QCOMPARE(window->CurrentProblem()->stipulation.Text(), std::string("#4"));
    QCOMPARE(window->MoveListText(), QString());
    QVERIFY(window->IsModified());
  }

  void ReportsTheLastMoveWithoutMate() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QVERIFY(window->GoToProblem(2));  // #2: 5Q2/8/8/R7/8/1k6/4K3/8
    CBoardView* board = window->Board();
    DragPiece(board, "e2", "e1");
    DragPiece(board, "b3", "b2");
    QVERIFY(!window->ResultText().contains("Last move"));
    DragPiece(board, "e1", "e2");
    QCOMPARE(window->ResultText(), QString("Last move, no mate. "));
    // The buttons beside the board take moves back and play them again; a right click a
    // whole move.
    auto* back = window->findChild<QToolButton*>("moveBackButton");
    auto* redo = window->findChild<QToolButton*>("redoMoveButton");
    Q_EMIT back->customContextMenuRequested(QPoint(1, 1));
    QCOMPARE(window->MoveListText(), QString("1. Ke2-e1"));
    QTest::mouseClick(redo, Qt::LeftButton);
    QCOMPARE(window->MoveListText(), QString("1. Ke2-e1 Kb3-b2"));
    QTest::mouseClick(back, Qt::LeftButton);
    Q_EMIT redo->customContextMenuRequested(QPoint(1, 1));
    QCOMPARE(window->MoveListText(), QString("1. Ke2-e1 Kb3-b2 2. Ke1-e2"));
    // A mate with the last move: no report.
    QVERIFY(window->PastePosition("7k/8/6K1/8/8/8/8/R7"));
    window->Action("stipulationDown")->trigger();  // #1
    DragPiece(board, "a1", "a8");
    QCOMPARE(window->MoveListText(), QString("1. Ra1-a8"));
    QCOMPARE(window->ResultText(), QString("Last move, no mate. "));  // the earlier report only
  }

  void DescriptionLinksOpenInTheBrowser() {
    QTemporaryDir folder;
    const QString path = folder.filePath("linked.cp");
    QVERIFY(WriteProblemFile(path,
                             "1 #2\n{\n\tDescription: Y37503 S. Loyd, see "
                             "https://example.org/loyd.\n\tFEN: 8/8/8/8/8/1k6/8/1K2Q3\n}\n"));
    CMainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.OpenFile(path));
    const QString yacpdb = QString::fromStdString(Options().sYacpdbHost) + "/?id=37503";
    QVERIFY2(window.DescriptionText().contains(QString("<a href=\"%1\">Y37503</a>").arg(yacpdb)),
             qPrintable(window.DescriptionText()));
    QVERIFY(window.DescriptionText().contains(
        "<a href=\"https://example.org/loyd\">https://example.org/loyd</a>."));
    CBrowser browser;
    QDesktopServices::setUrlHandler("https", &browser, "Open");
    // A click on the reference at the start of the description.
    auto* label = window.findChild<QLabel*>("description");
    const QPoint onLink(label->contentsRect().left() + 8,
                        label->contentsRect().top() + label->fontMetrics().height() / 2);
    QTest::mouseMove(label, onLink);
    QTest::mouseClick(label, Qt::LeftButton, Qt::NoModifier, onLink);
    QDesktopServices::unsetUrlHandler("https");
    QCOMPARE(browser.opened, (QList<QUrl>{QUrl(yacpdb)}));
  }

  void MinimisedToTheNotificationArea() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    const int nBefore = Options().nMinimizeToTray;
    Options().nMinimizeToTray = 1;
    window->showMinimized();
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
      QTRY_VERIFY(!window->isVisible());
      QVERIFY(window->findChild<QSystemTrayIcon*>("trayIcon")->isVisible());
    } else {
      QTRY_VERIFY(window->findChild<QMessageBox*>("messageBox"));
      QCOMPARE(TakeMessage(*window), QString("Unable to Set Tray Icon"));
    }
    Options().nMinimizeToTray = nBefore;
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CPositionCommandsTest>(); });

#include "PositionCommandsTest.moc"
