#pragma once
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

// Calls a function once a time is up, unless destroyed first; the destructor waits for its
// thread. Gives each pass under heuristics its share of time.
class CPassTimer {
 public:
  CPassTimer(std::chrono::milliseconds time, std::function<void()> onExpiry)
      : thread([this, time, expire = std::move(onExpiry)] {
          std::unique_lock lock(mutex);
          if (!ended.wait_for(lock, time, [this] { return bEnded; })) expire();
        }) {}
  ~CPassTimer() {
    {
      const std::lock_guard lock(mutex);
      bEnded = true;
    }
    ended.notify_all();
    thread.join();
  }
  CPassTimer(const CPassTimer&) = delete;
  CPassTimer& operator=(const CPassTimer&) = delete;

 private:
  std::mutex mutex;
  std::condition_variable ended;
  bool bEnded = false;
  std::thread thread;  // last: it starts once the members above exist
};
