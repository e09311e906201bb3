#pragma once
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <mutex>

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
  bool bDepthEnd = false;  // a failure reached the end of the forced-mate depth

  void Merge(const TWhiteTally& other) {
    if (other.bMate && !bMate) {
      bMate = true;
      mating = other.mating;
    }
    mark = std::max(mark, other.mark);
    bDoubtful = bDoubtful || other.bDoubtful;
    bDepthEnd = bDepthEnd || other.bDepthEnd;
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
  TWhiteTally tally;      // under tallyMutex
  int nHelpers = 0;       // under the board's mutex
  bool bClosing = false;  // under the board's mutex: the owner waits for the helpers to leave
};
