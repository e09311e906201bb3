#include "engine/RunControl.h"

void CRunControl::Enter(EState next) {
  {
    const std::lock_guard lock(mutex);
    const std::uint8_t current = state.load(std::memory_order_relaxed);
    if (current >= kStop && next <= current) return;
    state.store(next);
    generation.fetch_add(1, std::memory_order_release);
  }
  changed.notify_all();
}

void CRunControl::Notify() {
  {
    const std::lock_guard lock(mutex);
    generation.fetch_add(1, std::memory_order_release);
  }
  changed.notify_all();
}

void CRunControl::WaitForChange(std::uint64_t seen) {
  const CActivityGate::CStepAside aside(ActivityGate());
  std::unique_lock lock(mutex);
  changed.wait(lock, [this, seen] { return generation.load(std::memory_order_relaxed) != seen; });
}

void CRunControl::WakeParked() {
  // Pairs with the fence in ParkUntil: either the parked thread sees the change made before
  // this call, or this call sees the thread counted and wakes it.
  std::atomic_thread_fence(std::memory_order_seq_cst);
  if (nParked.load(std::memory_order_relaxed) > 0) Notify();
}

void CRunControl::ParkUntil(const std::function<bool()>& bMayGoOn) {
  const CActivityGate::CStepAside aside(ActivityGate());
  {
    std::unique_lock lock(mutex);
    nParked.fetch_add(1, std::memory_order_relaxed);
    std::atomic_thread_fence(std::memory_order_seq_cst);
    generation.fetch_add(1, std::memory_order_release);  // for whoever waits to see it parked
    changed.notify_all();
    changed.wait(lock, bMayGoOn);
    nParked.fetch_sub(1, std::memory_order_relaxed);
    generation.fetch_add(1, std::memory_order_release);
  }
  changed.notify_all();
}
