#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "FenBoard.h"
#include "TestData.h"
#include "core/BoardTransforms.h"
#include "core/ChessException.h"
#include "core/Fen.h"

using transforms::ETransform;

TEST(Transforms, TwiceGivesBackTheOriginalAndFourQuarterTurnsToo) {
  for (const std::string file : {"perft.tsv", "directmates.tsv"}) {
    for (const auto& row : testdata::ReadTsv(file)) {
      const TChessboard original = ReadBoard(row.at("fen"));
      for (const ETransform transform : transforms::kTransforms) {
        TChessboard board = original;
        try {
          for (int i = 0; i < transforms::Period(transform); ++i)
            transforms::Apply(transform, board);
        } catch (const ChessException&) {
          continue;  // a quarter turn put a pawn on a back rank
        }
        EXPECT_EQ(fen::WriteShortFen(board), fen::WriteShortFen(original)) << row.at("fen");
        EXPECT_EQ(board.blackKingCheck, original.blackKingCheck) << row.at("fen");
        for (int s = 0; s < 64; ++s) {
          SquareIndex mapped = static_cast<SquareIndex>(s);
          for (int i = 0; i < transforms::Period(transform); ++i)
            mapped = transforms::MapSquare(transform, mapped);
          EXPECT_EQ(mapped, s);
        }
      }
    }
  }
}

TEST(Transforms, EachMovesPiecesWhereExpectedAndReanalyses) {
  const struct {
    ETransform transform;
    const char* before;
    const char* after;
  } cases[] = {
      {ETransform::kSwapColours, "4k3/8/8/8/8/8/P7/4K3", "4k3/p7/8/8/8/8/8/4K3"},
      {ETransform::kMirrorFiles, "4k3/8/8/8/8/8/P7/4K3", "3k4/8/8/8/8/8/7P/3K4"},
      {ETransform::kRotate90, "4k3/8/8/8/8/8/8/R3K3", "R7/8/8/8/K6k/8/8/8"},
      {ETransform::kRotate180, "4k3/8/8/8/8/8/P7/4K3", "3K4/7P/8/8/8/8/8/3k4"},
  };
  for (const auto& c : cases) {
    TChessboard board = ReadBoard(c.before);
    transforms::Apply(c.transform, board);
    EXPECT_EQ(fen::WriteShortFen(board), c.after);
    const TChessboard expected = ReadBoard(c.after);
    EXPECT_EQ(board.WhiteKing(), expected.WhiteKing());
    EXPECT_EQ(board.BlackKing(), expected.BlackKing());
    EXPECT_EQ(std::memcmp(board.nPieces, expected.nPieces, sizeof board.nPieces), 0);
    // The king's square follows MapSquare.
    EXPECT_EQ(board.squares[transforms::MapSquare(c.transform, ReadBoard(c.before).WhiteKing())],
              c.transform == ETransform::kSwapColours ? piece::kBlackKing : piece::kWhiteKing);
  }
}

TEST(Transforms, AQuarterTurnThatPutsAPawnOnABackRankChangesNothing) {
  TChessboard withPawn = ReadBoard("4k3/8/8/8/8/8/P7/4K3");
  EXPECT_THAT([&] { transforms::Apply(ETransform::kRotate90, withPawn); },
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
