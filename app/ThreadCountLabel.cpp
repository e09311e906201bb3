#include "app/ThreadCountLabel.h"

#include <cstdio>

EThreadLabelMode ThreadLabelModeOf(ESolvingMode mode) {
  switch (mode) {
    case ESolvingMode::SingleSolution:
      return EThreadLabelMode::SingleSolution;
    case ESolvingMode::AllSolutions:
      return EThreadLabelMode::AllSolutions;
    case ESolvingMode::StopOnDual:
    case ESolvingMode::StopOn3Sol:
      break;
  }
  return EThreadLabelMode::CountOnly;
}

std::string ThreadCountLabel(std::size_t nThreads, EThreadLabelMode mode) {
  char count[32];
  std::snprintf(count, sizeof count, "%2zuthrd(s)", nThreads);
  switch (mode) {
    case EThreadLabelMode::SingleSolution:
      return std::string("SnglSolution,") + count;
    case EThreadLabelMode::AllSolutions:
      return std::string("AllSolutions,") + count;
    case EThreadLabelMode::CountOnly:
      break;
  }
  return count;
}
