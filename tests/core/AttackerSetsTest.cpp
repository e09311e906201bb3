#include <gtest/gtest.h>

#include <string>

#include "FenBoard.h"
#include "TestData.h"
#include "core/AttackerSets.h"
#include "core/Attacks.h"

namespace {

// The ray walk of CheckValue is the independent answer the set operations must agree with.
bool WalkedAttack(const PieceCode* squares, SquareIndex target, PieceCode byColour) {
  return attacks::CheckValue(squares, target, byColour) != kNotInCheck;
}

}  // namespace

TEST(AttackerSets, AgreeWithTheRayWalkOnEverySquareOfTheReferencePositions) {
  for (const std::string file : {"perft.tsv", "directmates.tsv"}) {
    for (const auto& row : testdata::ReadTsv(file)) {
      const TChessboard board = ReadBoard(row.at("fen"));
      for (PieceCode colour : {piece::kWhite, piece::kBlack}) {
        const TAttackerSets sets(board.squares, colour);
        for (int s = 0; s < 64; ++s)
          ASSERT_EQ(sets.Attacks(static_cast<SquareIndex>(s)),
                    WalkedAttack(board.squares, static_cast<SquareIndex>(s), colour))
              << row.at("fen") << " square " << s << " colour " << int{colour};
      }
    }
  }
}

TEST(AttackerSets, ALiftedKingNoLongerShieldsTheSquaresBehindIt) {
  // The rook on a1 sees e1 only through the king; lifted, it also sees f1 and beyond.
  const TChessboard board = ReadBoard("k7/8/8/8/8/8/8/r3K3", 1);
  TAttackerSets black(board.squares, piece::kBlack);
  EXPECT_TRUE(black.Attacks(4));
  EXPECT_FALSE(black.Attacks(5));
  black.Lift(4);
  EXPECT_TRUE(black.Attacks(5));
  EXPECT_TRUE(black.Attacks(7));
}

TEST(AttackerSets, PawnsTakeTowardsTheEnemyAndNeverWrapAroundTheEdge) {
  const TChessboard board = ReadBoard("3k4/7p/8/8/8/8/P7/3K4", 1);
  const TAttackerSets white(board.squares, piece::kWhite), black(board.squares, piece::kBlack);
  EXPECT_TRUE(white.Attacks(17));   // a2 takes on b3
  EXPECT_FALSE(white.Attacks(15));  // not round the edge to h2
  EXPECT_FALSE(white.Attacks(1));   // nor backwards to b1
  EXPECT_TRUE(black.Attacks(46));   // h7 takes on g6
  EXPECT_FALSE(black.Attacks(48));  // not round the edge to a7
}
