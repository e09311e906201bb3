#pragma once
#include <atomic>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "core/Chessboard.h"
#include "engine/AnswerCountMap.h"
#include "engine/FirstMoveQueue.h"
#include "engine/LendingThreads.h"
#include "engine/MateSearch.h"
#include "engine/SolvingThread.h"

// The error code of a solve whose threads could not all be started.
inline constexpr int kThreadStartFailed = 128;

// What the root search found.
struct TRootOutcome {
  MateResult result = mate::kNoMate;  // kMate when at least one key was found
  std::vector<TMove> keys;            // in the order of analysis (the sorted order unless a
                                      // manual command changed it)
  CAnswerCountMap answers;
  std::uint64_t nPositions = 0;
  int nErrorCode = 0;          // kThreadStartFailed, or 0
  bool bInterrupted = false;   // stopped before every first move it needed was settled
  std::string passLabel;       // the pass that found the first key, else the last pass run
  bool bPass2Skipped = false;  // no key, and the pass without heuristics was not asked for
};

// Seams for tests and observers of a solve. The callbacks run in the worker concerned,
// outside every lock of the search; they may use the manual commands.
struct TRootHooks {
  TThreadStarter startThread = nullptr;                  // CSolvingThread::Start when null
  std::function<void(int nMove)> onMoveTaken = nullptr;  // before its search begins
  std::function<void(int nMove, MateResult result)> onMoveSettled = nullptr;
};

// The root of a solve. White's first moves, sorted, wait in a queue; each worker thread
// takes the next one, and a worker that finds the queue empty helps a running move by
// taking Black replies from it, or a deep White node by taking its moves. Every worker owns
// its search and line; they share the context (register, run state). No lock is taken on
// the search's hot path, and a worker without work sleeps until there is some.
class CRootSearch {
 public:
  // With bShareFirstMoves false every first move stays with the one thread that took it.
  // Given onlyFirstMoves, the other first moves are left out, as when several machines
  // share a problem's first moves.
  CRootSearch(SearchContext& context, const TChessboard& root, int nThreads,
              bool bShareFirstMoves = true, const std::vector<TMove>& onlyFirstMoves = {});
  void SetHooks(TRootHooks rootHooks) { hooks = std::move(rootHooks); }
  // Lets the White nodes below the multithreading levels lend time to their runners-up (see
  // CScheduler); before Run.
  void EnableScheduler(const CScheduler::TSettings& settings);
  // Stops after nMaxSolutions keys (0: all solutions), the first ones in the order of
  // analysis. Blocks until every worker ended; rethrows what a worker threw.
  TRootOutcome Run(int nMaxSolutions);

  // Gives back the workers' move buffers once Run has returned: a solve runs many turns.
  void ReleaseBuffers();

  std::uint64_t Positions() const;
  // The part of them that the scheduler's threads searched.
  std::uint64_t LentPositions() const;
  // What an ended turn left of each first move, and the next turn of the same pass picking it
  // up (before Run).
  std::vector<TFirstMoveRecord> Records() const { return queue.Records(); }
  void ResumeFrom(const std::vector<TFirstMoveRecord>& records) { queue.ResumeFrom(records); }
  // Share of first moves finished, 0..1.
  double Progress() const { return queue.ShareDone(); }
  const std::vector<TMove>& FirstMoves() const { return firstMoves; }
  // Sorted index of the first move under analysis that comes first, or -1.
  int CurrentMoveIndex() const { return queue.CurrentMove(); }
  // For each worker thread, the sorted index of the first move it searches now, its own or
  // one whose replies it helps with; -1 while it waits or helps deeper in a line of another
  // thread. Read from any thread while Run runs.
  std::vector<int> WorkerMoves() const;

  // Manual control of the first moves, from any thread while Run runs.
  void ShiftCurrentMoveToEnd() { RequeueCurrent(TRootTask::kRequeueAtEnd); }
  void SwapCurrentWithNext() { RequeueCurrent(TRootTask::kRequeueBehindNext); }
  void SkipToNextMove() { RequeueCurrent(TRootTask::kSkip); }
  // Pauses the thread of the current move; asked before any move is current, the thread
  // that takes the first one.
  void PauseCurrentThread();
  void ResumeAllThreads();

 private:
  // Starts the workers beyond the calling thread's; false when one could not be started.
  bool StartHelpers(std::vector<std::unique_ptr<CSolvingThread>>& threads);
  // Room for the deepest line the solve may build.
  std::size_t StackBytes() const;
  // Every worker thread's entry: what it throws stops the solve and is kept for Run.
  void RunWorker(int worker) noexcept;
  void Work(int worker);
  void Evaluate(int worker, int index);
  MateResult SearchMove(CMateSearch& search, TRootTask& task);
  bool PrepareReplies(TRootTask& task);
  void SearchReplies(CMateSearch& search, TRootTask& task);
  void WaitForHelpers(const TRootTask& task);
  void RequeueCurrent(TRootTask::ERequeue how);
  int IndexOf(const TRootTask& task) const;
  TRootOutcome Collect() const;

  SearchContext& context;
  const TChessboard& root;
  TRootHooks hooks;
  std::vector<std::unique_ptr<CMateSearch>> searches;
  std::unique_ptr<std::atomic<int>[]> workerMoves;  // per worker, see WorkerMoves
  std::vector<TMove> firstMoves;                    // in sorted order
  CFirstMoveQueue queue;
  const bool bShareFirstMoves;
  CSplitBoard splitBoard;
  std::unique_ptr<CLendingThreads> lending;  // null without the scheduler

  std::mutex failureMutex;
  std::exception_ptr failure;  // under failureMutex: the first thing a worker threw
};
