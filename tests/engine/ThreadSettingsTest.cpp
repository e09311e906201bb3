#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/ThreadSettings.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using enum EThreadSettingsMessage;

TEST(ThreadSettings, DefaultsFollowTheMachineSize) {
  struct TCase {
    unsigned nCores, nLogical, nFileLevels;
    TThreadSettings expected;
  };
  const TCase cases[] = {
      {4, 8, 1, {4, 1}},    {4, 4, 3, {4, 3}}, {6, 12, 1, {4, 2}},  {6, 11, 1, {6, 1}},
      {7, 7, 1, {7, 1}},    {8, 8, 1, {4, 2}}, {16, 32, 1, {4, 2}}, {25, 50, 1, {5, 2}},
      {64, 128, 1, {8, 2}}, {1, 1, 1, {1, 1}},
  };
  for (const TCase& c : cases)
    EXPECT_EQ(DefaultThreadSettings(c.nCores, c.nLogical, c.nFileLevels), c.expected)
        << c.nCores << " cores, " << c.nLogical << " logical";
}

TEST(ThreadSettings, TotalThreadLimit) {
  struct TCase {
    unsigned nThreads, nLevels;
    bool bAdmissible;
  };
  const TCase cases[] = {
      {31, 3, true}, {32, 3, false},  {64, 2, true},  {64, 3, false},   {7, 5, true},
      {8, 5, false}, {1, 64, true},   {2, 13, true},  {2, 14, true},    {2, 15, false},
      {64, 1, true}, {181, 2, false}, {180, 2, true}, {32766, 1, true}, {32767, 1, false},
  };
  for (const TCase& c : cases)
    EXPECT_EQ(IsAdmissibleThreadTotal(c.nThreads, c.nLevels), c.bAdmissible)
        << c.nThreads << "^" << c.nLevels;
}

TEST(ThreadSettings, OptionsDialogCutsRefusesAndReportsChanges) {
  struct TCase {
    long long nThreadsField, nLevelsField;
    TThreadSettings expected;
    std::vector<EThreadSettingsMessage> messages;
    bool bAccepted, bChanged;
  };
  const TThreadSettings previous{4, 2};
  const TCase cases[] = {
      {4, 2, {4, 2}, {}, true, false},
      {8, 2, {8, 2}, {}, true, true},
      {1, 0, {1, 1}, {}, true, true},  // the levels field is not looked at
      {-5, 99, {1, 1}, {}, true, true},
      {2, 0, {2, 1}, {LevelsAdjusted}, true, true},
      {2, -3, {2, 1}, {LevelsAdjusted}, true, true},
      {2, 70, {4, 2}, {LevelsAdjusted, TooManyThreads}, false, false},
      {100, 2, {64, 2}, {}, true, true},
      {32, 3, {4, 2}, {TooManyThreads}, false, false},
      {31, 3, {31, 3}, {}, true, true},
      {7, 5, {7, 5}, {}, true, true},
      {8, 5, {4, 2}, {TooManyThreads}, false, false},
  };
  for (const TCase& c : cases) {
    const auto outcome = ValidateThreadDialog(previous, c.nThreadsField, c.nLevelsField);
    EXPECT_EQ(outcome.settings, c.expected) << c.nThreadsField << "," << c.nLevelsField;
    EXPECT_EQ(outcome.messages, c.messages) << c.nThreadsField << "," << c.nLevelsField;
    EXPECT_EQ(outcome.bAccepted, c.bAccepted) << c.nThreadsField << "," << c.nLevelsField;
    EXPECT_EQ(outcome.bChanged, c.bChanged) << c.nThreadsField << "," << c.nLevelsField;
  }
  EXPECT_EQ(ThreadSettingsMessageText(LevelsAdjusted),
            "Improper value in multithreading levels option: value truncated/adjusted");
  EXPECT_EQ(ThreadSettingsMessageText(TooManyThreads),
            "Too many threads and/or multithreading levels.");
}

TEST(ThreadSettings, BoardViewControlStepsWithinOneToThirtyTwo) {
  struct TCase {
    unsigned nThreads, nLevels;
    bool bUpper;
    unsigned nExpected;
  };
  const TCase cases[] = {
      {4, 2, true, 5},   {4, 2, false, 3},   {1, 1, false, 1},  {32, 1, true, 32},
      {31, 3, true, 31},  // 32^3 is not admissible
      {30, 3, true, 31}, {64, 2, false, 32}, {64, 1, true, 32}, {0, 1, false, 1},
  };
  for (const TCase& c : cases)
    EXPECT_EQ(ClickThreadControl(c.nThreads, c.nLevels, c.bUpper), c.nExpected)
        << c.nThreads << "^" << c.nLevels << (c.bUpper ? " up" : " down");
}

TEST(ThreadSettings, StackSizeHasAOneMegabyteFloor) {
  EXPECT_EQ(SolvingThreadStackSize(0), 1u << 20);
  EXPECT_EQ(SolvingThreadStackSize(512), 1u << 20);
  EXPECT_EQ(SolvingThreadStackSize(513), 513u * 2048);
  EXPECT_EQ(SolvingThreadStackSize(65535), 65535u * 2048);
}

TEST(ThreadSettings, LabelNamesTheSolvingMode) {
  const std::tuple<std::size_t, int, const char*> cases[] = {
      {4, 1, "SnglSolution, 4thrd(s)"},
      {4, 5, "SnglSolution, 4thrd(s)"},
      {16, 2, "AllSolutions,16thrd(s)"},
      {4, 6, "AllSolutions, 4thrd(s)"},
      {4, 0, " 4thrd(s)"},
      {128, 3, "128thrd(s)"},
  };
  for (const auto& [threads, mode, text] : cases) EXPECT_EQ(ThreadCountLabel(threads, mode), text);
}

}  // namespace
