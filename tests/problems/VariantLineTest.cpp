#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/Fen.h"
#include "problems/MainVariant.h"
#include "problems/Problem.h"
#include "problems/VariantLine.h"

namespace {

struct TLineCase {
  std::string text;
  std::string name;
  std::string moves;
  std::vector<std::pair<int, std::string>> comments;
};

TEST(VariantLine, NamesMovesAndCommentsAreTakenApart) {
  const TLineCase cases[] = {
      {"1. e2-e4 e7-e5", "", "1. e2-e4 e7-e5", {}},
      {"[Try] 1. Qd1-d7+ {the check} Ke8-f8 2. Qd7-d8#",
       "Try",
       "1. Qd1-d7+ Ke8-f8 2. Qd7-d8#",
       {{1, "the check"}}},
      // A comment glued to its move, one on Black's move, and "1..." numbering only.
      {"  [Two words] 1. ... Kb3-a4{only}  2. Rb5-b4#{mate}",
       "Two words",
       "1. ... Kb3-a4 2. Rb5-b4#",
       {{1, "only"}, {2, "mate"}}},
      {"1.e4 {a} e5", "", "1.e4 e5", {{1, "a"}}},
      {"[]", "", "", {}},
      {"[unclosed 1. e4", "", "[unclosed 1. e4", {}},
  };
  for (const TLineCase& c : cases) {
    const TVariantLine line = variantline::Parse(c.text);
    EXPECT_EQ(line.name, c.name) << c.text;
    EXPECT_EQ(line.moves, c.moves) << c.text;
    EXPECT_EQ(line.comments, c.comments) << c.text;
  }
}

TEST(VariantLine, ComposeRenamesAndTitles) {
  EXPECT_EQ(variantline::Compose("", "1. e2-e4"), "1. e2-e4");
  EXPECT_EQ(variantline::Compose("Try [1]", "1. e2-e4 {x}"), "[Try 1] 1. e2-e4 {x}");
  EXPECT_EQ(variantline::WithoutName("[Try] 1. e2-e4 {x}"), "1. e2-e4 {x}");
  EXPECT_EQ(variantline::WithoutName("1. e2-e4"), "1. e2-e4");
  EXPECT_EQ(variantline::Title("[Try] 1. e2-e4"), "Try");
  EXPECT_EQ(variantline::Title("1. e2-e4"), "1. e2-e4");
  const std::string longLine(60, 'x');
  EXPECT_EQ(variantline::Title(longLine), std::string(40, 'x') + "...");
}

// The main variant is read past its name and comments.
TEST(VariantLine, MainVariantStepsSkipNameAndComments) {
  TProblem problem;
  ASSERT_TRUE(fen::ReadFen(problem.start, "5Q2/8/8/R7/8/1k6/4K3/8 w - - 0 1"));
  problem.SetStipulation(TStipulation::DirectMate(2));
  problem.variants = {"[Main] 1. Ra5-b5+ {key} Kb3-a2 {flight} 2. Qf8-a8#"};
  const auto steps = MainVariantSteps(problem);
  ASSERT_EQ(steps.size(), 3u);
  EXPECT_EQ(steps[1].move.from, square::Make(1, 2));
  EXPECT_EQ(steps[1].move.to, square::Make(0, 1));
}

}  // namespace
