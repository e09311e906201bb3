#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "DirectMateRows.h"
#include "engine/HeuristicPlan.h"
#include "engine/MateSolver.h"
#include "engine/RegisterKey.h"
#include "registers/AggregatedTemporaryChessboardRegister.h"

namespace {

THeuristicSet Set(std::uint32_t mask) {
  THeuristicSet set;
  set.mask = mask;
  return set;
}

// Sets of every kind of restriction: on White's moves (every forced-mate mode, a forced-mate
// depth of one move and the mixture beyond it), on Black's replies, on whole nodes.
std::vector<std::vector<THeuristicSet>> Plans() {
  THeuristicSet edge = Set(shbit::kKeepKingOnTheEdge | shbit::kDontLoseAnyFigures);
  edge.edgeForm = EEdgeForm::kStrict;
  THeuristicSet kings = Set(shbit::kDontLetKingMove | shbit::kAreKingsNear |
                            shbit::kAssertBlackKingSurrounded | shbit::kCaptureKnight);
  THeuristicSet mixture = Set(shbit::kFindForcedMate | shbit::kDontLoseAnyFigures);
  mixture.forcedMateMode = EForcedMateMode::kMateIn2Plus;
  mixture.nForcedMateMoves = 1;
  THeuristicSet preliminary = mixture;
  preliminary.mask = shbit::kFindForcedMate;
  preliminary.bPreliminary = true;
  // The restrictions a variation takes on as it goes: the king held once on the edge, pieces
  // held once their king has shut them in.
  THeuristicSet dynamic = Set(shbit::kDontLoseAnyFigures);
  dynamic.fallback = EFallback::kKingStays;
  dynamic.bDynamicDlfu = true;
  return {heuristicplan::RelaxationPath(Set(shbit::kFindForcedMate)),
          {preliminary, mixture},
          {edge},
          {dynamic},
          {kings},
          {Set(shbit::kDontLetFigureUnblock | shbit::kDontRecedeBlackKing |
               shbit::kDontLetBlackQueenCheckTwice)},
          {Set(shbit::kSweepingWhiteRook | shbit::kZugzwangTriangles | shbit::kSeaSnake |
               shbit::kOneColorPlay)},
          {Set(shbit::kZugzwang | shbit::kUseBlockBlackPawnsLevel | shbit::k3MovesToMate |
               shbit::kSkipWorstWhiteMoves)},
          {Set(shbit::kSingleQueenMate)}};
}

struct TRun {
  TRootOutcome outcome;
  std::uint32_t reason;
};

TRun Solve(const testdata::TRow& row, const std::vector<THeuristicSet>& passes, bool bPass2,
           int nThreads = 1) {
  // The doubtful answers are kept, as a solve keeps them.
  TAggregatedTemporaryChessboardRegister reg(1'000'000);
  CMateSolver solver(matetest::Root(row), matetest::Moves(row),
                     {.nThreads = nThreads,
                      .nMaxSolutions = 0,
                      .pRegister = &reg,
                      .pDoubtful = &reg,
                      .heuristicPasses = passes,
                      .bPass2 = bPass2});
  TRun run{solver.Run(), 0};
  run.reason = solver.DoubtfulReason();
  return run;
}

// A heuristic only ever cuts to doubtful: the keys of the heuristic passes are published
// keys, a solve they leave without a key is doubtful (never "no mate" while a key exists),
// the reason names a member or the store, and the pass without heuristics then finds every
// published key through the doubtful answers filed before it.
TEST(HeuristicPasses, KeysOfEveryPassAreProvenAndPassTwoCompletesThem) {
  int nRows = 0;
  for (const auto& row : matetest::QuickRows(0.05, 2)) {
    const auto published = matetest::PublishedKeys(row);
    const TChessboard root = matetest::Root(row);
    for (const auto& passes : Plans()) {
      std::uint32_t mask = 0;
      for (const THeuristicSet& set : passes)
        mask |= set.mask | (set.fallback != EFallback::kNone ? shbit::kDontLetKingMove : 0) |
                (set.bDynamicDlfu ? shbit::kDontLetFigureUnblock : 0);
      SCOPED_TRACE(row.at("id") + " " + heuristicset::Describe(passes.front()));
      const TRun first = Solve(row, passes, false);
      const auto keys = matetest::Texts(root, first.outcome.keys, true);
      EXPECT_TRUE(std::includes(published.begin(), published.end(), keys.begin(), keys.end()));
      if (keys.empty() && !published.empty()) {
        EXPECT_EQ(first.outcome.result, mate::kDoubtful);
        EXPECT_TRUE((first.reason & mask) != 0 || first.reason == kDoubtfulFromStore)
            << first.reason;
        EXPECT_TRUE(first.outcome.bPass2Skipped);
      }
      const TRun full = Solve(row, passes, true, 2);
      EXPECT_EQ(matetest::Texts(root, full.outcome.keys, true), published);
      EXPECT_EQ(full.outcome.result, published.empty() ? mate::kNoMate : mate::kMate);
    }
    ++nRows;
  }
  EXPECT_GE(nRows, 10);
}

// A solve for one key ends with the first pass that finds one, and says which.
TEST(HeuristicPasses, SingleSolutionStopsAtTheFirstPassWithAKey) {
  int nCut = 0;
  for (const auto& row : matetest::QuickRows(0.05, 3)) {
    const auto published = matetest::PublishedKeys(row);
    if (published.empty()) continue;
    TChessboardRegister<bool> reg(1'000'000);
    const auto passes = heuristicplan::RelaxationPath(Set(shbit::kFindForcedMate));
    CMateSolver solver(matetest::Root(row), matetest::Moves(row),
                       {.nMaxSolutions = 1, .pRegister = &reg, .heuristicPasses = passes});
    const TRootOutcome outcome = solver.Run();
    ASSERT_EQ(outcome.keys.size(), 1u) << row.at("id");
    EXPECT_TRUE(std::count(published.begin(), published.end(),
                           matetest::Plain(
                               notation::MoveToText(matetest::Root(row), outcome.keys[0]))) == 1);
    EXPECT_EQ(solver.Pass().Label(), outcome.passLabel) << row.at("id");
    nCut += outcome.passLabel != "2" ? 1 : 0;
  }
  EXPECT_GT(nCut, 0);  // some keys come from a heuristic pass
}

}  // namespace

