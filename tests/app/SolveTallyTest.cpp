#include <gtest/gtest.h>

#include "SolvingFixtures.h"
#include "app/SolveTally.h"

namespace {

constexpr const char* kFen = "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8";

// What one pass left behind.
struct TPass {
  bool bRun = true;
  std::vector<const char*> keys;
  const char* szError = "";
  bool bStopped = false;
};

TProblemOutcome OutcomeOf(const TProblem& problem, const std::vector<TPass>& passes,
                          bool bTimedOut) {
  std::vector<std::unique_ptr<SolvingRequest>> requests;
  for (const TPass& pass : passes) {
    auto& request = requests.emplace_back(std::make_unique<SolvingRequest>());
    request->pProblem = &problem;
    request->solvingMode = ESolvingMode::AllSolutions;
    request->result.bRun = pass.bRun;
    request->result.sError = pass.szError;
    request->result.bStopped = pass.bStopped;
    for (const char* key : pass.keys) request->result.keys.push_back(MoveOf(key));
  }
  return ProblemOutcome(requests, bTimedOut);
}

TEST(SolveTally, AProblemEndsByTheWorstOfItsPasses) {
  using enum EProblemEnd;
  using enum EAnswerCheck;
  const TPass right{true, {"Qh5-a5"}, "", false};
  const TPass wrong{true, {"Qh5-h4"}, "", false};
  const TPass notRun{false, {}, "", false};
  const TPass broken{true, {}, "broken", false};
  const TPass stopped{true, {}, "", true};
  struct TCase {
    const char* szName;
    bool bAnswerRecorded;
    std::vector<TPass> passes;
    bool bTimedOut;
    TProblemOutcome expected;
  };
  const TCase cases[] = {
      {"matched", true, {right}, false, {Solved, Matched}},
      {"no answer recorded", false, {wrong}, false, {Solved, NotRecorded}},
      {"a mismatch in either pass", true, {right, wrong}, false, {Solved, Mismatched}},
      {"a mismatch before a match", true, {wrong, right}, false, {Solved, Mismatched}},
      // A planned pass is left out only when the solve was stopped before it.
      {"a pass that never ran", true, {right, notRun}, false, {NotFinished, Matched}},
      {"stopped by the user", true, {right, stopped}, false, {NotFinished, Matched}},
      {"an error", true, {right, broken}, false, {Failed, Matched}},
      {"out of time", true, {stopped}, true, {NotFinished, NotRecorded}},
      {"out of time with an error", true, {broken}, true, {Failed, NotRecorded}},
  };
  for (const TCase& c : cases) {
    const auto problem = DirectMateFromFen(kFen, 2);
    if (c.bAnswerRecorded) {
      problem->options |= option::kAnswerGiven;
      problem->answer = {MoveOf("Qh5-a5")};
    }
    const TProblemOutcome outcome = OutcomeOf(*problem, c.passes, c.bTimedOut);
    EXPECT_EQ(outcome.end, c.expected.end) << c.szName;
    EXPECT_EQ(outcome.check, c.expected.check) << c.szName;
  }
}

TEST(SolveTally, CountsAndFailures) {
  using enum EProblemEnd;
  using enum EAnswerCheck;
  CSolveTally tally;
  EXPECT_FALSE(tally.HasFailures());
  tally.Count({Solved, Matched});
  tally.Count({Solved, NotRecorded});
  tally.CountSkipped();
  EXPECT_FALSE(tally.HasFailures());
  EXPECT_EQ(tally.SummaryText(3725),
            "Solved 2 of 3 problems (0 not finished, 0 failed, 1 skipped); answers matched 1, "
            "mismatched 0; time 1:02:05");
  // A check of a problem that did not end solved is not counted.
  for (const TProblemOutcome& failure :
       {TProblemOutcome{Solved, Mismatched}, TProblemOutcome{NotFinished, Matched},
        TProblemOutcome{Failed, Mismatched}}) {
    CSolveTally one;
    one.Count(failure);
    EXPECT_TRUE(one.HasFailures()) << static_cast<int>(failure.end);
    tally.Count(failure);
  }
  EXPECT_EQ(tally.SummaryText(5),
            "Solved 3 of 6 problems (1 not finished, 1 failed, 1 skipped); answers matched 1, "
            "mismatched 1; time 0:05");
}

}  // namespace
