#pragma once
// When the waiter of a console solve wakes: once a second for the progress line, and at the
// time limit, which keeps a deadline of its own so that it is not up to a second late.
#include <chrono>
#include <optional>

class CWaitSchedule {
 public:
  using Clock = std::chrono::steady_clock;

  CWaitSchedule(Clock::time_point start, std::optional<Clock::duration> limit,
                Clock::duration tick = std::chrono::seconds(1));

  // The next tick or the time limit, whichever comes first.
  Clock::time_point NextWake() const;
  bool IsTimeUp(Clock::time_point now) const { return deadline && now >= *deadline; }
  // Whether a tick has come by now; each tick is reported once, missed ones are skipped.
  bool TakeTick(Clock::time_point now);

 private:
  const std::optional<Clock::time_point> deadline;
  const Clock::duration tick;
  Clock::time_point nextTick;
};
