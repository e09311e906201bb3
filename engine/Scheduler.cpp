#include "engine/Scheduler.h"

namespace {
// A node beyond the scheduler levels lends time under the custom scheduler when White still
// has at least this many moves to mate in: its tree is as large as those of the levels.
constexpr int kCustomMovesLeft = 6;
}  // namespace

CScheduler::CScheduler(const TSettings& schedulerSettings, int nWorkers, CSplitBoard& splitBoard)
    : settings(schedulerSettings), nHelpers(nWorkers), gate(nWorkers), splits(splitBoard) {}

bool CScheduler::Covers(const TChessboard& board) const {
  const int nMove = (board.rootPlies - board.ply) / 2 + 1;  // the root is White's move 1
  if (nMove <= settings.nMultithreadingLevels) return false;
  if (nMove <= settings.nMultithreadingLevels + settings.nLevels) return true;
  return settings.bCustom && (board.ply + 1) / 2 >= kCustomMovesLeft;
}
