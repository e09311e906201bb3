#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ConsoleProgress.h"
#include "app/SolvingReports.h"

namespace {

using ::testing::ElementsAre;

constexpr int kEnglish = 1;

TEST(SolvingTexts, EnglishTextsOfAPassEnd) {
  const struct {
    std::string text, expected;
  } cases[] = {
      {ThreadCompletionText(kEnglish, "12", false, ""),
       "Thread solving problem 12 completed successfully."},
      {ThreadCompletionText(kEnglish, "12 M1", true, "Illegal number of kings."),
       "Thread solving problem 12 M1 completed with error:"},
      {ThreadCompletionText(kEnglish, "12", true, ""),
       "Thread solving problem 12 completed with error."},
      {SolutionCountText(kEnglish, "12", 0), "No solution found of the problem 12"},
      {SolutionCountText(kEnglish, "12", 3), "3 solution(s) found of the problem 12"},
      {EngineEndText(kEnglish, "12", false), "Engine has completed: 12"},
      {EngineEndText(kEnglish, "12 M1", true), "Engine stopped: 12 M1"},
      {ThreadStoppedText(kEnglish), "Thread stopped"},
      {ForcedThreadsQuestion(kEnglish, 8),
       "Engine wants to force a different number of threads (8). Do you accept it?"},
      {TooManySolvesText(kEnglish), "Too many problems being solved at the same time."},
  };
  for (const auto& c : cases) EXPECT_EQ(c.text, c.expected);
}

TEST(SolvingTexts, LanguageRule) {
  // 0 Polish, 2 Ukrainian, anything else English.
  const std::string english = SolutionCountText(1, "5", 2);
  EXPECT_EQ(SolutionCountText(7, "5", 2), english);
  EXPECT_EQ(SolutionCountText(-1, "5", 2), english);
  EXPECT_NE(SolutionCountText(0, "5", 2), english);
  EXPECT_NE(SolutionCountText(2, "5", 2), english);
  EXPECT_NE(SolutionCountText(0, "5", 2), SolutionCountText(2, "5", 2));
  EXPECT_NE(EngineEndText(0, "5", true).find("5"), std::string::npos);
}

TEST(SolvingTexts, CompletionReportOrder) {
  TSolvingResult solved;
  solved.nSolutions = 1;
  EXPECT_THAT(
      CompletionReport(kEnglish, "4", solved),
      ElementsAre("Engine has completed: 4", "Thread solving problem 4 completed successfully.",
                  "1 solution(s) found of the problem 4"));
  // Stopped before it finished: neither "completed successfully" nor "no solution".
  TSolvingResult stopped;
  stopped.bStopped = true;
  EXPECT_THAT(CompletionReport(kEnglish, "4 M1", stopped),
              ElementsAre("Thread stopped", "Engine stopped: 4 M1"));
  stopped.nSolutions = 2;
  EXPECT_THAT(
      CompletionReport(kEnglish, "4", stopped),
      ElementsAre("Thread stopped", "Engine stopped: 4", "2 solution(s) found of the problem 4"));
  // A failure is reported as one, even when the solve was stopped as well.
  TSolvingResult failedWhileStopping;
  failedWhileStopping.bStopped = true;
  failedWhileStopping.sError = "The solving threads could not be started (code 128).";
  EXPECT_THAT(
      CompletionReport(kEnglish, "4", failedWhileStopping),
      ElementsAre("Engine has completed: 4", "Thread solving problem 4 completed with error:",
                  "The solving threads could not be started (code 128).",
                  "No solution found of the problem 4"));
  TSolvingResult failed;
  failed.sError = "Too many kings";
  EXPECT_THAT(CompletionReport(kEnglish, "4", failed),
              ElementsAre("Engine has completed: 4",
                          "Thread solving problem 4 completed with error:", "Too many kings",
                          "No solution found of the problem 4"));
}

TEST(SolvingTexts, ResultBox) {
  using enum ESolvingMode;
  const struct {
    ESolvingMode mode;
    int nSolutions;
    std::optional<std::string> expected;
  } cases[] = {
      {SingleSolution, 1, std::nullopt},
      {AllSolutions, 1, std::nullopt},
      {AllSolutions, 4, "More than one solution found: 4"},
      {StopOnDual, 2, "Search for solutions has been stopped after detection of dual."},
      {StopOn3Sol, 3, "Search for solutions has been stopped after finding 3 solutions"},
      {StopOn3Sol, 2, "More than one solution found: 2"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(ResultBoxText(kEnglish, c.mode, c.nSolutions, 3, true), c.expected) << c.nSolutions;

  EXPECT_EQ(ResultBoxText(kEnglish, SingleSolution, 0, 7, false), "Not found any solutions for #7");
  const auto quick = ResultBoxText(kEnglish, AllSolutions, 0, 7, true);
  ASSERT_TRUE(quick);
  EXPECT_TRUE(quick->starts_with("Not found any solutions for #7\n\nNote:\n\t* in Quick Mode"));
}

TEST(SolvingTexts, ConsoleProgressLine) {
  EXPECT_EQ(ConsoleProgressLine(12, false, 5), "12... 5 sec(s)...     \r");
  EXPECT_EQ(ConsoleProgressLine(12, true, 61), "12(m)... 61 sec(s)...     \r");
}

TEST(SolvingTexts, ConsoleProgressCountsSecondsPerPass) {
  char buffer[256] = {};
  std::FILE* stream = fmemopen(buffer, sizeof buffer, "w");
  ASSERT_NE(stream, nullptr);
  CConsoleProgress progress(stream);
  progress.Tick(3, 0);
  progress.Tick(3, 0);
  progress.Tick(3, 1);  // the mirrored pass starts counting again
  std::fclose(stream);
  EXPECT_STREQ(buffer, "3... 1 sec(s)...     \r3... 2 sec(s)...     \r3(m)... 1 sec(s)...     \r");
}

}  // namespace
