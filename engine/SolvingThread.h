#pragma once
#include <cstddef>
#include <functional>
#include <memory>

// A solving thread with a stack sized for the recursion of the search (std::thread cannot
// choose its stack size). Start reports failure instead of throwing, so that a solve can
// end the threads it already started and give up cleanly.
class CSolvingThread {
 public:
  CSolvingThread();
  ~CSolvingThread();
  CSolvingThread(const CSolvingThread&) = delete;
  CSolvingThread& operator=(const CSolvingThread&) = delete;

  // body must not throw: it is the thread's entry, where nobody could catch it.
  bool Start(std::function<void()> body, std::size_t nStackBytes) noexcept;
  void Join();

 private:
  struct TState;
  std::unique_ptr<TState> state;
};

// Starts thread with body and the stack size, as CSolvingThread::Start does; a solve may be
// given another starter to see what a failed start does.
using TThreadStarter = std::function<bool(CSolvingThread& thread, std::function<void()> body,
                                          std::size_t nStackBytes)>;
