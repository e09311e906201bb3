#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FenBoard.h"
#include "LinePosition.h"
#include "TestData.h"
#include "core/CastlingRule.h"
#include "core/ChessException.h"
#include "core/Fen.h"

using testing::StrEq;
using testing::ThrowsMessage;

namespace {

// The first count fields of a FEN.
std::string Fields(const std::string& text, size_t count) {
  const auto fields = testdata::Split(text, " ");
  std::string joined;
  for (size_t i = 0; i < count && i < fields.size(); ++i) joined += (i ? " " : "") + fields[i];
  return joined;
}

}  // namespace

TEST(Fen, MalformedPlacementsFail) {
  for (const char* text :
       {"", "4k3/8/8/8/8/8/8/4K2Rp", "4k3/8/8/8/8/8/4K3", "4k3/8/8/8/8/8/8/8/4K3",
        "4k3/7/8/8/8/8/8/4K3", "4k3/8/8/8/8/8/8/04K3", "4k3/8/8/8/8/8/8/9", "4k3/8/8/8/8/8/8/4X3",
        "4k3/8/8/8/8/8/8/4K2*", "4k3/8/8/8/8/8/8/4K3/"}) {
    TChessboard board;
    ClearChessboard(board);
    EXPECT_FALSE(fen::ReadFen(board, text)) << text;
  }
}

TEST(Fen, AnalysisRejectionsPassThrough) {
  const struct {
    const char* fen;
    const char* text;
  } cases[] = {
      {"8/8/8/8/8/8/8/8 w - - 0 1", "Illegal number of kings."},
      {"4k3/8/8/8/8/8/8/3KK3", "Illegal number of kings."},
      {"4k2P/8/8/8/8/8/8/4K3", "Pawns cannot occupy 1st nor 8th line of the chessboard."},
      {"4k3/8/8/8/8/8/8/p3K3", "Pawns cannot occupy 1st nor 8th line of the chessboard."},
      {"4k3/4R3/8/8/8/8/4r3/4K3", "Both kings attacked."},
  };
  for (const auto& c : cases) {
    TChessboard board;
    ClearChessboard(board);
    EXPECT_THAT([&] { fen::ReadFen(board, c.fen); }, ThrowsMessage<ChessException>(StrEq(c.text)))
        << c.fen;
  }
}

TEST(Fen, PolishLettersReadLikeEnglishOnes) {
  const TChessboard polish = ReadBoard("4k3/3whgs1/8/8/8/8/8/3HK1WS");
  EXPECT_EQ(fen::WriteShortFen(polish), "4k3/3rqbn1/8/8/8/8/8/3QK1RN");
}

TEST(Fen, ReadingFillsSquaresButKeepsPlyAndLinks) {
  TChessboard board = ReadBoard("4k3/8/8/8/8/8/8/4K3", 7);
  board.parent = &board;
  ASSERT_TRUE(fen::ReadFen(board, "  3k4/8/8/8/8/8/8/3K4\r\n"));
  EXPECT_EQ(board.ply, 7);
  EXPECT_EQ(board.parent, &board);
  EXPECT_EQ(board.squares[3], piece::kWhiteKing);
  EXPECT_EQ(board.squares[4], piece::kEmpty);
  EXPECT_EQ(board.blackKingFile, 3);
}

TEST(Fen, ExtrasReportWhatTheTextClaims) {
  TChessboard board;
  ClearChessboard(board);
  fen::TFenExtras extras;
  ASSERT_TRUE(fen::ReadFen(board, "r3k2r/8/8/8/8/8/8/R3K2R b Kq e3 0 1", &extras));
  EXPECT_TRUE(extras.bBlackToMove);
  EXPECT_EQ(extras.castlingRights, castling::kWhiteShort | castling::kBlackLong);
  EXPECT_TRUE(extras.bEnPassantGiven);
  EXPECT_TRUE(fen::ExtrasDifferFromAssumed(board, extras));

  const struct {
    const char* fen;
    bool bDiffers;
  } cases[] = {{"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", false},
               {"r3k2r/8/8/8/8/8/8/R3K2R w - - 0 1", true},
               {"r3k2r/8/8/8/8/8/8/R3K2R", true},
               {"4k3/8/8/8/8/8/8/4K3 w - - 0 1", false},
               {"4k3/8/8/8/8/8/8/4K3 w - e3 0 1", true},
               // Fields part at the no-break space like at any blank.
               {"r3k2r/8/8/8/8/8/8/R3K2R\xC2\xA0w\xC2\xA0KQkq - 0 1", false},
               {"r3k2r/8/8/8/8/8/8/R3K2R\xC2\xA0w\xC2\xA0Kq - 0 1", true},
               {"1r2k3/8/8/8/8/8/8/4K2R w Kq - 0 1", true}};
  for (const auto& c : cases) {
    ASSERT_TRUE(fen::ReadFen(board, c.fen, &extras));
    EXPECT_EQ(fen::ExtrasDifferFromAssumed(board, extras), c.bDiffers) << c.fen;
  }
}

