#pragma once
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "engine/RootTask.h"

// The first moves of a solve in their order of analysis, with who works on which. The order
// starts as the sorted order and changes only by the manual commands. The keys reported
// are the first ones in this order among those proven, whatever thread found which first:
// once enough keys are proven, the moves after the last of them are dropped, and the solve
// ends when the moves before it are settled.
class CFirstMoveQueue {
 public:
  // The position after each first move, in the sorted order.
  void Add(const TChessboard& child);
  // How many keys end the solve; 0: all. Set before the workers start.
  void SetKeysWanted(int nKeys) { nKeysWanted = nKeys; }
  int KeysWanted() const { return nKeysWanted; }
  // How a worker's thread is paused alone or let run again. Set before the workers start.
  void SetPauseWorker(std::function<void(int worker, bool bPause)> pause) {
    pauseWorker = std::move(pause);
  }

  int Size() const { return static_cast<int>(tasks.size()); }
  TRootTask& Task(int index) { return *tasks[index]; }
  const TRootTask& Task(int index) const { return *tasks[index]; }

  // The next pending move, now owned by worker, or -1. A pause of the current move's
  // thread that waits for a current move pauses worker.
  int Take(int worker);
  // A running move whose replies are open to helpers, its helper count raised; or null.
  TRootTask* FindTaskToHelp();
  // Lets no further helper into the move's replies.
  void CloseToHelpers(TRootTask& task);
  // Settles a move with its result, or queues it again as a manual command asked. Returns
  // whether it was settled. Applies the cut after enough keys; wakes nothing.
  bool Settle(int index, MateResult result, bool bCutByStop);

  bool AllDone() const { return nDone.load() == Size(); }
  double ShareDone() const;
  // The move under analysis that comes first in the order, or -1.
  int CurrentMove() const;
  // Pauses the thread of the current move alone; when no move is current, the thread
  // that takes the next one.
  void PauseCurrentWorker();
  void ResumeWorkers(int nWorkers);
  // Asks the thread of the current move to give it up; false when there is none.
  bool RequeueCurrent(TRootTask::ERequeue how);
  // Per first move (sorted order), what the workers left once they have ended.
  std::vector<TFirstMoveRecord> Records() const;
  // Before the workers start, the next turn of the same pass: the moves settled by the earlier
  // turn stay settled and are not searched again. The moves it was cut on keep their place:
  // the sorted order puts the likely keys first, and a key that needs a long search would
  // wait behind every hard move were they put last.
  void ResumeFrom(const std::vector<TFirstMoveRecord>& records);
  // The order of analysis, for the outcome once the workers have ended.
  std::vector<int> Order() const;

 private:
  void ApplyCut();  // under mutex
  void MoveInOrder(int index, TRootTask::ERequeue how);

  std::vector<std::unique_ptr<TRootTask>> tasks;  // in sorted order
  int nKeysWanted = 0;
  mutable std::mutex mutex;
  std::vector<int> order;        // under mutex: the order of analysis
  std::vector<int> ownerOf;      // under mutex: worker analysing each task, -1 when none
  bool bPauseNextOwner = false;  // under mutex
  std::function<void(int, bool)> pauseWorker;
  std::atomic<int> nDone{0};
};
