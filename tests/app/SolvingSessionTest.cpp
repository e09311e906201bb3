#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <mutex>

#include "SolvingSessionHelpers.h"
#include "app/SolvingRegistry.h"
#include "app/SolvingReports.h"
#include "app/WaitSchedule.h"

namespace {

using namespace sessiontest;

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;
using namespace std::chrono_literals;

const TSolvingResult& Solve(CSolvingSession& session, const TProblem& problem,
                            bool bFindAll = false, unsigned nThreads = 2) {
  const auto refusal = session.Start({.pProblem = &problem,
                                      .bFindAll = bFindAll,
                                      .threads = TThreadSettings{nThreads, 1},
                                      .bMirrorSwitch = false});
  EXPECT_EQ(refusal, std::nullopt);
  EXPECT_EQ(session.Wait({.bQuiet = true}), EWaitOutcome::Finished);
  return session.Requests().at(0)->result;
}

TEST(SolvingSession, FindsTheKeysOfShortMates) {
  CSolvingSession session(TestOptions());
  const struct {
    const char* szRow;
    bool bFindAll;
  } cases[] = {{"loyd-1859", false},
               {"meson-78844", false},
               {"pyreg-bp-02", true},
               {"pyreg-cast-08", false},
               {"nomate-meson-78844", true}};
  for (const auto& c : cases) {
    const auto problem = ReferenceProblem(kMates, c.szRow);
    const TSolvingResult& result = Solve(session, *problem, c.bFindAll);
    EXPECT_THAT(result.keyTexts, UnorderedElementsAreArray(ReferenceKeys(kMates, c.szRow)))
        << c.szRow;
    EXPECT_EQ(result.nSolutions, static_cast<int>(result.keys.size()));
    EXPECT_EQ(result.nResultCode, result.keys.empty() ? 0 : 1) << c.szRow;
    EXPECT_GT(result.nPositions, 0u);
    EXPECT_TRUE(result.sError.empty());
    EXPECT_FALSE(session.IsRunning());
  }
}

// Selfmates go through the same session: all their keys, with two threads, and no pass
// under heuristics planned, since the heuristics judge direct mates.
TEST(SolvingSession, SolvesSelfmates) {
  CSolvingSession session(TestOptions());
  for (const char* szRow : {"pyreg-bp-s06", "pyreg-cast-s01", "pyreg-selfref-01"}) {
    const auto problem = ReferenceProblem("selfmates.tsv", szRow);
    problem->SetStipulation(TStipulation::Selfmate(problem->stipulation.Moves()));
    const TSolvingResult& result = Solve(session, *problem, true);
    EXPECT_THAT(result.keyTexts, UnorderedElementsAreArray(ReferenceKeys("selfmates.tsv", szRow)))
        << szRow;
    EXPECT_EQ(result.nResultCode, 1) << szRow;
    EXPECT_EQ(result.sPass, "2") << szRow;
    EXPECT_THAT(session.Requests().at(0)->heuristicPasses, IsEmpty()) << szRow;
  }
}

TEST(SolvingSession, ReportsThroughCallbacks) {
  std::mutex mutex;
  std::vector<TPassProgress> progress;
  std::vector<TPassOutcome> outcomes;
  std::vector<TPassProgress> lastProgressOfPass;  // the report before each outcome
  std::atomic<int> nFinished{0};
  CSolvingSession session(TestOptions(), {.onProgress =
                                              [&](const TPassProgress& p) {
                                                const std::lock_guard lock(mutex);
                                                progress.push_back(p);
                                              },
                                          .onPassFinished =
                                              [&](const TPassOutcome& o) {
                                                const std::lock_guard lock(mutex);
                                                outcomes.push_back(o);
                                                if (!progress.empty())
                                                  lastProgressOfPass.push_back(progress.back());
                                              },
                                          .onSolveFinished = [&] { ++nFinished; }});
  const auto problem = ReferenceProblem(kMates, "loyd-1859", 0, 37);
  ASSERT_EQ(session.Start({.pProblem = problem.get(), .bMirrorSwitch = true}), std::nullopt);
  session.Wait({.bQuiet = true});
  EXPECT_EQ(nFinished, 1);
  ASSERT_FALSE(progress.empty());
  EXPECT_EQ(progress.front().sLabel, "37");
  EXPECT_EQ(progress.front().nMoves, 2);
  ASSERT_EQ(outcomes.size(), 2u);  // the position and its mirror
  EXPECT_EQ(outcomes[1].sLabel, "37 M1");
  EXPECT_THAT(outcomes[0].reportLines,
              ElementsAreArray({"Engine has completed: 37",
                                "Thread solving problem 37 completed successfully.",
                                "1 solution(s) found of the problem 37"}));
  EXPECT_THAT(outcomes[0].result.keyTexts, ElementsAreArray({"Qh5-a5"}));
  EXPECT_THAT(outcomes[1].result.keyTexts, ElementsAreArray({"Qa5-h5"}));
  EXPECT_EQ(outcomes[0].result.nMove, MoveOf("Qh5-a5").from | MoveOf("Qh5-a5").to << 8);
  // Each pass's last report gives its final figures, however quickly it ended.
  ASSERT_EQ(lastProgressOfPass.size(), outcomes.size());
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    EXPECT_EQ(lastProgressOfPass[i].sLabel, outcomes[i].sLabel);
    EXPECT_GT(outcomes[i].result.nPositions, 0u);
    EXPECT_EQ(lastProgressOfPass[i].nPositions, outcomes[i].result.nPositions);
  }
}

