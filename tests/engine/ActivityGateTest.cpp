// The permits that keep the solving threads within the multithreading levels, and the White
// nodes that lend time to their runners-up.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "SolveControlHelpers.h"
#include "engine/ActivityGate.h"
#include "engine/Scheduler.h"

namespace {

using namespace std::chrono_literals;

// Threads that hand their permits on at every step: all of them advance, never more at once
// than there are permits.
TEST(ActivityGate, NoMoreThreadsRunAtOnceThanPermitsAndAllAdvance) {
  for (int nPermits : {1, 2, 3}) {
    CActivityGate gate(nPermits);
    std::atomic<int> nRunning{0}, nMostRunning{0}, nSteps{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 6; ++i)
      threads.emplace_back([&] {
        const CActivityGate::CHold permit(&gate, 0ms);
        for (int step = 0; step < 300; ++step) {
          const int nNow = ++nRunning;
          nMostRunning = std::max(nMostRunning.load(), nNow);
          ++nSteps;
          --nRunning;
          gate.YieldIfDue();
        }
      });
    for (auto& thread : threads) thread.join();
    EXPECT_LE(nMostRunning.load(), nPermits);
    EXPECT_EQ(nSteps.load(), 6 * 300);
    EXPECT_EQ(gate.Waiting(), 0);
  }
}

// A thread keeps its permit for its whole slice, and gives it up while it sleeps.
TEST(ActivityGate, APermitIsKeptForItsSliceAndLentForASleep) {
  CActivityGate gate(1);
  gate.Acquire(1h);
  solvecontrol::CEvent acquired, released;
  std::thread waiter([&] {
    const CActivityGate::CHold permit(&gate, 1h);
    EXPECT_TRUE(gate.HeldHere());
    acquired.Set();
    released.Wait();
  });
  while (gate.Waiting() == 0) std::this_thread::yield();
  gate.YieldIfDue();  // the hour has not passed
  EXPECT_TRUE(gate.HeldHere());
  EXPECT_EQ(gate.Waiting(), 1);
  {
    const CActivityGate::CStepAside sleep(&gate);
    EXPECT_FALSE(gate.HeldHere());
    acquired.Wait();
    released.Set();
  }
  EXPECT_TRUE(gate.HeldHere());  // back once the waiter has let go
  gate.Release();
  waiter.join();
  EXPECT_FALSE(gate.HeldHere());
}

TEST(Scheduler, CoversTheWhiteMovesAfterTheMultithreadingLevels) {
  const struct {
    int nMultithreadingLevels, nLevels;
    bool bCustom;
    int nMateIn, nWhiteMove;  // the node's White move, 1 at the root
    bool bCovered;
  } cases[] = {
      {1, 6, false, 12, 1, false},
      {1, 6, false, 12, 2, true},
      {1, 6, false, 12, 7, true},
      {1, 6, false, 12, 8, false},
      {2, 6, false, 12, 2, false},
      {2, 6, false, 12, 3, true},
      {2, 6, false, 12, 8, true},
      {2, 6, false, 12, 9, false},
      {1, 0, false, 12, 2, false},
      // The custom scheduler: beyond the levels while six moves or more are left.
      {1, 2, true, 20, 4, true},
      {1, 2, true, 20, 15, true},
      {1, 2, true, 20, 16, false},
      {1, 0, true, 8, 2, true},
      {1, 0, true, 8, 4, false},
      {1, 0, true, 8, 1, false},
  };
  CRunControl run;
  CSplitBoard splitBoard(run);
  for (const auto& c : cases) {
    const CScheduler scheduler({.nMultithreadingLevels = c.nMultithreadingLevels,
                                .nLevels = c.nLevels,
                                .bCustom = c.bCustom},
                               1, splitBoard);
    TChessboard node;
    ClearChessboard(node);
    node.rootPlies = static_cast<std::uint16_t>(2 * c.nMateIn - 1);
    node.ply = static_cast<std::uint16_t>(node.rootPlies - 2 * (c.nWhiteMove - 1));
    EXPECT_EQ(scheduler.Covers(node), c.bCovered)
        << c.nMultithreadingLevels << " levels, " << c.nLevels << " scheduled, custom " << c.bCustom
        << ", move " << c.nWhiteMove << " of " << c.nMateIn;
  }
}

}  // namespace
