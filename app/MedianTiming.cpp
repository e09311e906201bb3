#include "app/MedianTiming.h"

#include <algorithm>
#include <chrono>

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  const std::size_t middle = values.size() / 2;
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(middle),
                   values.end());
  const double upper = values[middle];
  if (values.size() % 2 == 1) return upper;
  const double lower =
      *std::max_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(middle));
  return (lower + upper) / 2;
}

double SteadyClockSeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double MedianSeconds(int nRuns, const std::function<void()>& run, const TSecondsClock& clock) {
  std::vector<double> seconds;
  for (int i = 0; i < nRuns; ++i) {
    const double start = clock();
    run();
    seconds.push_back(clock() - start);
  }
  return Median(std::move(seconds));
}
