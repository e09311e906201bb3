// The whole solution as the console prints it: lines numbered and indented by half-moves, the
// best defence marked, and the same tree as one line of JSON.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/SolutionReport.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"

namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::StartsWith;

TChessboard Start(const std::string& text, int nMoves) {
  TChessboard board;
  ClearChessboard(board);
  EXPECT_TRUE(fen::ReadFen(board, text));
  board.ply = board.rootPlies = static_cast<std::uint16_t>(2 * nMoves - 1);
  return board;
}

TMove Move(const TChessboard& board, const std::string& text) {
  TChessboard after;
  EXPECT_NE(notation::MakeMove(board, text, after), nullptr) << text;
  return after.lastMove;
}

TEST(SolutionReport, AMateInOneIsItsOwnMainVariation) {
  const TChessboard start = Start("k7/8/1K6/8/8/8/8/7R w - - 0 1", 1);
  const auto trees = BuildSolutionTrees(start, 1, {Move(start, "Rh1-h8")});
  ASSERT_EQ(trees.size(), 1u);
  EXPECT_THAT(SolutionTreeLines(trees[0]), ElementsAre("Main variation: 1. Rh1-h8#", "1. Rh1-h8#"));
  EXPECT_EQ(SolutionTreesJson(5, 1, trees),
            "{\"problem\":5,\"moves\":1,\"solutions\":[{\"key\":\"Rh1-h8\",\"mainVariation\":"
            "[\"Rh1-h8\"],\"tree\":{\"move\":\"Rh1-h8\",\"mateIn\":1,\"defences\":[]}}]}");
}

TEST(SolutionReport, DefencesAreIndentedUnderTheirMoveWithTheBestFirst) {
  const TChessboard start = Start("1rk5/1pP5/3PK3/R7/8/8/8/8 w - - 0 1", 2);
  const auto trees = BuildSolutionTrees(start, 2, {Move(start, "Ra5-a7")});
  const std::vector<std::string> lines = SolutionTreeLines(trees.at(0));
  ASSERT_GE(lines.size(), 4u);
  EXPECT_THAT(lines[0], StartsWith("Main variation: 1. Ra5-a7 "));
  EXPECT_THAT(lines[0], ::testing::HasSubstr(" 2. "));
  EXPECT_EQ(lines[1], "1. Ra5-a7 (#2)");
  EXPECT_THAT(lines[2], StartsWith("  1... "));
  EXPECT_THAT(lines[2], EndsWith(" (best)"));
  for (std::size_t i = 2; i < lines.size(); i += 2) {
    EXPECT_THAT(lines[i], StartsWith("  1... ")) << i;
    EXPECT_THAT(lines[i + 1], StartsWith("    2. ")) << i;
    EXPECT_THAT(lines[i + 1], EndsWith("#")) << i;
  }
  // The main variation is the first branch.
  EXPECT_EQ(lines[0], "Main variation: 1. Ra5-a7 " + lines[2].substr(7, lines[2].size() - 14) +
                          " 2. " + lines[3].substr(7));
}

TEST(SolutionReport, ACutTreeSaysSoInBothForms) {
  const TChessboard start = Start("1rk5/1pP5/3PK3/R7/8/8/8/8 w - - 0 1", 2);
  const auto trees = BuildSolutionTrees(start, 2, {Move(start, "Ra5-a7")}, 1);
  EXPECT_THAT(SolutionTreeLines(trees.at(0)),
              ElementsAre("Main variation: 1. Ra5-a7 ...", "1. Ra5-a7 (#2) ..."));
  EXPECT_THAT(SolutionTreesJson(1, 2, trees),
              ::testing::HasSubstr("\"tree\":{\"move\":\"Ra5-a7\",\"mateIn\":2,\"cut\":true,"
                                   "\"defences\":[]}"));
}

TEST(SolutionReport, AKeyThatDoesNotMateIsRefused) {
  const TChessboard start = Start("1rk5/1pP5/3PK3/R7/8/8/8/8 w - - 0 1", 2);
  EXPECT_THROW(BuildSolutionTrees(start, 2, {Move(start, "Ra5-a6")}), ChessException);
}

}  // namespace
