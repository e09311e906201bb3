#pragma once
#include <atomic>
#include <chrono>

#include "core/Chessboard.h"
#include "engine/ActivityGate.h"
#include "engine/SplitBoard.h"

// Lends time to the runners-up of White nodes below the multithreading levels. Such a node
// searches its best-sorted move first, as any node does; once it has run for longer than a
// delay, a thread of the scheduler's own may take its next moves. The scheduler's threads
// and the workers share as many permits as there are workers, so no more threads run at once
// than the multithreading levels allow: a running thread hands its permit on at the end of
// its time slice, and the scheduler's slices are the shorter ones, so that a node whose first
// move is the right one loses little by the lending.
class CScheduler {
 public:
  struct TSettings {
    int nMultithreadingLevels = 1;
    // White moves after the multithreading levels whose nodes lend time; 0: none.
    int nLevels = 0;
    // Also the nodes beyond those levels that still have a long way to go.
    bool bCustom = false;
    // How long a node runs before its runners-up are offered.
    std::chrono::milliseconds runnerUpDelay{1000};
  };
  static constexpr CActivityGate::Slice kWorkerSlice{200};
  static constexpr CActivityGate::Slice kHelperSlice{25};

  CScheduler(const TSettings& settings, int nWorkers, CSplitBoard& splitBoard);

  // Whether the runners-up of White node may be lent time.
  bool Covers(const TChessboard& board) const;
  // Whether a scheduler's thread waits for a node to take moves from.
  bool WantsWork() const { return nIdleHelpers.load(std::memory_order_relaxed) > 0; }
  void SetHelperIdle(bool bIdle) { nIdleHelpers.fetch_add(bIdle ? 1 : -1); }

  CActivityGate& Gate() { return gate; }
  CSplitBoard& Board() { return splits; }
  int Helpers() const { return nHelpers; }
  std::chrono::milliseconds RunnerUpDelay() const { return settings.runnerUpDelay; }

 private:
  TSettings settings;
  int nHelpers;
  CActivityGate gate;
  CSplitBoard& splits;
  std::atomic<int> nIdleHelpers{0};
};
