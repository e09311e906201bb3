#pragma once
// Speed is measured as the median time of repeated runs, so that a run slowed down by the
// rest of the machine does not move the figure.
#include <functional>
#include <vector>

// The middle value, or the mean of the two middle ones; 0 for none.
double Median(std::vector<double> values);

// Reads a clock in seconds.
using TSecondsClock = std::function<double()>;
double SteadyClockSeconds();

// Runs run() nRuns times and returns the median of the times the clock measured.
double MedianSeconds(int nRuns, const std::function<void()>& run,
                     const TSecondsClock& clock = SteadyClockSeconds);
