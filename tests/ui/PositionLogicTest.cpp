// The window's own chess state: the line of moves played by hand and the position being set
// up, without widgets.
#include <QTest>

#include "UiTestMain.h"
#include "app/ui/PlayedLine.h"
#include "app/ui/PositionEdits.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"

namespace {

TChessboard BoardOf(const char* fenText, bool bWhiteToMove = true) {
  TChessboard board;
  ClearChessboard(board);
  if (!fen::ReadFen(board, fenText)) throw ChessException("bad test FEN");
  board.ply = board.rootPlies = bWhiteToMove ? 3 : 2;
  return board;
}

SquareIndex Sq(const char* name) {
  return square::Make(name[0] - 'a', name[1] - '1');
}

TPositionEdits::TSquares SquaresOf(const char* fenText) {
  const TChessboard board = BoardOf(fenText);
  TPositionEdits::TSquares squares;
  std::copy(std::begin(board.squares), std::end(board.squares), squares.begin());
  return squares;
}

}  // namespace

class CPositionLogicTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  // Moves given as from-to pairs; the legal ones are played, the list is read back.
  void PlaysOnlyLegalMoves_data() {
    QTest::addColumn<QString>("fen");
    QTest::addColumn<bool>("whiteToMove");
    QTest::addColumn<QStringList>("moves");
    QTest::addColumn<QString>("list");
    QTest::newRow("opening") << "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR" << true
                             << QStringList{"e2e4", "e7e5", "g1f3"} << "1. e2-e4 e7-e5 2. Ng1-f3";
    QTest::newRow("black begins") << "4k3/4p3/8/8/8/8/4P3/4K3" << false
                                  << QStringList{"e7e5", "e2e4"} << "1. ... e7-e5 2. e2-e4";
    QTest::newRow("illegal ones are refused")
        << "4k3/8/8/8/8/8/4P3/4K3" << true << QStringList{"e2e5", "e1e2", "e8e7", "e2e3"}
        << "1. e2-e3";  // e1-e2 is refused as the pawn stands there; Black may not move first
    QTest::newRow("pinned piece") << "4r1k1/8/8/8/8/8/4B3/4K3" << true
                                  << QStringList{"e2d3", "e1d1"} << "1. Ke1-d1";
    QTest::newRow("castling") << "r3k2r/8/8/8/8/8/8/R3K2R" << true << QStringList{"e1g1", "e8c8"}
                              << "1. 0-0 0-0-0";
  }
  void PlaysOnlyLegalMoves() {
    QFETCH(QString, fen);
    QFETCH(bool, whiteToMove);
    QFETCH(QStringList, moves);
    QFETCH(QString, list);
    TPlayedLine line;
    line.Reset(BoardOf(fen.toLatin1().constData(), whiteToMove));
    for (const QString& move : moves) {
      const QByteArray text = move.toLatin1();
      const auto legal = line.LegalMoves(Sq(text.constData()), Sq(text.constData() + 2));
      if (!legal.empty()) QVERIFY(line.Play(legal.front()));
    }
    QCOMPARE(QString::fromStdString(line.MoveListText()), list);
  }

  // Pasted move texts: played up to the first word that is no legal move, and read back in
  // both notations.
  void PlaysMovesOfAText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("played");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("shortList");
    QTest::newRow("long") << "1. e2-e4 e7-e5 2. Ng1-f3" << 3 << "1. e2-e4 e7-e5 2. Ng1-f3"
                          << "1. e4 e5 2. Nf3";
    QTest::newRow("short, numbers joined")
        << "1.e4 e5 2.Nf3 Nc6 3.Bb5" << 5 << "1. e2-e4 e7-e5 2. Ng1-f3 Nb8-c6 3. Bf1-b5"
        << "1. e4 e5 2. Nf3 Nc6 3. Bb5";
    QTest::newRow("stops at an illegal move") << "1. e4 e4 2. d4" << 1 << "1. e2-e4"
                                              << "1. e4";
    QTest::newRow("no move") << "hello" << 0 << ""
                             << "";
  }
  void PlaysMovesOfAText() {
    QFETCH(QString, text);
    QFETCH(int, played);
    QFETCH(QString, list);
    QFETCH(QString, shortList);
    TPlayedLine line;
    line.Reset(BoardOf("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR"));
    QCOMPARE(line.PlayText(text.toStdString()), played);
    QCOMPARE(QString::fromStdString(line.MoveListText()), list);
    QCOMPARE(QString::fromStdString(line.MoveListText(true)), shortList);
  }

  void BackAndRedoKeepTheLineUntilAnotherMoveIsPlayed() {
    TPlayedLine line;
    line.Reset(BoardOf("4k3/8/8/8/8/8/4P3/4K3"));
    QVERIFY(!line.Back());
    QVERIFY(line.Play(line.LegalMoves(Sq("e2"), Sq("e4")).front()));
    QVERIFY(line.Play(line.LegalMoves(Sq("e8"), Sq("d7")).front()));
    QVERIFY(line.Back());
    QVERIFY(line.Back());
    QCOMPARE(line.MovesPlayed(), 0);
    QVERIFY(line.Redo());
    QVERIFY(line.Redo());
    QVERIFY(!line.Redo());
    QCOMPARE(QString::fromStdString(line.MoveListText()), QString("1. e2-e4 Ke8-d7"));
    QVERIFY(line.Back());
    QVERIFY(line.Play(line.LegalMoves(Sq("e8"), Sq("f7")).front()));  // another move
    QVERIFY(!line.CanRedo());
    // The board shown after taking back is the one before the move, with the pawn home.
    QVERIFY(line.Back() && line.Back());
    QCOMPARE(line.Current().squares[Sq("e2")], piece::kWhitePawn);
    QCOMPARE(line.Current().squares[Sq("e4")], piece::kEmpty);
  }

  void PromotionOffersFourPiecesAndMateIsSeen() {
    TPlayedLine line;
    line.Reset(BoardOf("k7/2P5/1K6/8/8/8/8/8"));
    const auto promotions = line.LegalMoves(Sq("c7"), Sq("c8"));
    QCOMPARE(promotions.size(), std::size_t{4});
    const auto rook = std::find_if(promotions.begin(), promotions.end(), [](TMove m) {
      return piece::TypeOf(m.promotion) == piece::kRook;
    });
    QVERIFY(rook != promotions.end());
    QVERIFY(line.Play(*rook));
    QCOMPARE(line.Current().squares[Sq("c8")], piece::kWhiteRook);
    QVERIFY(line.IsMate());
    QVERIFY(line.LegalMoves().empty());
  }

  void EditsUndoAndRedoEveryChange() {
    TPositionEdits edits;
    edits.Begin(SquaresOf("4k3/8/8/8/8/8/8/4K3"));
    edits.Place(Sq("d4"), piece::kWhiteQueen);
    edits.Place(Sq("d4"), piece::kWhiteQueen);  // the same piece again takes it off
    QCOMPARE(edits.Squares()[Sq("d4")], piece::kEmpty);
    edits.Place(Sq("d4"), piece::kBlackRook);
    edits.Move(Sq("d4"), Sq("d8"));
    edits.Clear();
    QVERIFY(edits.IsChanged());
    QVERIFY(edits.Undo());
    QCOMPARE(edits.Squares()[Sq("d8")], piece::kBlackRook);
    QVERIFY(edits.Undo());
    QCOMPARE(edits.Squares()[Sq("d4")], piece::kBlackRook);
    while (edits.Undo()) {
    }
    QVERIFY(!edits.IsChanged());
    QVERIFY(edits.Redo() && edits.Redo());
    QCOMPARE(edits.Squares()[Sq("d4")], piece::kEmpty);
    edits.Place(Sq("a1"), piece::kWhitePawn);
    QVERIFY(!edits.CanRedo());
  }

  void ValidationGivesThePositionsOwnReasons_data() {
    QTest::addColumn<QString>("fen");
    QTest::addColumn<QString>("error");
    QTest::newRow("fine") << "4k3/8/8/8/8/8/8/4K3"
                          << "";
    QTest::newRow("no black king") << "8/8/8/8/8/8/8/4K3"
                                   << "Illegal number of kings.";
    QTest::newRow("pawn on rank 8") << "P3k3/8/8/8/8/8/8/4K3"
                                    << "Pawns cannot occupy 1st nor 8th line of the chessboard.";
    QTest::newRow("rook beside, no check") << "4k3/8/8/8/8/8/8/4K2R"
                                           << "";
    QTest::newRow("black checked")
        << "4k3/8/8/8/8/8/8/4R1K1"
        << "Invalid position: Black king cannot be checked in starting position.";
  }
  void ValidationGivesThePositionsOwnReasons() {
    QFETCH(QString, fen);
    QFETCH(QString, error);
    // The placement only: the analysis that the reader runs after it may refuse the position.
    TChessboard read;
    ClearChessboard(read);
    try {
      fen::ReadFen(read, fen.toStdString());
    } catch (const ChessException&) {
    }
    TPositionEdits::TSquares squares;
    std::copy(std::begin(read.squares), std::end(read.squares), squares.begin());
    TChessboard board;
    const auto reason = TPositionEdits::Validate(squares, board);
    QCOMPARE(QString::fromStdString(reason.value_or("")), error);
    if (!reason) QVERIFY(board.IsWhiteToMove());
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CPositionLogicTest>(); });

#include "PositionLogicTest.moc"
