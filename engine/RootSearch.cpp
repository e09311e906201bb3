#include "engine/RootSearch.h"

#include <algorithm>
#include <chrono>

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "engine/MoveOrdering.h"
#include "engine/SolvingThread.h"
#include "engine/ThreadSettings.h"

namespace {
constexpr auto kIdleWait = std::chrono::milliseconds(2);
}

CRootSearch::CRootSearch(SearchContext& searchContext, const TChessboard& rootBoard, int nThreads,
                         bool bShare)
    : context(searchContext), root(rootBoard), bShareFirstMoves(bShare) {
  for (int i = 0; i < std::max(1, nThreads); ++i) {
    searches.push_back(std::make_unique<CMateSearch>(context, root.ply));
    if (nThreads > 1 && bShareFirstMoves) searches.back()->SetSplitBoard(&splitBoard);
  }
  TChessboard* made;
  const std::uint8_t* order;
  const int n = searches[0]->OrderedWhiteChildren(root, made, order);
  for (int i = 0; i < n; ++i) {
    tasks.push_back(std::make_unique<TRootTask>());
    tasks.back()->child = made[order[i]];
    firstMoves.push_back(made[order[i]].lastMove);
    pending.push_back(i);
  }
  ownerOf.assign(n, -1);
}

TRootOutcome CRootSearch::Run(int nMaxSolutions) {
  TRootOutcome outcome;
  // Deep stipulations recurse deep: give every thread room for the line it may build.
  const std::size_t nStack =
      SolvingThreadStackSize(static_cast<std::uint16_t>(std::min(65535, 16 * root.ply)));
  std::vector<std::unique_ptr<CSolvingThread>> threads;
  for (size_t w = 1; w < searches.size(); ++w) {
    threads.push_back(std::make_unique<CSolvingThread>());
    if (!threads.back()->Start(
            [this, w, nMaxSolutions] { Work(static_cast<int>(w), nMaxSolutions); }, nStack)) {
      // Could not start them all: end the ones that run, wait for them, give up.
      for (auto& search : searches) search->SetThreadState(CMateSearch::kThreadEnd);
      workChanged.notify_all();
      for (auto& thread : threads) thread->Join();
      outcome.result = mate::kDoubtful;
      outcome.nErrorCode = 128;
      return outcome;
    }
  }
  Work(0, nMaxSolutions);
  for (auto& thread : threads) thread->Join();

  bool bDoubtful = false;
  for (size_t i = 0; i < tasks.size(); ++i) {
    const MateResult result =
        tasks[i]->state == TRootTask::kDone ? tasks[i]->result : mate::kDoubtful;
    if (result == mate::kMate) {
      outcome.keys.push_back(firstMoves[i]);
      outcome.answers.Add((root.ply + 1) / 2, firstMoves[i]);
    }
    bDoubtful = bDoubtful || result == mate::kDoubtful;
  }
  outcome.result = !outcome.keys.empty() ? mate::kMate
                   : bDoubtful           ? mate::kDoubtful
                                         : mate::kNoMate;
  outcome.nPositions = Positions();
  return outcome;
}

void CRootSearch::Work(int worker, int nMaxSolutions) {
  CMateSearch& search = *searches[worker];
  while (!search.Interrupted() && !AllDone()) {
    const int index = TakePendingMove(worker);
    if (index >= 0) {
      Evaluate(worker, index, nMaxSolutions);
      continue;
    }
    // Moves of a deep White node are all needed when it fails; a root move's further
    // replies are wasted when its first one refutes it. So split points come first.
    splitBoard.SetIdle(true);
    TSplitPoint* split = splitBoard.Join();
    TRootTask* task = split == nullptr && bShareFirstMoves ? FindTaskToHelp() : nullptr;
    splitBoard.SetIdle(false);
    if (split != nullptr) {
      search.HelpAt(*split);
      splitBoard.Leave(*split);
      continue;
    }
    if (task != nullptr) {
      SearchReplies(search, *task);
      continue;
    }
    splitBoard.SetIdle(true);
    {
      std::unique_lock lock(queueMutex);
      workChanged.wait_for(lock, kIdleWait);
    }
    splitBoard.SetIdle(false);
  }
}

int CRootSearch::TakePendingMove(int worker) {
  std::lock_guard lock(queueMutex);
  if (pending.empty()) return -1;
  const int index = pending.front();
  pending.pop_front();
  ownerOf[index] = worker;
  tasks[index]->state = TRootTask::kRunning;
  return index;
}

