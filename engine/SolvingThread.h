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

  bool Start(std::function<void()> body, std::size_t nStackBytes);
  void Join();

 private:
  struct TState;
  std::unique_ptr<TState> state;
};
