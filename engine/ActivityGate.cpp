#include "engine/ActivityGate.h"

namespace {
struct TThreadPermit {
  const CActivityGate* gate = nullptr;
  CActivityGate::Slice slice{};
  std::chrono::steady_clock::time_point sliceStart{};
};
thread_local TThreadPermit tPermit;
}  // namespace

void CActivityGate::Acquire(Slice slice) {
  {
    std::unique_lock lock(mutex);
    const std::uint64_t ticket = nNextTicket++;
    nWaiting.fetch_add(1, std::memory_order_relaxed);
    turn.wait(lock, [&] { return ticket == nServing && nFree > 0; });
    --nFree;
    ++nServing;
    nWaiting.fetch_sub(1, std::memory_order_relaxed);
  }
  turn.notify_all();  // the next ticket may find a permit free as well
  tPermit = {.gate = this, .slice = slice, .sliceStart = std::chrono::steady_clock::now()};
}

void CActivityGate::Release() {
  tPermit.gate = nullptr;
  {
    const std::lock_guard lock(mutex);
    ++nFree;
  }
  turn.notify_all();
}

bool CActivityGate::HeldHere() const {
  return tPermit.gate == this;
}

void CActivityGate::YieldWhenSliceEnded() {
  if (!HeldHere() || std::chrono::steady_clock::now() - tPermit.sliceStart < tPermit.slice) return;
  const Slice slice = tPermit.slice;
  Release();
  Acquire(slice);
}

CActivityGate::CHold::CHold(CActivityGate* activityGate, Slice slice) : gate(activityGate) {
  if (gate != nullptr) gate->Acquire(slice);
}

CActivityGate::CHold::~CHold() {
  if (gate != nullptr && gate->HeldHere()) gate->Release();
}

CActivityGate::CStepAside::CStepAside(CActivityGate* activityGate) {
  if (activityGate == nullptr || !activityGate->HeldHere()) return;
  gate = activityGate;
  slice = tPermit.slice;
  gate->Release();
}

CActivityGate::CStepAside::~CStepAside() {
  if (gate != nullptr) gate->Acquire(slice);
}
