// Control of a running solve through real solves: what its threads throw, a failed thread
// start, and the keys it reports whatever the threads.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <exception>
#include <functional>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "SolveControlHelpers.h"
#include "core/ChessException.h"

namespace {

using namespace solvecontrol;
using ::testing::ElementsAreArray;

// A register whose room check throws where bFailHere says: every worker files answers, so
// the failure reaches the workers wherever they are in their search.
class CFailingRegister : public TChessboardRegister<bool> {
 public:
  CFailingRegister(std::function<bool()> bFail, std::exception_ptr thrown)
      : TChessboardRegister<bool>(1'000'000), bFailHere(std::move(bFail)), failure(thrown) {}
  std::uint32_t GetElementsIn() const override {
    if (bFailHere()) std::rethrow_exception(failure);
    return TChessboardRegister<bool>::GetElementsIn();
  }

 private:
  std::function<bool()> bFailHere;
  std::exception_ptr failure;
};

TEST(SolveControl, WhatAWorkerThrowsEndsTheSolveAndReachesTheCaller) {
  // A #4 with many first moves: every worker gets one and files answers.
  const TProblemPosition problem = Row("directmates.tsv", "anon-4");
  const auto incoherence = std::make_exception_ptr(
      ChessException("Incoherent information in TChessboardRegister::Insert()"));
  const auto noMemory = std::make_exception_ptr(std::bad_alloc());
  enum class EWhere { FirstWorker, OtherWorker, Everywhere };
  const struct {
    EWhere where;
    std::exception_ptr failure;
    const char* szWhat;
  } cases[] = {
      {EWhere::FirstWorker, incoherence, "Incoherent information in TChessboardRegister::Insert()"},
      {EWhere::OtherWorker, incoherence, "Incoherent information in TChessboardRegister::Insert()"},
      {EWhere::FirstWorker, noMemory, "std::bad_alloc"},
      {EWhere::OtherWorker, noMemory, "std::bad_alloc"},
      {EWhere::Everywhere, noMemory, "std::bad_alloc"},
  };
  const std::thread::id caller = std::this_thread::get_id();  // the solve's first worker
  for (const auto& c : cases) {
    CEvent otherThrew;
    CFailingRegister reg(
        [&] {
          const bool bFirstWorker = std::this_thread::get_id() == caller;
          switch (c.where) {
            case EWhere::FirstWorker:
              return bFirstWorker;
            case EWhere::OtherWorker:
              // The first worker goes on only once another one has thrown, so that it is
              // still searching when the failure comes.
              if (bFirstWorker)
                otherThrew.Wait();
              else
                otherThrew.Set();
              return !bFirstWorker;
            case EWhere::Everywhere:
              break;
          }
          return true;
        },
        c.failure);
    CMateSolver solver(Position(problem.fen), problem.nMoves,
                       {.nThreads = 3, .nMaxSolutions = 0, .pRegister = &reg});
    try {
      solver.Run();
      ADD_FAILURE() << "the failure was lost: " << c.szWhat;
    } catch (const std::exception& error) {
      EXPECT_STREQ(error.what(), c.szWhat);
    }
  }
}

TEST(SolveControl, AFailedThreadStartEndsTheStartedThreadsAndSaysSo) {
  // Long enough that the started threads are still searching when they are told to end.
  const TProblemPosition problem = Row("moremovers.tsv", "mt-04273");
  for (int nStarted : {0, 1, 2}) {
    int nCalls = 0;
    TChessboardRegister<bool> reg(1'000'000);
    CMateSolver solver(
        Position(problem.fen), problem.nMoves,
        {.nThreads = 4,
         .pRegister = &reg,
         .hooks = {.startThread = [&](CSolvingThread& thread, std::function<void()> body,
                                      std::size_t nStack) {
           return nCalls++ < nStarted && thread.Start(std::move(body), nStack);
         }}});
    const TRootOutcome outcome = solver.Run();
    EXPECT_EQ(outcome.nErrorCode, kThreadStartFailed) << nStarted;
    EXPECT_EQ(nCalls, nStarted + 1);
    EXPECT_EQ(outcome.result, mate::kDoubtful);
  }
}

TEST(SolveControl, KeysAreTheFirstProvenInTheSortedOrderWhateverTheThreads) {
  const TProblemPosition problems[] = {
      Row("directmates.tsv", "pyreg-bp-02"),
      {"k7/8/1K6/8/8/8/8/7R", 3},  // many keys: every move that keeps the mate in reach
      {"1k6/8/1K6/8/8/8/8/5R2", 3},
  };
  for (const TProblemPosition& problem : problems) {
    // One thread settles the first moves in the sorted order.
    const std::vector<std::string> all = Keys(problem, 1, 0);
    ASSERT_GE(all.size(), 2u) << problem.fen;
    for (int nWanted = 1; nWanted <= 3 && nWanted <= static_cast<int>(all.size()); ++nWanted) {
      const std::vector<std::string> first(all.begin(), all.begin() + nWanted);
      for (int nThreads : {1, 2, 4, 2, 4})
        EXPECT_THAT(Keys(problem, nThreads, nWanted), ElementsAreArray(first))
            << problem.fen << ", " << nWanted << " wanted, " << nThreads << " threads";
    }
  }
}

TEST(SolveControl, AKeyFoundFirstByALaterMoveWaitsForTheEarlierMoves) {
  const TProblemPosition problem{"k7/8/1K6/8/8/8/8/7R", 3};
  const TChessboard start = Position(problem.fen);
  const std::vector<std::string> all = Keys(problem, 1, 0);
  // The first three moves in the sorted order are keys, and two are wanted: the third is
  // settled before the second, which must not be given up for it.
  CEvent thirdSettled;
  TChessboardRegister<bool> reg(1'000'000);
  CMateSolver solver(start, problem.nMoves,
                     {.nThreads = 2,
                      .nMaxSolutions = 2,
                      .pRegister = &reg,
                      .hooks = {.onMoveTaken =
                                    [&](int nMove) {
                                      if (nMove == 1) thirdSettled.Wait();
                                    },
                                .onMoveSettled =
                                    [&](int nMove, MateResult) {
                                      if (nMove == 2) thirdSettled.Set();
                                    }}});
  const std::vector<std::string> firstMoves = Texts(start, solver.Root().FirstMoves());
  ASSERT_THAT(std::vector(firstMoves.begin(), firstMoves.begin() + 3),
              ElementsAreArray(std::vector(all.begin(), all.begin() + 3)));
  EXPECT_THAT(Texts(start, solver.Run().keys), ElementsAreArray({all[0], all[1]}));
}

// The scheduler's threads sleep with the others: a solve that lends time pauses, resumes and
// stops like any other, and no thread is left waiting for a permit.
TEST(SolveControl, ASolveThatLendsTimePausesResumesAndStops) {
  const TProblemPosition problem = Row("moremovers.tsv", "mt-04273");
  TChessboardRegister<bool> reg(1'000'000);
  CMateSolver solver(
      Position(problem.fen), problem.nMoves,
      {.nThreads = 2, .pRegister = &reg, .nSchedulerLevels = 6, .bCustomScheduler = true});
  std::atomic<bool> bEnded{false};
  TRootOutcome outcome;
  std::thread run([&] {
    outcome = solver.Run();
    bEnded = true;
  });
  while (solver.Root().LentPositions() == 0 && !bEnded)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_GT(solver.Root().LentPositions(), 0u) << "the solve ended before it lent time";
  solver.Pause();
  solver.Resume();
  solver.Stop();
  run.join();
  EXPECT_TRUE(outcome.bInterrupted);
}

}  // namespace
