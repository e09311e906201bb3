#include <gtest/gtest.h>

#include <string>

#include "app/SolverCommands.h"

namespace {

// A solver offering every command, recording which it received.
struct TFullSolver {
  std::string calls;
  void ShiftCurrentMoveToEnd() { calls += "shift "; }
  bool SwapCurrentWithNext() {
    calls += "swap ";
    return true;
  }
  void SkipToNextMove() { calls += "skip "; }
  void PauseOneThread() { calls += "one "; }
  void Pause() { calls += "all "; }
};

// A solver with stop, pause and resume only.
struct TPlainSolver {
  std::string calls;
  void Pause() { calls += "all "; }
};

struct TSettingsWithLevels {
  std::uint8_t nLevels = 1;
};
struct TSettingsWithoutLevels {
  int nThreads = 1;
};

TEST(SolverCommands, ReachTheSolverWhereItOffersThem) {
  TFullSolver full;
  EXPECT_TRUE(ApplyManualCommand(full, EManualCommand::ShiftCurrentMoveToEnd));
  EXPECT_TRUE(ApplyManualCommand(full, EManualCommand::SwapCurrentWithNext));
  EXPECT_TRUE(ApplyManualCommand(full, EManualCommand::SkipToNextMove));
  EXPECT_TRUE(PauseOneSolverThread(full));
  EXPECT_EQ(full.calls, "shift swap skip one ");

  TPlainSolver plain;
  EXPECT_FALSE(ApplyManualCommand(plain, EManualCommand::ShiftCurrentMoveToEnd));
  EXPECT_FALSE(ApplyManualCommand(plain, EManualCommand::SkipToNextMove));
  EXPECT_FALSE(PauseOneSolverThread(plain));  // parks every thread instead
  EXPECT_EQ(plain.calls, "all ");
}

TEST(SolverCommands, LevelsGoWhereTheSettingsHaveRoom) {
  TSettingsWithLevels with;
  SetSolverLevels(with, 3);
  EXPECT_EQ(with.nLevels, 3);
  TSettingsWithoutLevels without;
  SetSolverLevels(without, 3);
  EXPECT_EQ(without.nThreads, 1);
}

}  // namespace