TRootTask* CRootSearch::FindTaskToHelp() {
  std::lock_guard lock(queueMutex);
  for (auto& task : tasks) {
    if (task->state != TRootTask::kRunning || !task->bRepliesReady || task->abandon.IsSet() ||
        task->nNextReply >= static_cast<int>(task->replies.size()))
      continue;
    ++task->nWorkersInside;  // under the lock, so the owner cannot reset the replies under us
    return task.get();
  }
  return nullptr;
}

void CRootSearch::Evaluate(int worker, int index, int nMaxSolutions) {
  CMateSearch& search = *searches[worker];
  TRootTask& task = *tasks[index];
  MateResult result;
  if (task.child.ply == 0) {
    result = search.BlackNode(task.child);
  } else if (!PrepareReplies(task)) {
    result = task.child.IsBlackInCheck() ? mate::kMate : mate::kNoMate;
  } else {
    workChanged.notify_all();
    ++task.nWorkersInside;
    SearchReplies(search, task);
    for (;;) {  // the helpers still inside give up quickly once the move is settled
      std::unique_lock lock(queueMutex);
      if (task.nWorkersInside == 0) break;
      workChanged.wait_for(lock, kIdleWait);
    }
    if (task.bRefuted) {
      result = task.refutation;
      // A repetition can only settle at this Black node: the root never counts as repeated.
      if (result == mate::kRepetition) result = mate::kNoMate;
    } else {
      result = task.abandon.IsSet() || search.Interrupted() ? mate::kDoubtful : mate::kMate;
    }
  }
  const int requeue = task.requeue.exchange(TRootTask::kNoRequeue);
  if (requeue == TRootTask::kRequeueAtEnd || requeue == TRootTask::kRequeueBehindNext) {
    std::lock_guard lock(queueMutex);
    task.ResetForAnotherRun();
    task.state = TRootTask::kPending;
    ownerOf[index] = -1;
    const bool bBehindNext = requeue == TRootTask::kRequeueBehindNext && !pending.empty();
    pending.insert(bBehindNext ? pending.begin() + 1 : pending.end(), index);
    return;
  }
  if (search.Interrupted() && result != mate::kMate) result = mate::kDoubtful;
  if (result == mate::kMate && nMaxSolutions > 0 && nKeysFound.fetch_add(1) + 1 >= nMaxSolutions)
    context.bAbandon = true;
  Finish(index, result);
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
  search.SetAbandonLink(&task.abandon);
  for (;;) {
    const int i = task.nNextReply.fetch_add(1);
    if (i >= static_cast<int>(task.replies.size()) || search.Interrupted()) break;
    const TChessboard& reply = task.replies[i];
    const MateResult result = search.WhiteNode(reply);
    if (search.Interrupted()) break;
    if (result == mate::kMate) continue;
    {
      std::lock_guard lock(task.refutationMutex);
      if (!task.bRefuted) {
        task.bRefuted = true;
        task.refutation = result;
      }
    }
    task.abandon.bSet = true;
    break;
  }
  search.SetAbandonLink(nullptr);
  std::lock_guard lock(queueMutex);
  --task.nWorkersInside;
  workChanged.notify_all();
}

void CRootSearch::Finish(int index, MateResult result) {
  std::lock_guard lock(queueMutex);
  TRootTask& task = *tasks[index];
  task.result = result;
  task.state = TRootTask::kDone;
  task.replies = {};
  ownerOf[index] = -1;
  ++nDone;
  workChanged.notify_all();
}

int CRootSearch::CurrentMoveIndex() const {
  std::lock_guard lock(queueMutex);
  for (size_t i = 0; i < tasks.size(); ++i)
    if (ownerOf[i] >= 0) return static_cast<int>(i);
  return -1;
}

void CRootSearch::RequeueCurrent(TRootTask::ERequeue how) {
  std::lock_guard lock(queueMutex);
  for (size_t i = 0; i < tasks.size(); ++i) {
    if (ownerOf[i] < 0) continue;
    tasks[i]->requeue = how;
    tasks[i]->abandon.bSet = true;
    return;
  }
}

void CRootSearch::PauseCurrentThread() {
  std::lock_guard lock(queueMutex);
  for (size_t i = 0; i < tasks.size(); ++i)
    if (ownerOf[i] >= 0) {
      searches[ownerOf[i]]->SetThreadState(CMateSearch::kThreadPause);
      return;
    }
}

void CRootSearch::ResumeAllThreads() {
  for (auto& search : searches) search->SetThreadState(CMateSearch::kThreadRun);
}

std::uint64_t CRootSearch::Positions() const {
  std::uint64_t n = 0;
  for (const auto& search : searches) n += search->Positions();
  return n;
}

double CRootSearch::Progress() const {
  return tasks.empty() ? 1.0 : static_cast<double>(nDone.load()) / tasks.size();
}