TEST(SolvingSession, StopEndsALongSolveThatSaysItDidNotFinish) {
  const int nThreadsBefore = ThreadCountBeforeSolving();
  CProgressEvents events;
  CSolvingSession session(TestOptions(), events.Callbacks());
  const auto problem = ReferenceProblem(kLongSolveFile, kLongSolveRow, 0, 8);
  ASSERT_EQ(session.Start({.pProblem = problem.get(), .bMirrorSwitch = true}), std::nullopt);
  ASSERT_TRUE(events.WaitUntil(session, [&] { return session.Positions() > 0; }));
  EXPECT_TRUE(GetSolvingRegistry().Contains("8"));
  session.Stop();
  EXPECT_EQ(session.Wait({.bQuiet = true}), EWaitOutcome::Finished);
  EXPECT_FALSE(session.IsRunning());
  EXPECT_FALSE(GetSolvingRegistry().Contains("8"));
  EXPECT_EQ(ProcessThreadCount(), nThreadsBefore);
  const auto& requests = session.Requests();
  ASSERT_EQ(requests.size(), 2u);
  EXPECT_TRUE(requests[0]->result.bStopped);
  EXPECT_FALSE(requests[1]->result.bRun);  // the mirrored pass never started
  EXPECT_THAT(CompletionReport(1, "8", requests[0]->result),
              ElementsAre("Thread stopped", "Engine stopped: 8"));
}

TEST(SolvingSession, TimeLimitStopsTheSolveWithCode3) {
  const int nThreadsBefore = ThreadCountBeforeSolving();
  CProgressEvents events;
  CSolvingSession session(TestOptions(), events.Callbacks());
  const auto problem = ReferenceProblem(kLongSolveFile, kLongSolveRow);
  ASSERT_EQ(session.Start({.pProblem = problem.get()}), std::nullopt);
  ASSERT_TRUE(events.WaitUntil(session, [&] { return session.Positions() > 0; }));
  // A clock on which the limit has passed by the first look after the wait began.
  const auto start = Clock::now();
  int nReadings = 0;
  const auto clock = [&] { return nReadings++ == 0 ? start : start + 5s; };
  EXPECT_EQ(session.Wait({.bQuiet = true, .nTimeLimitSeconds = 5, .clock = clock}),
            EWaitOutcome::TimedOut);
  EXPECT_FALSE(session.IsRunning());
  EXPECT_EQ(ProcessThreadCount(), nThreadsBefore);
  const TSolvingResult& result = session.Requests().at(0)->result;
  EXPECT_EQ(result.nResultCode, kTimedOutResultCode);
  EXPECT_EQ(result.nMove, 0xFFFF);
  EXPECT_THAT(CompletionReport(1, "1", result), ElementsAre("Thread stopped", "Engine stopped: 1"));
}

TEST(SolvingSession, WaiterWakesEverySecondAndAtTheTimeLimit) {
  const Clock::time_point t0{};
  const auto At = [t0](std::chrono::milliseconds ms) { return t0 + ms; };
  const struct {
    std::optional<Clock::duration> limit;
    std::chrono::milliseconds now;  // the waiter wakes here and looks
    bool bTick, bTimeUp;
    std::chrono::milliseconds nextWake;
  } cases[] = {
      {std::nullopt, 0ms, false, false, 1000ms},
      {std::nullopt, 1000ms, true, false, 2000ms},
      {std::nullopt, 3500ms, true, false, 4000ms},  // a late wake reports one tick
      {1500ms, 0ms, false, false, 1000ms},
      {1500ms, 1000ms, true, false, 1500ms},  // the limit, not the next second
      {1500ms, 1499ms, true, false, 1500ms},
      {1500ms, 1500ms, true, true, 1500ms},
      {300ms, 0ms, false, false, 300ms},
      {300ms, 300ms, false, true, 300ms},
  };
  for (const auto& c : cases) {
    CWaitSchedule schedule(t0, c.limit);
    EXPECT_EQ(schedule.TakeTick(At(c.now)), c.bTick) << c.now.count();
    EXPECT_EQ(schedule.IsTimeUp(At(c.now)), c.bTimeUp) << c.now.count();
    EXPECT_EQ(schedule.NextWake(), At(c.nextWake)) << c.now.count();
  }
}