TEST(Fen, ReferencePositionsRoundTrip) {
  for (const std::string file : {"perft.tsv", "directmates.tsv"}) {
    // Perft FENs list exactly the castlings the home-square rule allows; problem FENs need not.
    const size_t nCompared = file == "perft.tsv" ? 4 : 2;
    for (const auto& row : testdata::ReadTsv(file)) {
      const std::string& text = row.at("fen");
      fen::TFenExtras extras;
      TChessboard board;
      ClearChessboard(board);
      ASSERT_TRUE(fen::ReadFen(board, text, &extras)) << text;
      board.ply = extras.bBlackToMove ? 2 : 1;
      const std::string written = fen::WriteFullFen(board);
      EXPECT_EQ(Fields(written, nCompared), Fields(text, nCompared));
      EXPECT_EQ(fen::WriteShortFen(ReadBoard(written)), fen::WriteShortFen(board));
    }
  }
}

TEST(Fen, CastlingFieldForgetsWhatTheLineMoved) {
  const struct {
    std::vector<std::string> moves;
    const char* castling;
  } cases[] = {
      {{}, "KQkq"},
      {{"a1a2", "h8h7", "a2a1", "h7h8"}, "Kq"},  // rooks that came back have moved
      {{"e1f1", "e8d8", "f1e1", "d8e8"}, "-"},   // so has a king
      {{"h1h8"}, "Qq"},                          // a captured rook takes its castling along
  };
  for (const auto& c : cases) {
    CLinePosition position("r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1");
    const std::string written = fen::WriteFullFen(position.Play(c.moves));
    EXPECT_EQ(testdata::Split(written, " ").at(2), c.castling) << written;
  }
}

TEST(Fen, EnPassantSquareOnlyWhenACaptureIsPossible) {
  const struct {
    const char* fen;
    const char* move;
    const char* field;
  } cases[] = {
      {"4k3/3p4/8/4P3/8/8/8/4K3 b - - 0 1", "d7d5", "d6"},
      {"4k3/3p4/8/8/8/8/8/4K3 b - - 0 1", "d7d5", "-"},
      {"4k3/8/8/8/1p6/8/P7/4K3 w - - 0 1", "a2a4", "a3"},
      {"4k3/8/8/4P3/8/8/8/4K3 w - - 0 1", "e5e6", "-"},
  };
  for (const auto& c : cases) {
    CLinePosition position(c.fen);
    const std::string written = fen::WriteFullFen(position.Play({c.move}));
    EXPECT_EQ(testdata::Split(written, " ").at(3), c.field) << written;
  }
}

TEST(Fen, StartPositionMustNotLeaveTheSideNotToMoveInCheck) {
  const struct {
    const char* fen;
    std::uint16_t ply;
    const char* text;  // null when accepted
  } cases[] = {
      {"4k3/4R3/8/8/8/8/8/4K3", 3,
       "Black king cannot be checked in the mate task starting postition."},
      {"4k3/4R3/8/8/8/8/8/4K3", 2, nullptr},
      {"4k3/8/8/8/8/8/4r3/4K3", 2,
       "White king cannot be checked in the mate-defence task starting postition."},
      {"4k3/8/8/8/8/8/4r3/4K3", 1, nullptr},
  };
  for (const auto& c : cases) {
    const TChessboard board = ReadBoard(c.fen, c.ply);
    if (c.text == nullptr) {
      EXPECT_NO_THROW(fen::CheckStartPosition(board)) << c.fen;
    } else {
      EXPECT_THAT([&] { fen::CheckStartPosition(board); },
                  ThrowsMessage<ChessException>(StrEq(c.text)));
    }
  }
}

TEST(Fen, MaterialWarningBeyondNinePawnsAndQueens) {
  EXPECT_TRUE(fen::NeedsMaterialWarning(ReadBoard("4k3/8/8/8/8/PPPPPPPP/8/QQ2K3")));
  EXPECT_FALSE(fen::NeedsMaterialWarning(ReadBoard("4k3/8/8/8/8/PPPPPPPP/8/Q3K3")));
  EXPECT_TRUE(fen::NeedsMaterialWarning(ReadBoard("qq2k3/8/pppppppp/8/8/8/8/4K3")));
  EXPECT_FALSE(fen::NeedsMaterialWarning(ReadBoard("qq2k3/8/ppppppp1/8/8/8/8/4K3")));
}
