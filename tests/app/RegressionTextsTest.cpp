#include <gtest/gtest.h>

#include <filesystem>

#include "TempFolder.h"
#include "app/RegressionLog.h"
#include "app/RegressionTexts.h"

namespace {

using namespace regression;

TEST(RegressionTexts, LinesOfTheLog) {
  const std::string label = "SnglSolution, 2thrd(s)";
  const struct {
    std::string line, expected;
  } cases[] = {
      {ProblemLine(label, 12, "", FoundText({"Qd1-d7", "Qd1-d8"}, 0), 1500),
       "[SnglSolution, 2thrd(s)] Prob.#12 Qd1-d7, Qd1-d8 (1500 msec).\n"},
      {ProblemLine(label, 12, PassSuffix(1), FoundText({}, 1), 7),
       "[SnglSolution, 2thrd(s)] Prob.#12 M1 No solution (7 msec).\n"},
      {OkLine(label, 3, PassSuffix(0), 0), "[SnglSolution, 2thrd(s)] Test #3 ok (0 msec).\n"},
      {OkLine(label, 3, PassSuffix(1), 25), "[SnglSolution, 2thrd(s)] Test #3 M1 ok (25 msec).\n"},
      {SortOnlyOkLine(label, 4, 2),
       "[SnglSolution, 2thrd(s)] Test #4 ok (2 msec) - ExpectedSortWhiteMovesOnly.\n"},
      {MismatchLine(label, 5, PassSuffix(1), FoundText({"Qa1-h8"}, 1), "Qh1-a8"),
       "[SnglSolution, 2thrd(s)] Test #5 M1 failed:\n\tfound:\nMirror: Qa1-h8\n\tshould "
       "be:\nQh1-a8\n"},
      {FailedLine(label, 6, "", SortFailedText("Rb1-b8")),
       "[SnglSolution, 2thrd(s)] Test #6 failed: ExpectedSortWhiteMoves failed: move Rb1-b8\n"},
      {TimeLimitLine(64), "Solving time limit hit: 64 seconds\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.line, c.expected);
}

class RegressionLogTest : public ::testing::Test {
 protected:
  CTempFolder folder;
  std::vector<int> waits;
  CRegressionLog log{folder.Path(), [this](std::chrono::milliseconds wait) {
                       waits.push_back(static_cast<int>(wait.count()));
                     }};
  std::filesystem::path Backup() const { return folder / "RegressionTest.log.BAK"; }
};

TEST_F(RegressionLogTest, RotationReplacesTheBackupAndStartsAFreshLog) {
  EXPECT_TRUE(log.Rotate());  // no log yet: nothing to do
  log.Append("first run\n");
  log.Append("second line\n");
  WriteTextFile(Backup(), "older run\n");
  EXPECT_TRUE(log.Rotate());
  EXPECT_EQ(ReadTextFile(Backup()), "first run\nsecond line\n");
  EXPECT_FALSE(std::filesystem::exists(log.Path()));
  log.Append("new run\n");
  EXPECT_EQ(ReadTextFile(log.Path()), "new run\n");
  EXPECT_TRUE(waits.empty());
}

TEST_F(RegressionLogTest, ARenameThatKeepsFailingIsRetriedThriceAndTheOldLogGrows) {
  log.Append("old\n");
  // A folder with something in it can be neither removed nor renamed over.
  std::filesystem::create_directories(Backup() / "held");
  EXPECT_FALSE(log.Rotate());
  EXPECT_EQ(waits, (std::vector<int>{0, 100, 200}));
  log.Append("new\n");
  EXPECT_EQ(ReadTextFile(log.Path()), "old\nnew\n");
}

TEST(RegressionLog, ALogThatCannotBeOpenedLosesTheLine) {
  const CRegressionLog log(std::filesystem::path("/nonexistent-folder-of-longmate"));
  log.Append("lost\n");
  EXPECT_FALSE(std::filesystem::exists(log.Path()));
}

}  // namespace
