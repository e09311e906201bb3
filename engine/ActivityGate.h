#pragma once
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

// At most a fixed number of solving threads run at once; the others wait for a permit in the
// order they asked. A running thread hands its permit on when its time slice has run out and
// another thread waits, so that all of them advance, each a slice at a time. A thread that
// sleeps for another reason (no work, a pause, helpers to wait for) steps aside for as long
// as it sleeps. Which thread holds a permit is kept per thread, so a thread holds at most one.
class CActivityGate {
 public:
  using Slice = std::chrono::milliseconds;

  explicit CActivityGate(int nPermits) : nFree(nPermits) {}
  CActivityGate(const CActivityGate&) = delete;
  CActivityGate& operator=(const CActivityGate&) = delete;

  // Waits for the calling thread's turn; it then runs for slice before it is asked to yield.
  void Acquire(Slice slice);
  void Release();
  bool HeldHere() const;
  // Hands the permit on and queues again when the slice ran out and a thread waits. The
  // common case, nobody waiting, costs one relaxed load.
  void YieldIfDue() {
    if (nWaiting.load(std::memory_order_relaxed) > 0) YieldWhenSliceEnded();
  }
  int Waiting() const { return nWaiting.load(std::memory_order_relaxed); }

  // Holds the calling thread's permit, if it has one, from Acquire to the end of the scope.
  class CHold {
   public:
    CHold(CActivityGate* gate, Slice slice);
    ~CHold();
    CHold(const CHold&) = delete;
    CHold& operator=(const CHold&) = delete;

   private:
    CActivityGate* gate;
  };
  // Gives the calling thread's permit back for a sleep, and takes it again afterwards; does
  // nothing for a thread without a permit or without a gate.
  class CStepAside {
   public:
    explicit CStepAside(CActivityGate* gate);
    ~CStepAside();
    CStepAside(const CStepAside&) = delete;
    CStepAside& operator=(const CStepAside&) = delete;

   private:
    CActivityGate* gate = nullptr;
    Slice slice{};
  };

 private:
  void YieldWhenSliceEnded();

  std::mutex mutex;
  std::condition_variable turn;
  int nFree;                      // under mutex
  std::uint64_t nNextTicket = 0;  // under mutex
  std::uint64_t nServing = 0;     // under mutex: the ticket whose turn comes next
  std::atomic<int> nWaiting{0};
};
