#pragma once
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <thread>
#include <vector>

// Runs work(begin, end, thread) over [0, n) in chunks shared out among nThreads threads
// (the caller's thread is one of them). Small ranges run on the caller's thread alone.
template <typename F>
void ParallelForRange(std::uint64_t n, int nThreads, F&& work) {
  constexpr std::uint64_t kChunk = 1 << 16;
  if (nThreads <= 1 || n <= 4 * kChunk) {
    work(std::uint64_t{0}, n, 0);
    return;
  }
  std::atomic<std::uint64_t> next{0};
  const auto run = [&](int thread) {
    for (;;) {
      const std::uint64_t begin = next.fetch_add(kChunk);
      if (begin >= n) return;
      work(begin, std::min(n, begin + kChunk), thread);
    }
  };
  std::vector<std::jthread> helpers;
  for (int t = 1; t < nThreads; ++t) helpers.emplace_back(run, t);
  run(0);
}
