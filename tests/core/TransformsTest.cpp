#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "FenBoard.h"
#include "TestData.h"
#include "core/BoardTransforms.h"
#include "core/ChessException.h"
#include "core/Fen.h"

TEST(Transforms, TwiceGivesBackTheOriginal) {
  const struct {
    const char* name;
    void (*apply)(TChessboard&);
  } transforms[] = {
      {"mirror", [](TChessboard& b) { transforms::MirrorFiles(b); }},
      {"swap", transforms::SwapColours},
      {"rotate180", transforms::Rotate180},
  };
  for (const std::string file : {"perft.tsv", "directmates.tsv"}) {
    for (const auto& row : testdata::ReadTsv(file)) {
      const TChessboard original = ReadBoard(row.at("fen"));
      for (const auto& t : transforms) {
        TChessboard board = original;
        t.apply(board);
        t.apply(board);
        EXPECT_EQ(fen::WriteShortFen(board), fen::WriteShortFen(original)) << t.name;
        EXPECT_EQ(board.blackKingCheck, original.blackKingCheck) << t.name;
      }
    }
  }
}

TEST(Transforms, EachMovesPiecesWhereExpectedAndReanalyses) {
  const struct {
    void (*apply)(TChessboard&);
    const char* before;
    const char* after;
  } cases[] = {
      {transforms::SwapColours, "4k3/8/8/8/8/8/P7/4K3", "4k3/p7/8/8/8/8/8/4K3"},
      {[](TChessboard& b) { transforms::MirrorFiles(b); }, "4k3/8/8/8/8/8/P7/4K3",
       "3k4/8/8/8/8/8/7P/3K4"},
      {transforms::Rotate90, "4k3/8/8/8/8/8/8/R3K3", "R7/8/8/8/K6k/8/8/8"},
      {transforms::Rotate180, "4k3/8/8/8/8/8/P7/4K3", "3K4/7P/8/8/8/8/8/3k4"},
  };
  for (const auto& c : cases) {
    TChessboard board = ReadBoard(c.before);
    c.apply(board);
    EXPECT_EQ(fen::WriteShortFen(board), c.after);
    const TChessboard expected = ReadBoard(c.after);
    EXPECT_EQ(board.WhiteKing(), expected.WhiteKing());
    EXPECT_EQ(board.BlackKing(), expected.BlackKing());
    EXPECT_EQ(std::memcmp(board.nPieces, expected.nPieces, sizeof board.nPieces), 0);
  }
}

TEST(Transforms, QuarterTurnsComeRoundAndRefusePawnsOnTheEdgeRanks) {
  const TChessboard original = ReadBoard("4k3/8/8/2B5/8/8/8/R3K1N1");
  TChessboard board = original;
  for (int turn = 0; turn < 4; ++turn) transforms::Rotate90(board);
  EXPECT_EQ(fen::WriteShortFen(board), fen::WriteShortFen(original));

  TChessboard withPawn = ReadBoard("4k3/8/8/8/8/8/P7/4K3");
  EXPECT_THAT([&] { transforms::Rotate90(withPawn); },
              testing::ThrowsMessage<ChessException>(
                  testing::StrEq("Pawns cannot occupy 1st nor 8th line of the chessboard.")));
  EXPECT_EQ(fen::WriteShortFen(withPawn), "4k3/8/8/8/8/8/P7/4K3");
}

TEST(Transforms, MirrorTellsWhetherCastlingWasIrrelevant) {
  const struct {
    const char* fen;
    bool bIrrelevant;
  } cases[] = {
      {"r3k2r/8/8/8/8/8/8/R3K2R", false}, {"4k3/8/8/8/8/8/8/4K3", true},
      {"3k4/8/8/8/8/8/8/R2K4", false},    {"4k3/8/8/8/8/8/8/4K1R1", true},
      {"r3k3/8/8/8/8/8/8/4K3", false},    {"4k3/8/8/8/8/8/8/3K3R", false},
      {"4k3/8/8/8/8/8/8/r3K3", true},
  };
  for (const auto& c : cases) {
    TChessboard board = ReadBoard(c.fen);
    EXPECT_EQ(transforms::MirrorFiles(board), c.bIrrelevant) << c.fen;
  }
  // Stored variant squares follow the board; the absent square stays absent.
  EXPECT_EQ(transforms::MirrorSquare(28), 27);
  EXPECT_EQ(transforms::MirrorSquare(square::kNone), square::kNone);
}
