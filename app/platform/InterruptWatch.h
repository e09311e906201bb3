#pragma once
// Ctrl+C (SIGINT) and the request to terminate (SIGTERM), turned into a call in a thread of
// their own. A signal handler may do almost nothing safely, so it only writes the signal's
// number into a pipe; a watcher thread reads it there and calls back, where anything goes.
#include <functional>
#include <thread>

namespace platform {

class CInterruptWatch {
 public:
  // Catches the two signals until destroyed. onSignal runs in the watcher thread, once, with
  // the signal's number; a second signal ends the process as if nobody had caught it, so
  // that a user who will not wait for the clean end need not.
  explicit CInterruptWatch(std::function<void(int nSignal)> onSignal);
  // Restores the handlers that were there before and ends the watcher.
  ~CInterruptWatch();
  CInterruptWatch(const CInterruptWatch&) = delete;
  CInterruptWatch& operator=(const CInterruptWatch&) = delete;

 private:
  void Watch(const std::function<void(int)>& onSignal) const;

  int pipeEnds[2] = {-1, -1};
  std::thread watcher;
};

}  // namespace platform
