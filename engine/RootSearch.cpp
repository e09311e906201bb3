#include "engine/RootSearch.h"

#include <algorithm>
#include <exception>

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "engine/MoveOrdering.h"
#include "engine/ThreadSettings.h"

CRootSearch::CRootSearch(SearchContext& searchContext, const TChessboard& rootBoard, int nThreads,
                         bool bShare, const std::vector<TMove>& onlyFirstMoves)
    : context(searchContext),
      root(rootBoard),
      bShareFirstMoves(bShare),
      splitBoard(searchContext.run) {
  for (int i = 0; i < std::max(1, nThreads); ++i) {
    searches.push_back(std::make_unique<CMateSearch>(context, root.ply));
    if (nThreads > 1 && bShareFirstMoves) searches.back()->SetSplitBoard(&splitBoard);
  }
  TChessboard* made;
  const TMoveIndex* order;
  const int n = searches[0]->OrderedWhiteChildren(root, made, order);
  for (int i = 0; i < n; ++i) {
    const TMove move = made[order[i]].lastMove;
    if (!onlyFirstMoves.empty() &&
        std::ranges::none_of(onlyFirstMoves, [move](TMove m) { return m.SameMove(move); }))
      continue;
    queue.Add(made[order[i]]);
    firstMoves.push_back(made[order[i]].lastMove);
  }
  workerMoves = std::make_unique<std::atomic<int>[]>(searches.size());
  for (std::size_t worker = 0; worker < searches.size(); ++worker) workerMoves[worker] = -1;
  queue.SetPauseWorker(
      [this](int worker, bool bPause) { searches[worker]->SetPausedAlone(bPause); });
}

void CRootSearch::ReleaseBuffers() {
  for (const auto& search : searches) search->ReleaseBuffers();
  if (lending) lending->ReleaseBuffers();
}

void CRootSearch::EnableScheduler(const CScheduler::TSettings& settings) {
  const bool bShare = searches.size() > 1 && bShareFirstMoves;
  lending = std::make_unique<CLendingThreads>(
      context, root.ply, settings, static_cast<int>(searches.size()), splitBoard, bShare);
  for (const auto& search : searches) search->SetScheduler(&lending->Scheduler());
}

TRootOutcome CRootSearch::Run(int nMaxSolutions) {
  queue.SetKeysWanted(nMaxSolutions);
  context.run.SetActivityGate(lending ? &lending->Scheduler().Gate() : nullptr);
  std::vector<std::unique_ptr<CSolvingThread>> threads;
  const int nFirstLendingLog = 2 * static_cast<int>(searches.size());
  const bool bStarted =
      StartHelpers(threads) &&
      (!lending || lending->Start(hooks.startThread, StackBytes(), nFirstLendingLog));
  if (bStarted) RunWorker(0);
  for (auto& thread : threads) thread->Join();
  if (lending) {
    const std::exception_ptr lendingFailure = lending->End();
    if (!failure) failure = lendingFailure;
  }
  context.run.SetActivityGate(nullptr);
  if (failure) std::rethrow_exception(failure);
  TRootOutcome outcome = Collect();
  searches[0]->LogResult(root, outcome.result);
  if (!bStarted) {
    outcome.nErrorCode = kThreadStartFailed;
    outcome.result = mate::kDoubtful;
  }
  return outcome;
}

bool CRootSearch::StartHelpers(std::vector<std::unique_ptr<CSolvingThread>>& threads) {
  const std::size_t nStack = StackBytes();
  for (std::size_t worker = 1; worker < searches.size(); ++worker) {
    bool bStarted = false;
    try {
      threads.push_back(std::make_unique<CSolvingThread>());
      std::function<void()> body = [this, worker] { RunWorker(static_cast<int>(worker)); };
      bStarted = hooks.startThread ? hooks.startThread(*threads.back(), std::move(body), nStack)
                                   : threads.back()->Start(std::move(body), nStack);
    } catch (const std::exception&) {
      bStarted = false;  // no room for another thread is a failed start as well
    }
    if (!bStarted) {
      // The threads that run end at once; Run waits for them.
      context.run.Abort();
      return false;
    }
  }
  return true;
}

std::size_t CRootSearch::StackBytes() const {
  // Deep stipulations recurse deep: give every thread room for the line it may build.
  return SolvingThreadStackSize(static_cast<std::uint16_t>(std::min(65535, 16 * root.ply)));
}

