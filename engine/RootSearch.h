#pragma once
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "core/Chessboard.h"
#include "engine/AnswerCountMap.h"
#include "engine/MateSearch.h"
#include "engine/RootTask.h"

// What the root search found.
struct TRootOutcome {
  MateResult result = mate::kNoMate;  // kMate when at least one key was found
  std::vector<TMove> keys;            // in the order of the sorted first moves
  CAnswerCountMap answers;
  std::uint64_t nPositions = 0;
  int nErrorCode = 0;  // 128 when the solving threads could not be started
};

// The root of a solve. White's first moves, sorted, wait in a queue; each worker thread
// takes the next one, and a worker that finds the queue empty helps a running move by
// taking Black replies from it. Every worker owns its search and line; they share the
// context (register, run state). No lock is taken on the search's hot path.
class CRootSearch {
 public:
  // With bShareFirstMoves false every first move stays with the one thread that took it.
  CRootSearch(SearchContext& context, const TChessboard& root, int nThreads, bool bShareFirstMoves = true);
  // Stops after nMaxSolutions keys (0: all solutions). Blocks until every worker ended.
  TRootOutcome Run(int nMaxSolutions);

  std::uint64_t Positions() const;
  // Share of first moves finished, 0..1.
  double Progress() const;
  const std::vector<TMove>& FirstMoves() const { return firstMoves; }
  // Sorted index of the first move under analysis that was taken first, or -1.
  int CurrentMoveIndex() const;

  // Manual control of the first moves, from any thread while Run runs.
  void ShiftCurrentMoveToEnd() { RequeueCurrent(TRootTask::kRequeueAtEnd); }
  void SwapCurrentWithNext() { RequeueCurrent(TRootTask::kRequeueBehindNext); }
  void SkipToNextMove() { RequeueCurrent(TRootTask::kSkip); }
  void PauseCurrentThread();
  void ResumeAllThreads();

 private:
  void Work(int worker, int nMaxSolutions);
  int TakePendingMove(int worker);
  TRootTask* FindTaskToHelp();
  void Evaluate(int worker, int index, int nMaxSolutions);
  bool PrepareReplies(TRootTask& task);
  void SearchReplies(CMateSearch& search, TRootTask& task);
  void Finish(int index, MateResult result);
  void RequeueCurrent(TRootTask::ERequeue how);
  bool AllDone() const { return nDone.load() == static_cast<int>(tasks.size()); }

  SearchContext& context;
  const TChessboard& root;
  std::vector<std::unique_ptr<CMateSearch>> searches;
  std::vector<std::unique_ptr<TRootTask>> tasks;  // in sorted order
  std::vector<TMove> firstMoves;
  std::vector<int> ownerOf;  // worker analysing each task, -1 when none (under queueMutex)

  mutable std::mutex queueMutex;
  std::deque<int> pending;  // under queueMutex
  std::condition_variable workChanged;
  std::atomic<int> nDone{0};
  std::atomic<int> nKeysFound{0};
  const bool bShareFirstMoves;
  CSplitBoard splitBoard;
};
