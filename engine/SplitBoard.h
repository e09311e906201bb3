#pragma once
#include <atomic>
#include <mutex>
#include <vector>

#include "engine/RunControl.h"
#include "engine/SplitPoint.h"

// The open split points of one solve, and how many threads are looking for work.
class CSplitBoard {
 public:
  explicit CSplitBoard(CRunControl& runControl) : control(runControl) {}

  bool HasIdleWorkers() const { return nIdle.load(std::memory_order_relaxed) > 0; }
  void SetIdle(bool bIdle) { nIdle.fetch_add(bIdle ? 1 : -1); }

  // A split point with moves left, its helper count raised; null when there is none.
  TSplitPoint* Join();
  // Offers split's moves to helpers from now on; the owner must Close it before it returns.
  void Open(TSplitPoint& split);
  // Removes the split point once no helper is inside it any more. When its owner leaves by an
  // exception, the helpers are told to give up first: nobody will read what they find.
  void Close(TSplitPoint& split, bool bOwnerFailed);

  // Keeps a split point open to helpers for the owner's scope, an exception included.
  class COpening {
   public:
    COpening(CSplitBoard& board, TSplitPoint& split);
    ~COpening();
    COpening(const COpening&) = delete;
    COpening& operator=(const COpening&) = delete;

   private:
    CSplitBoard& board;
    TSplitPoint& split;
    const int nUncaught;
  };
  // A helper's stay at a split point that Join gave it. A helper that leaves by an
  // exception has lost the move it took: the point's answer can no longer be trusted.
  class CHelping {
   public:
    CHelping(CSplitBoard& splitBoard, TSplitPoint& splitPoint);
    ~CHelping();
    CHelping(const CHelping&) = delete;
    CHelping& operator=(const CHelping&) = delete;

   private:
    CSplitBoard& board;
    TSplitPoint& split;
    const int nUncaught;
  };

 private:
  void Leave(TSplitPoint& split);

  CRunControl& control;
  std::atomic<int> nIdle{0};
  std::mutex mutex;
  std::vector<TSplitPoint*> open;
};