void CRootSearch::RunWorker(int worker) noexcept {
  try {
    const CActivityGate::CHold permit(context.run.ActivityGate(), CScheduler::kWorkerSlice);
    Work(worker);
  } catch (...) {
    {
      const std::lock_guard lock(failureMutex);
      if (!failure) failure = std::current_exception();
    }
    context.run.Abort();
  }
}

void CRootSearch::Work(int worker) {
  CMateSearch& search = *searches[worker];
  for (;;) {
    const std::uint64_t seen = context.run.Generation();
    if (search.Interrupted() || queue.AllDone()) return;
    const int index = queue.Take(worker);
    if (index >= 0) {
      search.SetLogThread(worker);
      Evaluate(worker, index);
      continue;
    }
    // Moves of a deep White node are all needed when it fails; a root move's further
    // replies are wasted when its first one refutes it. So split points come first.
    splitBoard.SetIdle(true);
    // The nodes that lend time to the scheduler's threads are shared no further than that
    // unless first moves are shared.
    TSplitPoint* split = bShareFirstMoves ? splitBoard.Join() : nullptr;
    TRootTask* task = split == nullptr && bShareFirstMoves ? queue.FindTaskToHelp() : nullptr;
    if (split == nullptr && task == nullptr) context.run.WaitForChange(seen);
    splitBoard.SetIdle(false);
    // What a thread searches for another goes to a log file of its own.
    if (split != nullptr || task != nullptr)
      search.SetLogThread(worker + static_cast<int>(searches.size()));
    if (split != nullptr) {
      const CSplitBoard::CHelping helping(splitBoard, *split);
      search.HelpAt(*split);
    } else if (task != nullptr) {
      workerMoves[worker] = IndexOf(*task);
      SearchReplies(search, *task);
      workerMoves[worker] = -1;
    }
  }
}

void CRootSearch::Evaluate(int worker, int index) {
  if (hooks.onMoveTaken) hooks.onMoveTaken(index);
  CMateSearch& search = *searches[worker];
  TRootTask& task = queue.Task(index);
  search.LogMove(root, task.child.lastMove, &task.child);
  workerMoves[worker] = index;
  MateResult result = SearchMove(search, task);
  workerMoves[worker] = -1;
  if (search.Interrupted() && result != mate::kMate) result = mate::kDoubtful;
  // A mate in one is settled by the Black node itself, which logged it; a move cut short
  // by a stop or given up has no result.
  if (task.child.ply != 0 && (result != mate::kDoubtful || task.bRefuted))
    search.LogResult(task.child, result);
  const bool bCutByStop =
      result == mate::kDoubtful && (context.run.IsStopping() || context.bPassTimeUp.load());
  const bool bSettled = queue.Settle(index, result, bCutByStop);
  context.run.Notify();  // a move to take again, a cut, or the last move done
  if (bSettled && hooks.onMoveSettled) hooks.onMoveSettled(index, result);
}

MateResult CRootSearch::SearchMove(CMateSearch& search, TRootTask& task) {
  if (task.child.ply == 0) return search.BlackNode(task.child);
  if (!PrepareReplies(task)) return search.NoReplyResult(task.child);
  ++task.nWorkersInside;
  context.run.Notify();  // the replies are open to idle workers
  SearchReplies(search, task);
  queue.CloseToHelpers(task);
  WaitForHelpers(task);
  const std::lock_guard lock(task.refutationMutex);
  // A repetition can only settle at this Black node: the root never counts as repeated. The
  // end of the forced-mate depth settles here too, as doubtful: the line was not refuted.
  if (task.bRefuted) {
    if (task.refutation == mate::kRepetition) return mate::kNoMate;
    if (task.refutation == mate::kForcedMateDepthEnd) return mate::kDoubtful;
    return task.refutation;
  }
  return task.abandon.IsSet() || search.Interrupted() ? mate::kDoubtful : mate::kMate;
}

