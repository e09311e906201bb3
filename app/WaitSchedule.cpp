#include "app/WaitSchedule.h"

#include <algorithm>

CWaitSchedule::CWaitSchedule(Clock::time_point start, std::optional<Clock::duration> limit,
                             Clock::duration tickLength)
    : deadline(limit ? std::optional(start + *limit) : std::nullopt),
      tick(tickLength),
      nextTick(start + tickLength) {}

CWaitSchedule::Clock::time_point CWaitSchedule::NextWake() const {
  return deadline ? std::min(nextTick, *deadline) : nextTick;
}

bool CWaitSchedule::TakeTick(Clock::time_point now) {
  if (now < nextTick) return false;
  while (nextTick <= now) nextTick += tick;
  return true;
}
