#include <gtest/gtest.h>

#include "app/PassProgressLine.h"

namespace {

// The pass with its letter, the move under analysis, the mask only under heuristics.
TEST(PassProgressLine, ShowsThePassAndItsHeuristics) {
  TPassProgress heuristic;
  heuristic.sPass = "1b";
  heuristic.sCurrentMove = "Rh1-h5";
  heuristic.dShareDone = 0.42;
  heuristic.nPositions = 123456;
  heuristic.nHeuristicMask = 0x204;
  heuristic.nRegisterElements = 5000;
  heuristic.nDoubtfulElements = 120;
  TPassProgress plain;
  plain.nPositions = 7;
  const struct {
    TPassProgress progress;
    const char* text;
  } cases[] = {
      {heuristic, "Pass 1b, 1. Rh1-h5 42.0% 123456 SH:204h,TR:5000(120)     \r"},
      {plain, "Pass 2, 0.0% 7,TR:0(0)     \r"},
  };
  for (const auto& c : cases) EXPECT_EQ(PassProgressLine(c.progress), c.text);
}

}  // namespace
