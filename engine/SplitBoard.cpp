#include "engine/SplitBoard.h"

#include <algorithm>
#include <exception>

TSplitPoint* CSplitBoard::Join() {
  const std::lock_guard lock(mutex);
  for (TSplitPoint* split : open)
    if (split->nNext.load() < split->n && !split->abandon.IsSet()) {
      ++split->nHelpers;
      return split;
    }
  return nullptr;
}

void CSplitBoard::Open(TSplitPoint& split) {
  {
    const std::lock_guard lock(mutex);
    open.push_back(&split);
  }
  control.Notify();  // the idle threads wait for work like this
}

void CSplitBoard::Close(TSplitPoint& split, bool bOwnerFailed) {
  if (bOwnerFailed) {
    split.abandon.bSet = true;
    control.WakeParked();
  }
  for (;;) {
    const std::uint64_t seen = control.Generation();
    {
      const std::lock_guard lock(mutex);
      if (split.nHelpers == 0) {
        open.erase(std::find(open.begin(), open.end(), &split));
        return;
      }
      split.bClosing = true;
    }
    // The helpers give up at their next node once the point is settled.
    control.WaitForChange(seen);
  }
}

void CSplitBoard::Leave(TSplitPoint& split) {
  bool bLastOut;
  {
    const std::lock_guard lock(mutex);
    bLastOut = --split.nHelpers == 0 && split.bClosing;
  }
  if (bLastOut) control.Notify();
}

CSplitBoard::COpening::COpening(CSplitBoard& splitBoard, TSplitPoint& splitPoint)
    : board(splitBoard), split(splitPoint), nUncaught(std::uncaught_exceptions()) {
  board.Open(split);
}

CSplitBoard::COpening::~COpening() {
  board.Close(split, std::uncaught_exceptions() > nUncaught);
}

CSplitBoard::CHelping::CHelping(CSplitBoard& splitBoard, TSplitPoint& splitPoint)
    : board(splitBoard), split(splitPoint), nUncaught(std::uncaught_exceptions()) {}

CSplitBoard::CHelping::~CHelping() {
  if (std::uncaught_exceptions() > nUncaught) {
    {
      const std::lock_guard lock(split.tallyMutex);
      split.tally.bDoubtful = true;
    }
    split.abandon.bSet = true;
    board.control.WakeParked();
  }
  board.Leave(split);
}
