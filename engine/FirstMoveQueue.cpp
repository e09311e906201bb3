#include "engine/FirstMoveQueue.h"

#include <algorithm>
#include <utility>

void CFirstMoveQueue::Add(const TChessboard& child) {
  const std::lock_guard lock(mutex);
  order.push_back(Size());
  ownerOf.push_back(-1);
  tasks.push_back(std::make_unique<TRootTask>());
  tasks.back()->child = child;
}

int CFirstMoveQueue::Take(int worker) {
  const std::lock_guard lock(mutex);
  for (int index : order) {
    TRootTask& task = *tasks[index];
    if (task.state != TRootTask::kPending) continue;
    task.state = TRootTask::kRunning;
    ownerOf[index] = worker;
    if (std::exchange(bPauseNextOwner, false)) pauseWorker(worker, true);
    return index;
  }
  return -1;
}

TRootTask* CFirstMoveQueue::FindTaskToHelp() {
  const std::lock_guard lock(mutex);
  for (int index : order) {
    TRootTask& task = *tasks[index];
    if (task.state != TRootTask::kRunning || !task.bRepliesReady || task.abandon.IsSet() ||
        task.nNextReply >= static_cast<int>(task.replies.size()))
      continue;
    ++task.nWorkersInside;  // under the lock, so that the owner cannot close the replies under us
    return &task;
  }
  return nullptr;
}

void CFirstMoveQueue::CloseToHelpers(TRootTask& task) {
  const std::lock_guard lock(mutex);
  task.bRepliesReady = false;
}

bool CFirstMoveQueue::Settle(int index, MateResult result, bool bCutByStop) {
  const std::lock_guard lock(mutex);
  TRootTask& task = *tasks[index];
  ownerOf[index] = -1;
  const auto requeue =
      static_cast<TRootTask::ERequeue>(task.requeue.exchange(TRootTask::kNoRequeue));
  if (!task.bDropped &&
      (requeue == TRootTask::kRequeueAtEnd || requeue == TRootTask::kRequeueBehindNext)) {
    task.ResetForAnotherRun();
    task.state = TRootTask::kPending;
    MoveInOrder(index, requeue);
    ApplyCut();
    return false;
  }
  task.result = result;
  task.bCutByStop = bCutByStop;
  task.state = TRootTask::kDone;
  task.replies = {};
  ++nDone;
  if (result == mate::kMate) ApplyCut();
  return true;
}

void CFirstMoveQueue::MoveInOrder(int index, TRootTask::ERequeue how) {
  order.erase(std::find(order.begin(), order.end(), index));
  auto place = order.end();
  if (how == TRootTask::kRequeueBehindNext) {
    place = std::find_if(order.begin(), order.end(),
                         [this](int i) { return tasks[i]->state == TRootTask::kPending; });
    if (place != order.end()) ++place;
  }
  order.insert(place, index);
}

void CFirstMoveQueue::ApplyCut() {
  if (nKeysWanted == 0) return;
  int nKeys = 0;
  auto last = order.begin();
  for (; last != order.end(); ++last) {
    const TRootTask& task = *tasks[*last];
    if (task.state == TRootTask::kDone && task.result == mate::kMate && ++nKeys == nKeysWanted)
      break;
  }
  if (last == order.end()) return;
  for (auto later = last + 1; later != order.end(); ++later) {
    TRootTask& task = *tasks[*later];
    if (task.state == TRootTask::kDone || task.bDropped) continue;
    task.bDropped = true;
    if (task.state == TRootTask::kRunning) {
      task.abandon.bSet = true;  // its worker settles it
      continue;
    }
    task.state = TRootTask::kDone;
    task.result = mate::kDoubtful;
    ++nDone;
  }
}

double CFirstMoveQueue::ShareDone() const {
  return tasks.empty() ? 1.0 : static_cast<double>(nDone.load()) / Size();
}

int CFirstMoveQueue::CurrentMove() const {
  const std::lock_guard lock(mutex);
  for (int index : order)
    if (ownerOf[index] >= 0) return index;
  return -1;
}

void CFirstMoveQueue::PauseCurrentWorker() {
  // Under the lock, so that no move can become current between the look and the note.
  const std::lock_guard lock(mutex);
  for (int index : order)
    if (ownerOf[index] >= 0) return pauseWorker(ownerOf[index], true);
  bPauseNextOwner = true;
}

void CFirstMoveQueue::ResumeWorkers(int nWorkers) {
  const std::lock_guard lock(mutex);
  bPauseNextOwner = false;
  for (int worker = 0; worker < nWorkers; ++worker) pauseWorker(worker, false);
}

bool CFirstMoveQueue::RequeueCurrent(TRootTask::ERequeue how) {
  const std::lock_guard lock(mutex);
  for (int index : order) {
    if (ownerOf[index] < 0) continue;
    tasks[index]->requeue = how;
    tasks[index]->abandon.bSet = true;
    return true;
  }
  return false;
}

std::vector<TFirstMoveRecord> CFirstMoveQueue::Records() const {
  const std::lock_guard lock(mutex);
  std::vector<TFirstMoveRecord> records(tasks.size());
  for (std::size_t i = 0; i < tasks.size(); ++i) {
    const TRootTask& task = *tasks[i];
    const bool bDone = task.state == TRootTask::kDone && !task.bDropped;
    records[i] = {.bSettled = bDone && !task.bCutByStop, .result = task.result};
  }
  return records;
}

void CFirstMoveQueue::ResumeFrom(const std::vector<TFirstMoveRecord>& records) {
  const std::lock_guard lock(mutex);
  if (records.size() != tasks.size()) return;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (!records[i].bSettled) continue;
    tasks[i]->state = TRootTask::kDone;
    tasks[i]->result = records[i].result;
    ++nDone;
  }
  ApplyCut();
}

std::vector<int> CFirstMoveQueue::Order() const {
  const std::lock_guard lock(mutex);
  return order;
}