bool CRootSearch::PrepareReplies(TRootTask& task) {
  TMove moves[kMoveBufferSize];
  const TChessboard& board = task.child;
  const int n = board.IsBlackInCheck() ? movegen::GenerateEvasions(board, moves)
                                       : movegen::GenerateAllMoves(board, moves);
  ordering::OrderBlackReplies(board, moves, n, TMove{});
  TChessboard reply;
  for (int i = 0; i < n; ++i) {
    reply = board;
    reply.parent = &board;
    if (movemaking::MakeBlackMove(reply, moves[i]) > 0) task.replies.push_back(reply);
  }
  task.bRepliesReady = !task.replies.empty();
  return task.bRepliesReady;
}

void CRootSearch::SearchReplies(CMateSearch& search, TRootTask& task) {
  // However the search ends the worker leaves the move. By an exception it has lost the
  // reply it took, so the move can no longer be proven.
  struct TLeave {
    CRunControl& run;
    CMateSearch& search;
    TRootTask& task;
    const int nUncaught = std::uncaught_exceptions();
    ~TLeave() {
      search.SetAbandonLink(nullptr);
      if (std::uncaught_exceptions() > nUncaught) task.abandon.bSet = true;
      if (task.nWorkersInside.fetch_sub(1) == 1) run.Notify();  // the owner may wait for it
    }
  } leave{context.run, search, task};
  search.SetAbandonLink(&task.abandon);
  for (;;) {
    const int i = task.nNextReply.fetch_add(1);
    if (i >= static_cast<int>(task.replies.size()) || search.Interrupted()) break;
    search.LogMove(task.child, task.replies[i].lastMove, &task.replies[i]);
    const MateResult result = search.WhiteNodeAfterReply(task.replies[i]);
    if (search.Interrupted()) break;
    if (result == mate::kMate) continue;
    {
      const std::lock_guard lock(task.refutationMutex);
      if (!task.bRefuted) {
        task.bRefuted = true;
        task.refutation = result;
      }
    }
    task.abandon.bSet = true;
    context.run.WakeParked();
    break;
  }
}

void CRootSearch::WaitForHelpers(const TRootTask& task) {
  // The helpers still inside give up quickly once the move is settled.
  for (;;) {
    const std::uint64_t seen = context.run.Generation();
    if (task.nWorkersInside.load() == 0) return;
    context.run.WaitForChange(seen);
  }
}

int CRootSearch::IndexOf(const TRootTask& task) const {
  for (int index = 0; index < queue.Size(); ++index)
    if (&queue.Task(index) == &task) return index;
  return -1;
}

std::vector<int> CRootSearch::WorkerMoves() const {
  std::vector<int> moves(searches.size());
  for (std::size_t worker = 0; worker < moves.size(); ++worker) moves[worker] = workerMoves[worker];
  return moves;
}

void CRootSearch::RequeueCurrent(TRootTask::ERequeue how) {
  if (queue.RequeueCurrent(how)) context.run.WakeParked();
}

void CRootSearch::PauseCurrentThread() {
  queue.PauseCurrentWorker();
}

void CRootSearch::ResumeAllThreads() {
  queue.ResumeWorkers(static_cast<int>(searches.size()));
}

TRootOutcome CRootSearch::Collect() const {
  TRootOutcome outcome;
  bool bDoubtful = false;
  const int nKeysWanted = queue.KeysWanted();
  for (const int index : queue.Order()) {
    const TRootTask& task = queue.Task(index);
    const bool bUnsettled = task.state != TRootTask::kDone || task.bCutByStop;
    outcome.bInterrupted = outcome.bInterrupted || (bUnsettled && !task.bDropped);
    if (task.state != TRootTask::kDone || task.result != mate::kMate) {
      bDoubtful = bDoubtful || task.state != TRootTask::kDone || task.result == mate::kDoubtful;
      continue;
    }
    if (nKeysWanted > 0 && static_cast<int>(outcome.keys.size()) == nKeysWanted) continue;
    outcome.keys.push_back(firstMoves[index]);
    outcome.answers.Add(mategoal::Moves(context.goal, root.ply), firstMoves[index]);
  }
  outcome.result = !outcome.keys.empty() ? mate::kMate
                   : bDoubtful           ? mate::kDoubtful
                                         : mate::kNoMate;
  outcome.nPositions = Positions();
  return outcome;
}

std::uint64_t CRootSearch::Positions() const {
  std::uint64_t n = lending ? lending->Positions() : 0;
  for (const auto& search : searches) n += search->Positions();
  return n;
}

std::uint64_t CRootSearch::LentPositions() const {
  return lending ? lending->Positions() : 0;
}
