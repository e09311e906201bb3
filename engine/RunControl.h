#pragma once
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>

#include "engine/ActivityGate.h"

// Whether the threads of one solve run, pause or stop, and where they wait when they have
// nothing to do. The search checks the state at every Black node, so the checks are single
// relaxed loads. Every change that a waiting thread may wait for is announced with Notify,
// which counts a generation up: a thread reads the generation, looks for what it waits for
// and, finding nothing, sleeps until the generation moves on. So no thread polls, and no
// announcement between the look and the sleep is lost.
class CRunControl {
 public:
  // Stop: asked for by the user or the time limit. Abort: a thread failed, the solve ends.
  enum EState : std::uint8_t { kRun = 0, kPause = 1, kStop = 2, kAbort = 3 };

  bool IsStopping() const { return state.load(std::memory_order_relaxed) >= kStop; }
  bool IsPaused() const { return state.load(std::memory_order_relaxed) == kPause; }

  // A stop is final: pause and resume do not undo it.
  void Stop() { Enter(kStop); }
  void Abort() { Enter(kAbort); }
  void Pause() { Enter(kPause); }
  void Resume() { Enter(kRun); }

  std::uint64_t Generation() const { return generation.load(std::memory_order_acquire); }
  // Announces a change: wakes every waiting thread.
  void Notify();
  // Sleeps until a Notify after the generation seen (at once when there was one).
  void WaitForChange(std::uint64_t seen);
  // Wakes the parked threads, and only when there are any: for the changes that end a
  // pause early (a parked thread's work was settled elsewhere). Cheap when none is parked.
  void WakeParked();
  // A paused search thread sleeps here, counted as parked, until bMayGoOn holds. bMayGoOn
  // reads atomics only: it runs under the control's lock.
  void ParkUntil(const std::function<bool()>& bMayGoOn);
  int ParkedThreads() const { return nParked.load(); }
  // The gate that limits the threads running at once (see CScheduler), or none. A thread
  // that sleeps here gives its permit back while it sleeps. Set only while no solving thread
  // runs.
  void SetActivityGate(CActivityGate* activityGate) { gate.store(activityGate); }
  CActivityGate* ActivityGate() const { return gate.load(std::memory_order_relaxed); }

 private:
  void Enter(EState next);

  std::atomic<std::uint8_t> state{kRun};
  std::atomic<std::uint64_t> generation{0};
  std::atomic<int> nParked{0};
  std::mutex mutex;
  std::condition_variable changed;
  std::atomic<CActivityGate*> gate{nullptr};
};