namespace {

// A heuristic pass out of time gives up and the next pass goes on: the keys stay exact
// however little time the heuristic passes had.
TEST(HeuristicPasses, PassesOutOfTimeHandOnToTheNext) {
  int nRows = 0;
  for (const auto& row : matetest::QuickRows(0.05, 4)) {
    for (const int nFirstPassMs : {1, 50}) {
      TChessboardRegister<bool> reg(1'000'000);
      CMateSolver solver(matetest::Root(row), matetest::Moves(row),
                         {.nThreads = 2,
                          .nMaxSolutions = 0,
                          .pRegister = &reg,
                          .heuristicPasses = Plans().front(),
                          .nFirstPassMs = nFirstPassMs});
      const TRootOutcome outcome = solver.Run();
      EXPECT_FALSE(outcome.bInterrupted) << row.at("id");
      EXPECT_EQ(matetest::Texts(matetest::Root(row), outcome.keys, true),
                matetest::PublishedKeys(row))
          << row.at("id") << " " << nFirstPassMs << " ms";
    }
    ++nRows;
  }
  EXPECT_GE(nRows, 3);
}

// A solve for one key ends with the turn that finds one, complete, even when the turn's time
// ran out on a move before the key in the order of analysis. The first move taken is held back
// at each of its turns, so that the other thread finds the key while the time runs out.
TEST(HeuristicPasses, AKeyFoundInATurnThatRanOutOfTimeEndsTheSolveComplete) {
  int nChecked = 0;
  for (const auto& row : matetest::QuickRows(0.05, 4)) {
    const std::vector<std::string> published = matetest::PublishedKeys(row);
    if (published.empty()) continue;
    std::atomic<int> nHeldMove{-1};
    TChessboardRegister<bool> reg(1'000'000);
    CMateSolver solver(
        matetest::Root(row), matetest::Moves(row),
        {.nThreads = 2,
         .nMaxSolutions = 1,
         .pRegister = &reg,
         .hooks = {.onMoveTaken =
                       [&](int nMove) {
                         int nNone = -1;
                         nHeldMove.compare_exchange_strong(nNone, nMove);
                         if (nMove == nHeldMove.load())
                           std::this_thread::sleep_for(std::chrono::milliseconds(200));
                       }},
         .heuristicPasses = Plans().front(),
         .nFirstPassMs = 20});
    const TRootOutcome outcome = solver.Run();
    const auto keys = matetest::Texts(matetest::Root(row), outcome.keys, true);
    EXPECT_FALSE(outcome.bInterrupted) << row.at("id");
    ASSERT_EQ(keys.size(), 1u) << row.at("id");
    EXPECT_TRUE(std::binary_search(published.begin(), published.end(), keys[0])) << row.at("id");
    ++nChecked;
  }
  EXPECT_GE(nChecked, 3);
}

}  // namespace
