#pragma once
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

#include "core/Chessboard.h"
#include "engine/MateResult.h"

// A flag that tells a search to give up, chained to the flags of the work it is part of:
// when any link is set, every search below it stops.
struct TAbandonLink {
  std::atomic<bool> bSet{false};
  const TAbandonLink* parent = nullptr;

  bool IsSet() const {
    for (const TAbandonLink* link = this; link != nullptr; link = link->parent)
      if (link->bSet.load(std::memory_order_relaxed)) return true;
    return false;
  }
};

// What the children of a White node said so far.
struct TWhiteTally {
  bool bMate = false;
  TMove mating{};
  std::uint16_t mark = 0;  // highest repeated ancestor among the failures
  bool bDoubtful = false;

  void Merge(const TWhiteTally& other) {
    if (other.bMate && !bMate) {
      bMate = true;
      mating = other.mating;
    }
    mark = std::max(mark, other.mark);
    bDoubtful = bDoubtful || other.bDoubtful;
  }
};

// The remaining moves of a White node, offered to idle threads. The owner keeps it on its
// stack and takes moves from it too; it waits for its helpers before it returns.
struct TSplitPoint {
  const TChessboard* children = nullptr;
  const TMoveIndex* order = nullptr;
  int n = 0;
  std::atomic<int> nNext{0};
  TAbandonLink abandon;  // set once a move mates; chained to the owner's own work
  std::mutex tallyMutex;
  TWhiteTally tally;  // under tallyMutex
  int nHelpers = 0;   // under the board's mutex
};

// The open split points of one solve, and how many threads are looking for work.
class CSplitBoard {
 public:
  bool HasIdleWorkers() const { return nIdle.load(std::memory_order_relaxed) > 0; }
  void SetIdle(bool bIdle) { nIdle.fetch_add(bIdle ? 1 : -1); }

  void Open(TSplitPoint& split) {
    std::lock_guard lock(mutex);
    open.push_back(&split);
  }
  // Removes the split point once no helper is inside it any more.
  void Close(TSplitPoint& split) {
    for (;;) {
      {
        std::lock_guard lock(mutex);
        if (split.nHelpers == 0) {
          open.erase(std::find(open.begin(), open.end(), &split));
          return;
        }
      }
      // The helpers give up at their next node once the point is settled.
      std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
  }
  // A split point with moves left, its helper count raised; null when there is none.
  TSplitPoint* Join() {
    std::lock_guard lock(mutex);
    for (TSplitPoint* split : open)
      if (split->nNext.load() < split->n && !split->abandon.IsSet()) {
        ++split->nHelpers;
        return split;
      }
    return nullptr;
  }
  void Leave(TSplitPoint& split) {
    std::lock_guard lock(mutex);
    --split.nHelpers;
  }

 private:
  std::atomic<int> nIdle{0};
  std::mutex mutex;
  std::vector<TSplitPoint*> open;
};
