#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SolvingSessionHelpers.h"
#include "TempFolder.h"
#include "app/RegressionRunner.h"
#include "problems/Collection.h"

namespace {

using namespace sessiontest;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

// Loyd's mate in 2 (key Qh5-a5) in several guises, a mate in 3 without an answer, and a
// problem of the reference data with two keys.
const char* const kFile = R"(UTF-8

1 #2
{
	FEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8
	Answer: Qh5-a5
}

2 #2
{
	FEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8
	Answer: Qh5-h1
}

3 #3
{
	FEN: B7/8/7Q/4k3/KNp5/8/5P2/8
}

4 #2 Requires KRK Requires missing
{
	FEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8
	Answer: Qh5-a5
}

5 #2 AllSolutions ALLSOLUTIONSREQUIRES missing
{
	FEN: k3N3/P7/K6p/8/8/8/8/8
	Answer: Ka6-b6, Ne8-c7
}

6 #2 RequiresSyzygy
{
	FEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8
}

7 #2
//@SortIndications: 1. Qh5-a5
{
	FEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8
	EXPECTEDSORTWHITEMOVESONLY: Qh5-a5
}

8 #2
{
	FEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8
	EXPECTEDSORTWHITEMOVESONLY: Kg3-h2
}

9 #2 Requires KRK
//@SortIndications: 1. Qh5-a5
{
	FEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8
	Answer: Qh5-a5
	SWM: Qh5-a5
}

10 #2 GUICHECK
//!VARIANTS
//!1.Kc6-b6 Ka8-b8 2.Rh1-h7
//!ENDVARIANTS
{
	FEN: k7/8/2K5/8/8/8/8/7R
	Answer: Kc6-b6, Kc6-c7
}
)";

class RegressionRunnerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(collection.ReadText(kFile, "regression.cp"));
    GetRegressionState().nSolvingTimeLimitSeconds = kNoTimeLimit;
    GetRegressionState().bRunning = false;
  }

  std::vector<TProblem*> Problems(std::initializer_list<int> ids) {
    std::vector<TProblem*> problems;
    for (int id : ids) problems.push_back(collection.Find(id));
    return problems;
  }
  TRegressionTally Run(const std::vector<TProblem*>& problems, bool bQuick = false) {
    CRegressionRunner runner(
        session, TestOptions(), log, [](const std::string& name) { return name == "KRK"; },
        [this](const std::string& text) {
          echoed.push_back(text);
          nLimitsSeen.push_back(GetRegressionState().nSolvingTimeLimitSeconds);
          if (bStopAfterFirstLine) CRegressionRunner::RequestStop();
        });
    return runner.Run(
        problems, {.bQuick = bQuick, .threads = TThreadSettings{2, 1}, .wait = {.bQuiet = true}});
  }

  TProblemCollection collection;
  CTempFolder folder;
  CRegressionLog log{folder.Path()};
  CSolvingSession session{TestOptions()};
  std::vector<std::string> echoed;
  std::vector<int> nLimitsSeen;
  bool bStopAfterFirstLine = false;
};

TEST_F(RegressionRunnerTest, EveryKindOfOutcomeHasItsLine) {
  WriteTextFile(log.Path(), "last run\n");
  const TRegressionTally tally = Run(Problems({1, 2, 3, 4, 5, 6, 7, 8, 9}));
  const std::string kSingle = R"(\[SnglSolution, 2thrd\(s\)\] )";
  EXPECT_THAT(
      echoed,
      ElementsAre(
          MatchesRegex(kSingle + R"(Test #1 ok \([0-9]+ msec\)\.)" + "\n"),
          "[SnglSolution, 2thrd(s)] Test #2 failed:\n\tfound:\nQh5-a5\n\tshould "
          "be:\nQh5-h1\n",
          MatchesRegex(kSingle + R"(Prob\.#3 Qh6-g6 \([0-9]+ msec\)\.)" + "\n"),
          "Requires clause not satisfied\n", "AllSolutionsRequires clause not satisfied\n",
          MatchesRegex(kSingle + R"(Test #5 ok \([0-9]+ msec\)\.)" + "\n"),
          "RequiresSyzygy not satisfied\n",
          MatchesRegex(kSingle + R"(Test #7 ok \([0-9]+ msec\) - ExpectedSortWhiteMovesOnly\.)" +
                       "\n"),
          "[SnglSolution, 2thrd(s)] Test #8 failed: ExpectedSortWhiteMoves failed: move "
          "Kg3-h2\n",
          MatchesRegex(kSingle + R"(Test #9 ok \([0-9]+ msec\)\.)" + "\n")));
  std::string all;
  for (const std::string& text : echoed) all += text;
  EXPECT_EQ(ReadTextFile(log.Path()), all);
  EXPECT_EQ(ReadTextFile(folder / "RegressionTest.log.BAK"), "last run\n");
  EXPECT_EQ(tally.nPassed, 5);
  EXPECT_EQ(tally.nFailed, 2);
  EXPECT_EQ(tally.nSkipped, 2);
  EXPECT_FALSE(tally.AllPassed());
  // Problem 5 was solved for one key only, and asks for all of them again.
  EXPECT_TRUE(collection.Find(5)->HasFlag(option::kAllSolutions));
}

TEST_F(RegressionRunnerTest, AMatchedKeyWhoseVariantFailsItsCheckFails) {
  const TRegressionTally tally = Run(Problems({10}));
  EXPECT_THAT(echoed, ElementsAre("[SnglSolution, 2thrd(s)] Test #10 failed: Error in "
                                  "auxMate:\n\nexpected Rh1-h7\nfound Rh1-h8\n"));
  EXPECT_EQ(tally.nFailed, 1);
}

TEST_F(RegressionRunnerTest, TheQuickRunHasItsLimitAndTheOldOneComesBack) {
  GetRegressionState().nSolvingTimeLimitSeconds = 30;
  const TRegressionTally tally = Run(Problems({1}), true);
  EXPECT_TRUE(tally.AllPassed());
  EXPECT_THAT(nLimitsSeen, ElementsAre(CRegressionRunner::kQuickTimeLimitSeconds));
  EXPECT_EQ(GetRegressionState().nSolvingTimeLimitSeconds, 30);
  EXPECT_FALSE(GetRegressionState().bRunning);
}

TEST_F(RegressionRunnerTest, AStopEndsTheRunAfterTheCurrentProblem) {
  GetRegressionState().nSolvingTimeLimitSeconds = 40;
  bStopAfterFirstLine = true;
  const TRegressionTally tally = Run(Problems({1, 3, 9}));
  EXPECT_EQ(echoed.size(), 1u);
  EXPECT_THAT(echoed[0], HasSubstr("Test #1 ok"));
  EXPECT_TRUE(tally.bStopped);
  EXPECT_FALSE(tally.AllPassed());
  EXPECT_EQ(GetRegressionState().nSolvingTimeLimitSeconds, 40);
}

TEST_F(RegressionRunnerTest, ASolveOutOfTimeLogsTheLimit) {
  const auto problem = ReferenceProblem(kLongSolveFile, kLongSolveRow);
  GetRegressionState().nSolvingTimeLimitSeconds = 1;
  const TRegressionTally tally = Run({problem.get()});
  EXPECT_THAT(echoed, ElementsAre("Solving time limit hit: 1 seconds\n"));
  EXPECT_EQ(tally.nFailed, 1);
}

}  // namespace
