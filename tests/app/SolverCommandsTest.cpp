#include <gtest/gtest.h>

#include <string>

#include "app/SolverCommands.h"

namespace {

// A solver recording the commands it received.
struct TRecordingSolver {
  std::string calls;
  void ShiftCurrentMoveToEnd() { calls += "shift "; }
  void SwapCurrentWithNext() { calls += "swap "; }
  void SkipToNextMove() { calls += "skip "; }
};

TEST(SolverCommands, EachCommandReachesItsOwnSolverMethod) {
  TRecordingSolver solver;
  ApplyManualCommand(solver, EManualCommand::SkipToNextMove);
  ApplyManualCommand(solver, EManualCommand::ShiftCurrentMoveToEnd);
  ApplyManualCommand(solver, EManualCommand::SwapCurrentWithNext);
  EXPECT_EQ(solver.calls, "skip shift swap ");
}

}  // namespace