TEST(SolvingSession, QuietWaiterSleepsBetweenItsWakes) {
  CSolvingSession session(TestOptions());
  const auto problem = ReferenceProblem(kMates, "loyd-excelsior", option::kNoMirror);
  ASSERT_EQ(session.Start({.pProblem = problem.get()}), std::nullopt);
  // A clock on which the first second is over at once, and which then goes on slowly: a
  // waiter that does not move on to its next wake spins, reading it without end.
  const auto start = Clock::now();
  int nReadings = 0;
  const auto clock = [&] {
    const int n = nReadings++;
    return n == 0 ? start : start + 1s + 10ms * (n - 1);
  };
  EXPECT_EQ(session.Wait({.bQuiet = true, .clock = clock}), EWaitOutcome::Finished);
  EXPECT_LT(nReadings, 100);
}

TEST(SolvingSession, PausesHoldTheThreadsUntilResumedOrStopped) {
  const auto problem = ReferenceProblem(kMates, "loyd-excelsior", option::kNoMirror);
  const struct {
    bool bOneThread;  // pause the thread of the current move only
    bool bStop;       // stop the paused solve instead of resuming it
  } cases[] = {{false, false}, {true, false}, {false, true}};
  for (const auto& c : cases) {
    CProgressEvents events;
    CSolvingSession session(TestOptions(), events.Callbacks());
    ASSERT_EQ(session.Start({.pProblem = problem.get(), .threads = TThreadSettings{1, 1}}),
              std::nullopt);
    // Asked at once: mostly before the solver has taken its first move.
    if (c.bOneThread)
      session.PauseOneThread();
    else
      session.PauseAll();
    ASSERT_TRUE(events.WaitUntil(session, [&] { return session.ParkedThreads() == 1; }))
        << "the solve ended before it could be paused";
    // The one worker is parked: the count cannot move.
    const std::uint64_t nPaused = session.Positions();
    events.WaitForAFreshReport();
    EXPECT_EQ(session.Positions(), nPaused);
    if (c.bStop)
      session.Stop();
    else
      session.Resume();
    EXPECT_EQ(session.Wait({.bQuiet = true}), EWaitOutcome::Finished);
    const TSolvingResult& result = session.Requests().at(0)->result;
    EXPECT_EQ(result.bStopped, c.bStop);
    if (c.bStop) continue;
    EXPECT_GT(result.nPositions, nPaused);
    EXPECT_THAT(result.keyTexts, ElementsAreArray(ReferenceKeys(kMates, "loyd-excelsior")));
  }
}

TEST(SolvingSession, RegisterIsClearedOnStartOnlyWhenTheSettingSaysSo) {
  const auto problem = ReferenceProblem(kMates, "meson-78844");
  for (bool bClear : {true, false}) {
    COptions options = TestOptions();
    options.bClearRegisterOnStartSolving = bClear;
    CSolvingSession session(options);
    // One thread, so that the same search examines the same positions.
    const std::uint64_t nFirst = Solve(session, *problem, false, 1).nPositions;
    const std::uint64_t nSecond = Solve(session, *problem, false, 1).nPositions;
    if (bClear)
      EXPECT_EQ(nSecond, nFirst);
    else
      EXPECT_LT(nSecond, nFirst / 2);
  }
}

TEST(SolvingSession, ForcedThreadCountIsAdoptedOnYes) {
  const auto problem = ReferenceProblem(kMates, "loyd-1859", option::kNoMirror);
  problem->nThreads = 1;
  for (bool bYes : {true, false}) {
    std::string question;
    CSolvingSession session(TestOptions(), {.askForcedThreads = [&](const TThreadSettings& forced,
                                                                    const std::string& text) {
                              EXPECT_EQ(forced.nThreads, 1u);
                              question = text;
                              return bYes;
                            }});
    ASSERT_EQ(session.Start({.pProblem = problem.get(), .threads = TThreadSettings{2, 1}}),
              std::nullopt);
    session.Wait({.bQuiet = true});
    EXPECT_EQ(question,
              "Engine wants to force a different number of threads (1). Do you accept it?");
    EXPECT_EQ(session.Requests().at(0)->threads.nThreads, bYes ? 1u : 2u);
  }
}

TEST(SolvingSession, RefusesWhatCannotBeSolved) {
  CSolvingSession session(TestOptions());
  // Black is in check with White to move.
  const auto checked = DirectMateFromFen("4k3/8/8/8/8/8/8/4RK2", 2);
  EXPECT_EQ(session.Start({.pProblem = checked.get()}),
            "Black king cannot be checked in the mate task starting postition.");
  const auto moveLine = DirectMateFromFen("4k3/8/8/8/8/8/8/5K2", 2);
  moveLine->SetStipulation(TStipulation::MoveLine());
  EXPECT_EQ(session.Start({.pProblem = moveLine.get()}),
            "Only direct mates (#N) and selfmates (s#N) are solved.");

  const auto busy = DirectMateFromFen("4k3/8/8/8/8/8/8/5K2", 2, 913);
  GetSolvingRegistry().Add("913_0", 1);
  EXPECT_EQ(session.Start({.pProblem = busy.get(), .bFindAll = true}),
            "Too many problems being solved at the same time.");
  GetSolvingRegistry().Remove("913_0");
  EXPECT_FALSE(session.IsRunning());
  EXPECT_THAT(session.Requests(), IsEmpty());
}

}  // namespace
