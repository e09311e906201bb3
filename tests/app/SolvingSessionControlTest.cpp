// The session's answers to what goes wrong in a solve and to the commands of the user.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <new>
#include <optional>
#include <set>
#include <string>

#include "SolvingSessionHelpers.h"
#include "TempFolder.h"
#include "app/SolvingRegistry.h"
#include "core/ChessException.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"

namespace {

using namespace sessiontest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// A register whose room check throws: the search files answers in every worker.
class CThrowingRegister : public TChessboardRegister<bool> {
 public:
  explicit CThrowingRegister(std::exception_ptr thrown)
      : TChessboardRegister<bool>(1'000'000), failure(thrown) {}
  std::uint32_t GetElementsIn() const override { std::rethrow_exception(failure); }

 private:
  std::exception_ptr failure;
};

TEST(SolvingSessionControl, AFailedSolveIsReportedWithItsError) {
  // A #4: the search files its answers from the first moves on.
  const auto problem = ReferenceProblem(kMates, "anon-4", option::kNoMirror, 6);
  CThrowingRegister incoherent(std::make_exception_ptr(
      ChessException("Incoherent information in TChessboardRegister::Insert()")));
  CThrowingRegister exhausted(std::make_exception_ptr(std::bad_alloc()));
  const struct {
    TSessionSeams seams;
    const char* szError;
  } cases[] = {
      {{.pRegister = &incoherent}, "Incoherent information in TChessboardRegister::Insert()"},
      {{.pRegister = &exhausted}, "std::bad_alloc"},
      {{.startThread = [](CSolvingThread&, std::function<void()>, std::size_t) { return false; }},
       "The solving threads could not be started (code 128)."},
  };
  for (const auto& c : cases) {
    std::vector<TPassOutcome> outcomes;
    CSolvingSession session(
        TestOptions(), {.onPassFinished = [&](const TPassOutcome& o) { outcomes.push_back(o); }},
        c.seams);
    ASSERT_EQ(session.Start({.pProblem = problem.get(), .threads = TThreadSettings{3, 1}}),
              std::nullopt);
    EXPECT_EQ(session.Wait({.bQuiet = true}), EWaitOutcome::Finished);
    EXPECT_FALSE(GetSolvingRegistry().Contains("6"));
    ASSERT_THAT(outcomes, SizeIs(1));
    EXPECT_THAT(outcomes[0].reportLines,
                ElementsAre("Engine has completed: 6",
                            "Thread solving problem 6 completed with error:", c.szError,
                            "No solution found of the problem 6"));
  }
}

TEST(SolvingSessionControl, ManualCommandsReachTheRunningSolveOnlyWhenEnabled) {
  // Many keys: every move that keeps the mate in reach; the one skipped is lost. One pass
  // only: a later pass would search the skipped move again.
  const auto problem = DirectMateFromFen("k7/8/1K6/8/8/8/8/7R", 3);
  const TSolveOrder order{.pProblem = problem.get(),
                          .threads = TThreadSettings{1, 1},
                          .heuristics = heuristicchoice::ReadNamedSet("none")};
  problem->options = option::kNoMirror | option::kAllSolutions;
  std::optional<int> nAllKeys;
  for (bool bEnabled : {true, false}) {
    COptions options = TestOptions();
    options.bEnableManualEngineControl = bEnabled;
    CProgressEvents events;
    CSolvingSession session(options, events.Callbacks());
    ASSERT_EQ(session.Start(order), std::nullopt);
    if (!nAllKeys) {
      // A first solve without commands counts the keys.
      session.Wait({.bQuiet = true});
      nAllKeys = session.Requests().at(0)->result.nSolutions;
      ASSERT_EQ(session.Start(order), std::nullopt);
    }
    // Hold the solve at a move that is being searched, then skip that move.
    session.PauseOneThread();
    ASSERT_TRUE(events.WaitUntil(session, [&] { return session.ParkedThreads() == 1; }));
    EXPECT_EQ(session.ApplyManualCommand(EManualCommand::SkipToNextMove), bEnabled);
    session.Resume();
    EXPECT_EQ(session.Wait({.bQuiet = true}), EWaitOutcome::Finished);
    EXPECT_EQ(session.Requests().at(0)->result.nSolutions, *nAllKeys - (bEnabled ? 1 : 0));
  }
}

TEST(SolvingSessionControl, AnInterruptedSessionStartsNoFurtherSolve) {
  CProgressEvents events;
  CSolvingSession session(TestOptions(), events.Callbacks());
  const auto problem = ReferenceProblem(kLongSolveFile, kLongSolveRow, option::kNoMirror, 3);
  ASSERT_EQ(session.Start({.pProblem = problem.get()}), std::nullopt);
  ASSERT_TRUE(events.WaitUntil(session, [&] { return session.Positions() > 0; }));
  session.Interrupt();
  EXPECT_EQ(session.Wait({.bQuiet = true}), EWaitOutcome::Finished);
  EXPECT_TRUE(session.Requests().at(0)->result.bStopped);
  EXPECT_EQ(session.Start({.pProblem = problem.get()}), "Solving has been stopped.");
  EXPECT_TRUE(session.IsInterrupted());
}

// A moves log that cannot be opened (a folder stands at its name) loses its lines, and the
// user is told once, by the file's name, however many lines and solves fail; the keys are
// found all the same.
TEST(SolvingSessionControl, AMovesLogThatCannotBeWrittenIsToldOnce) {
  const CTempFolder folder;
  const std::filesystem::path previous = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  std::filesystem::create_directory("MovesLogger_problem37_thread0.log");
  std::mutex mutex;
  std::vector<std::string> messages;
  COptions options = TestOptions();
  options.bLogMoves = true;
  {
    CSolvingSession session(options, {.onMessage = [&](const std::string& message) {
                              const std::lock_guard lock(mutex);
                              messages.push_back(message);
                            }});
    const auto problem = ReferenceProblem(kMates, "loyd-1859", option::kNoMirror, 37);
    for (int nSolve = 0; nSolve < 2; ++nSolve) {
      ASSERT_EQ(session.Start({.pProblem = problem.get(), .threads = TThreadSettings{1, 1}}),
                std::nullopt);
      session.Wait({.bQuiet = true});
      EXPECT_THAT(session.Requests().at(0)->result.keyTexts, ElementsAre("Qh5-a5"));
    }
  }
  std::filesystem::current_path(previous);
  ASSERT_THAT(messages, SizeIs(1));
  EXPECT_EQ(messages[0], "Error opening file: MovesLogger_problem37_thread0.log");
}

// Each worker of a running pass names the first move it searches, by its place among the first
// moves and by its text; between solves there is none.
TEST(SolvingSessionControl, ThreadMovesNameTheFirstMoveOfEachWorker) {
  CProgressEvents events;
  CSolvingSession session(TestOptions(), events.Callbacks());
  EXPECT_THAT(session.ThreadMoves(), IsEmpty());
  const auto problem = ReferenceProblem(kLongSolveFile, kLongSolveRow, option::kNoMirror, 1);
  std::set<std::string> firstMoves;
  for (TMove move : movemaking::LegalMoves(problem->start))
    firstMoves.insert(notation::MoveToText(problem->start, move));
  ASSERT_EQ(session.Start({.pProblem = problem.get(), .threads = TThreadSettings{2, 1}}),
            std::nullopt);
  std::vector<TThreadMove> moves;
  EXPECT_TRUE(events.WaitUntil(session, [&] {
    moves = session.ThreadMoves();
    return std::ranges::count_if(moves, [](const TThreadMove& m) { return m.nMove >= 0; }) > 0;
  }));
  session.Stop();
  session.Wait({.bQuiet = true});
  ASSERT_THAT(moves, SizeIs(2));
  for (const TThreadMove& move : moves) {
    if (move.nMove < 0) {
      EXPECT_EQ(move.sMove, "");
      continue;
    }
    EXPECT_LT(move.nMove, static_cast<int>(firstMoves.size()));
    EXPECT_TRUE(firstMoves.contains(move.sMove)) << move.sMove;
  }
  EXPECT_THAT(session.ThreadMoves(), IsEmpty());
}

}  // namespace
