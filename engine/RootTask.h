#pragma once
#include <atomic>
#include <mutex>
#include <vector>

#include "core/Chessboard.h"
#include "engine/MateResult.h"
#include "engine/SplitPoint.h"

// What one turn of a pass left of a first move for the pass's next turn.
struct TFirstMoveRecord {
  bool bSettled = false;  // result holds for the pass: the next turn need not search it again
  MateResult result = mate::kNoMate;
};

// One first move of White and the Black node after it. The worker that takes the move
// makes Black's replies and lays them out here; idle workers take replies from the same
// list, so the proof of a key (every reply mated) is shared among the threads. The first
// reply that is not mated settles the move and tells the others to give up.
struct TRootTask {
  enum EState : int { kPending, kRunning, kDone };

  TChessboard child;  // the position after the first move, Black to move
  // Guarded by the mutex of the queue of first moves, up to the replies.
  EState state = kPending;
  MateResult result = mate::kNoMate;  // final once state is kDone
  bool bDropped = false;    // not needed: enough keys come before it in the order of analysis
  bool bCutByStop = false;  // settled as doubtful because the solve or the turn was stopped

  std::vector<TChessboard> replies;  // ready once bRepliesReady is set
  std::atomic<bool> bRepliesReady{false};
  std::atomic<int> nNextReply{0};
  std::atomic<int> nWorkersInside{0};
  TAbandonLink abandon;  // set when refuted, dropped, skipped or shifted: stop working on it

  std::mutex refutationMutex;
  bool bRefuted = false;  // under refutationMutex
  MateResult refutation = mate::kNoMate;

  // Requested by the manual commands while the move runs: give the result up and queue it
  // again, at the end or behind the next pending move, or settle it as it stands.
  enum ERequeue : int { kNoRequeue, kRequeueAtEnd, kRequeueBehindNext, kSkip };
  std::atomic<int> requeue{kNoRequeue};

  void ResetForAnotherRun() {
    replies.clear();
    bRepliesReady = false;
    nNextReply = 0;
    abandon.bSet = false;
    bRefuted = false;
    refutation = mate::kNoMate;
  }
};
