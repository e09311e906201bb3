// The manual commands of a running solve, through real solves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "SolveControlHelpers.h"

namespace {

using namespace solvecontrol;
using ::testing::ElementsAreArray;

TEST(SolveControl, ManualCommandsReorderTheFirstMovesOfARealSolve) {
  const TProblemPosition problem{"k7/8/1K6/8/8/8/8/7R", 3};
  const TChessboard start = Position(problem.fen);
  const std::vector<std::string> allKeys = Keys(problem, 1, 0);
  const auto Shift = [](CMateSolver& solver) { solver.ShiftCurrentMoveToEnd(); };
  const auto Swap = [](CMateSolver& solver) { solver.SwapCurrentWithNext(); };
  const auto Skip = [](CMateSolver& solver) { solver.SkipToNextMove(); };
  const auto Upto = [](int nFrom, int nTo) {
    std::vector<int> moves;
    for (int n = nFrom; n <= nTo; ++n) moves.push_back(n);
    return moves;
  };
  const auto Join = [](std::vector<int> a, const std::vector<int>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
  };
  const int nLast = 19;  // the position has 20 first moves
  const struct {
    const char* szName;
    std::function<void(CMateSolver&)> command;
    int nMove;      // the command is given when this move is taken the first time
    bool bGivesUp;  // the move is settled as it stands, proving nothing
    int nMaxSolutions;
    std::vector<int> settled;  // the moves in the order they are settled
  } cases[] = {
      {"shift", Shift, 1, false, 0, Join(Join({0}, Upto(2, nLast)), {1})},
      {"swap", Swap, 1, false, 0, Join({0, 2, 1}, Upto(3, nLast))},
      {"skip", Skip, 1, true, 0, Upto(0, nLast)},
      // The first move, a key, goes to the end: the next key is the first one now.
      {"shift, one key", Shift, 0, false, 1, {1}},
  };
  for (const auto& c : cases) {
    std::vector<int> settled;
    std::vector<TMove> moves;
    bool bGiven = false;
    TChessboardRegister<bool> reg(1'000'000);
    CMateSolver* pSolver = nullptr;
    CMateSolver solver(
        start, problem.nMoves,
        {.nMaxSolutions = c.nMaxSolutions,
         .pRegister = &reg,
         .hooks = {.onMoveTaken =
                       [&](int nMove) {
                         if (nMove == c.nMove && !std::exchange(bGiven, true)) c.command(*pSolver);
                       },
                   .onMoveSettled = [&](int nMove, MateResult) { settled.push_back(nMove); }}});
    pSolver = &solver;
    const std::vector<TMove>& firstMoves = solver.Root().FirstMoves();
    ASSERT_EQ(static_cast<int>(firstMoves.size()), nLast + 1);
    const TRootOutcome outcome = solver.Run();
    EXPECT_THAT(settled, ElementsAreArray(c.settled)) << c.szName;
    // The keys come in the new order; a skipped move proves nothing.
    std::vector<std::string> expected;
    for (int nMove : c.settled) {
      const std::string move = notation::MoveToText(start, firstMoves[nMove]);
      if (!(c.bGivesUp && nMove == c.nMove) &&
          std::find(allKeys.begin(), allKeys.end(), move) != allKeys.end())
        expected.push_back(move);
    }
    EXPECT_THAT(Texts(start, outcome.keys), ElementsAreArray(expected)) << c.szName;
    EXPECT_FALSE(outcome.bInterrupted) << c.szName;
  }
}

}  // namespace
