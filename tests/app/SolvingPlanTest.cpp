#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SolvingFixtures.h"
#include "app/AnswerCheck.h"
#include "app/FenProblem.h"
#include "app/SolvingPlan.h"
#include "core/BoardTransforms.h"
#include "core/Fen.h"

namespace {

using ::testing::ElementsAreArray;

// Queen on h5; no castling possible.
constexpr const char* kPlainFen = "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8";
// White may castle short.
constexpr const char* kCastlingFen = "8/Q7/8/8/8/8/8/2k1K2R";

std::vector<int> MirrorPasses(const char* fen, std::uint16_t options, bool bMirrorSwitch) {
  const auto problem = DirectMateFromFen(fen, 2);
  problem->options = options;
  std::vector<int> passes;
  for (const auto& request : PlanSolvingPasses(*problem, {.bMirrorSwitch = bMirrorSwitch}))
    passes.push_back(request->nMirrorPass);
  return passes;
}

TEST(SolvingPlan, WhichBoardPassesRun) {
  using namespace option;
  const struct {
    const char* fen;
    std::uint16_t options;
    bool bMirrorSwitch;
    std::vector<int> passes;
  } cases[] = {
      {kPlainFen, 0, true, {0, 1}},
      {kPlainFen, kNoMirror, true, {0}},
      {kPlainFen, kMirrorOnly, true, {1}},
      {kPlainFen, kMirrorOnly | kNoMirror, true, {1}},
      {kPlainFen, 0, false, {0}},
      {kPlainFen, kMirrorOnly, false, {1}},
      // Castling starts only from the e-file: the mirror would be another problem.
      {kCastlingFen, 0, true, {0}},
      {kCastlingFen, kMirrorOnly, true, {1}},
  };
  for (const auto& c : cases)
    EXPECT_THAT(MirrorPasses(c.fen, c.options, c.bMirrorSwitch), ElementsAreArray(c.passes))
        << c.fen << " options " << c.options << " switch " << c.bMirrorSwitch;
}

TEST(SolvingPlan, MirroredPassGetsTheMirroredBoard) {
  const auto problem = DirectMateFromFen(kPlainFen, 2, 12);
  const auto passes = PlanSolvingPasses(*problem, {.bMirrorSwitch = true});
  ASSERT_EQ(passes.size(), 2u);
  EXPECT_EQ(fen::WriteShortFen(passes[0]->board), kPlainFen);
  EXPECT_EQ(fen::WriteShortFen(passes[1]->board), "2brrb2/8/7p/Q7/1pPpk1p1/1K1Np1P1/4P3/8");
  EXPECT_EQ(passes[0]->Label(), "12");
  EXPECT_EQ(passes[1]->Label(), "12 M1");
  EXPECT_EQ(passes[1]->RegistryName(), "12_1");
}

TEST(SolvingPlan, SafeMode) {
  const auto problem = DirectMateFromFen(kPlainFen, 2);
  const struct {
    bool bQuickMode;
    std::uint16_t options;
    bool bSafe;
  } cases[] = {{true, 0, false},
               {true, option::kSafeMode, true},
               {false, 0, true},
               {false, option::kSafeMode, true}};
  for (const auto& c : cases) {
    problem->options = c.options;
    EXPECT_EQ(RunsInSafeMode(*problem, c.bQuickMode), c.bSafe);
    EXPECT_EQ(PlanSolvingPasses(*problem, {.bQuickMode = c.bQuickMode})[0]->bSafeMode, c.bSafe);
  }
}

// Quick mode gives way to safe mode where few minor pieces shuffle on both sides.
TEST(SolvingPlan, PositionKindsThatForceSafeMode) {
  const struct {
    const char* fen;
    bool bSafe;
  } cases[] = {
      {"8/8/8/3b4/8/1k6/8/K1N5", true},     // bishop against knight
      {"8/8/2n5/3b4/8/1k6/8/KBN5", true},   // two minors each
      {"8/8/8/3b4/8/1k6/5P2/K1N5", true},   // pawns do not count
      {"8/8/8/3b4/8/1k6/8/K1R5", false},    // a rook is no minor piece
      {"8/8/8/8/8/1k6/8/K1N5", false},      // Black has nothing to shuffle
      {"8/8/n7/3b4/8/1k6/8/KBNN4", false},  // three White minors
      {"8/8/8/3b4/8/1k5q/8/K1N5", false},   // and a queen
  };
  for (const auto& c : cases) {
    const auto problem = DirectMateFromFen(c.fen, 3);
    EXPECT_EQ(RunsInSafeMode(*problem, true), c.bSafe) << c.fen;
  }
}

TEST(SolvingPlan, SolvingModes) {
  using namespace option;
  using enum ESolvingMode;
  const auto problem = DirectMateFromFen(kPlainFen, 2);
  const struct {
    std::uint16_t options;
    bool bForceAll;
    ESolvingMode mode;
    int nMaxSolutions;
  } cases[] = {
      {0, false, SingleSolution, 1},
      {kAllSolutions, false, AllSolutions, 0},
      {kStopOnDual, false, StopOnDual, 2},
      {kStopOn3Sol, false, StopOn3Sol, 3},
      {kAllSolutions | kStopOnDual, false, StopOnDual, 2},
      {0, true, AllSolutions, 0},
      {kStopOnDual, true, AllSolutions, 0},
  };
  for (const auto& c : cases) {
    problem->options = c.options;
    EXPECT_EQ(SolvingModeOf(*problem, c.bForceAll), c.mode) << c.options << " " << c.bForceAll;
    EXPECT_EQ(MaxSolutions(c.mode), c.nMaxSolutions);
  }
}

TEST(SolvingPlan, ThreadsAskedForByTheProblem) {
  const auto problem = DirectMateFromFen(kPlainFen, 2);
  const TThreadSettings configured{4, 1};
  const struct {
    std::uint8_t nThreads, nLevels;
    std::optional<TThreadSettings> forced;
  } cases[] = {
      {TProblem::kThreadsNotGiven, 0, std::nullopt},
      {4, 0, std::nullopt},  // agrees
      {8, 0, TThreadSettings{8, 1}},
      {4, 2, TThreadSettings{4, 2}},
      {1, 3, TThreadSettings{1, 1}},  // one thread runs at one level
      {32, 3, std::nullopt},          // 32^3 is too many
      {0, 0, std::nullopt},
  };
  for (const auto& c : cases) {
    problem->nThreads = c.nThreads;
    problem->nSecondLevelThreads = c.nLevels;
    EXPECT_EQ(ForcedThreadSettings(*problem, configured), c.forced) << int(c.nThreads);
  }
}

TEST(AnswerCheck, KeysAgainstTheRecordedAnswer) {
  using enum ESolvingMode;
  using enum EAnswerCheck;
  const auto problem = DirectMateFromFen(kPlainFen, 2);
  const struct {
    std::vector<std::string> recorded;
    bool bRecorded;
    ESolvingMode mode;
    int nMirrorPass;
    std::vector<std::string> found;
    EAnswerCheck check;
  } cases[] = {
      {{"Qh5-a5"}, true, SingleSolution, 0, {"Qh5-a5"}, Matched},
      {{"Qh5-a5"}, true, SingleSolution, 0, {"Qh5-h4"}, Mismatched},
      {{"Qh5-a5"}, true, SingleSolution, 0, {}, Mismatched},
      {{"Qh5-a5"}, false, SingleSolution, 0, {"Qh5-h4"}, NotRecorded},
      // Stopped at its limit: only recorded keys may be found.
      {{"Qh5-a5", "Qh5-h4"}, true, SingleSolution, 0, {"Qh5-h4"}, Matched},
      {{"Qh5-a5", "Qh5-h4"}, true, StopOnDual, 0, {"Qh5-h4", "Qh5-a5"}, Matched},
      // Looked for more than it found: the sets must agree.
      {{"Qh5-a5", "Qh5-h4"}, true, StopOnDual, 0, {"Qh5-h4"}, Mismatched},
      {{"Qh5-a5", "Qh5-h4"}, true, AllSolutions, 0, {"Qh5-h4"}, Mismatched},
      {{"Qh5-a5"}, true, AllSolutions, 0, {"Qh5-a5", "Qh5-h4"}, Mismatched},
      {{}, true, AllSolutions, 0, {}, Matched},
      // Captures written with ':' and promotions by type.
      {{"e4:d5"}, true, SingleSolution, 0, {"e4-d5"}, Matched},
      {{"e7-e8Q"}, true, AllSolutions, 0, {"e7-e8R"}, Mismatched},
      // The mirrored pass finds the mirrored key.
      {{"Qh5-a5"}, true, SingleSolution, 1, {"Qa5-h5"}, Matched},
      {{"Qh5-a5"}, true, SingleSolution, 1, {"Qh5-a5"}, Mismatched},
  };
  for (const auto& c : cases) {
    problem->answer.clear();
    for (const auto& text : c.recorded) problem->answer.push_back(MoveOf(text));
    problem->options = c.bRecorded ? option::kAnswerGiven : 0;
    SolvingRequest request;
    request.pProblem = problem.get();
    request.solvingMode = c.mode;
    request.nMirrorPass = c.nMirrorPass;
    for (const auto& text : c.found) request.result.keys.push_back(MoveOf(text));
    EXPECT_EQ(CheckAnswer(request), c.check)
        << testing::PrintToString(c.recorded) << " vs " << testing::PrintToString(c.found);
  }
}

}  // namespace
