#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ThreadControls.h"
#include "app/ThreadCountLabel.h"
#include "app/ThreadSettings.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
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

TEST(ThreadSettings, LabelNamesWhatTheSolveLooksFor) {
  using enum EThreadLabelMode;
  const std::tuple<std::size_t, EThreadLabelMode, const char*> cases[] = {
      {4, SingleSolution, "SnglSolution, 4thrd(s)"},
      {16, AllSolutions, "AllSolutions,16thrd(s)"},
      {4, CountOnly, " 4thrd(s)"},
      {128, CountOnly, "128thrd(s)"},
  };
  for (const auto& [threads, mode, text] : cases) EXPECT_EQ(ThreadCountLabel(threads, mode), text);
  EXPECT_EQ(ThreadLabelModeOf(ESolvingMode::SingleSolution), SingleSolution);
  EXPECT_EQ(ThreadLabelModeOf(ESolvingMode::AllSolutions), AllSolutions);
  EXPECT_EQ(ThreadLabelModeOf(ESolvingMode::StopOnDual), CountOnly);
  EXPECT_EQ(ThreadLabelModeOf(ESolvingMode::StopOn3Sol), CountOnly);
}

// "T^L" as the user types it: refused with a reason, or read, with a note where what runs
// differs from what was asked.
TEST(ThreadSettings, TypedSettingsAreReadRefusedOrExplained) {
  struct TCase {
    const char* szText;
    std::optional<TThreadSettings> expected;
    const char* szMessage;  // in the refusal, or in the one note; "" for neither
  };
  const TCase cases[] = {
      {"4", TThreadSettings{4, 1}, ""},
      {"4^2", TThreadSettings{4, 2}, ""},
      {"16^2", TThreadSettings{16, 2}, ""},  // 256 threads at once, all of them run
      {"64^2", TThreadSettings{64, 2},
       "\"64^2\" asks for 4096 threads at once; the engine runs "
       "256, its most"},
      {"17^2", TThreadSettings{17, 2}, "asks for 289 threads at once"},
      {"1^5", TThreadSettings{1, 1}, "\"1^5\": one thread runs at one level"},
      {"31^3", TThreadSettings{31, 3}, "the engine runs 256"},
      {"32^3", std::nullopt,
       "\"32^3\" is too many threads: t + t^2 + ... + t^L must stay below "
       "32767"},
      {"0", std::nullopt, "\"0\": threads and levels go from 1 to 64"},
      {"65", std::nullopt, "go from 1 to 64"},
      {"4^0", std::nullopt, "go from 1 to 64"},
      {"4^65", std::nullopt, "go from 1 to 64"},
      {"4294967300", std::nullopt, "is not T or T^L"},  // does not wrap to 4
      {"", std::nullopt, "\"\" is not T or T^L (threads, and levels after the ^)"},
      {"4^", std::nullopt, "is not T or T^L"},
      {"^2", std::nullopt, "is not T or T^L"},
      {"-4", std::nullopt, "is not T or T^L"},
      {"4^2^2", std::nullopt, "is not T or T^L"},
      {" 4", std::nullopt, "is not T or T^L"},
      {"4x", std::nullopt, "is not T or T^L"},
  };
  for (const TCase& c : cases) {
    const TThreadSettingsReading reading = ReadThreadSettings(c.szText);
    EXPECT_EQ(reading.settings, c.expected) << c.szText;
    const std::string message =
        reading.settings ? (reading.notes.empty() ? "" : reading.notes[0]) : reading.sRefusal;
    EXPECT_THAT(message, HasSubstr(c.szMessage)) << c.szText;
    EXPECT_EQ(message.empty(), c.szMessage[0] == '\0') << c.szText;
    EXPECT_LE(reading.notes.size(), 1u) << c.szText;
  }
}

}  // namespace
