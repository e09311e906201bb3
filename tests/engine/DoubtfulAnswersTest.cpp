// The search's use of stored doubtful answers: a cut stored under the pass's heuristics
// selection makes the node doubtful, and only in that selection.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DirectMateRows.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "engine/MateSolver.h"
#include "engine/RegisterKey.h"

namespace {

constexpr THeuristicsKey kSelection = MakeHeuristicsKey(0x200, 3);

TRootOutcome SolveAll(const TChessboard& root, int nMoves,
                      TAggregatedTemporaryChessboardRegister& reg,
                      TAggregatedTemporaryChessboardRegister* pDoubtful, THeuristicsKey selection) {
  CMateSolver solver(root, nMoves,
                     {.nThreads = 1,
                      .nMaxSolutions = 0,
                      .pRegister = &reg,
                      .pDoubtful = pDoubtful,
                      .doubtfulSelection = selection});
  return solver.Run();
}

}  // namespace

TEST(DoubtfulAnswers, StoredCutHidesAKeyOnlyInItsSelection) {
  int nChecked = 0;
  for (const auto& row : matetest::QuickRows(0.06, 3)) {
    const TChessboard root = matetest::Root(row);
    const int nMoves = matetest::Moves(row);
    const std::vector<std::string> published = matetest::PublishedKeys(row);
    if (published.size() != 1) continue;
    TAggregatedTemporaryChessboardRegister reg(1'000'000);
    const TRootOutcome exact = SolveAll(root, nMoves, reg, nullptr, 0);
    ASSERT_EQ(exact.keys.size(), 1u) << row.at("id");

    // Every position after the key and a reply, White to move, stored as cut under the
    // selection.
    TChessboard afterKey, afterReply;
    ASSERT_TRUE(movemaking::MakeSuccessor(root, exact.keys[0], afterKey));
    reg.Clear();
    TMove replies[kMoveBufferSize];
    const int nReplies = movegen::GenerateAllMoves(afterKey, replies);
    for (int i = 0; i < nReplies; ++i) {
      if (!movemaking::MakeSuccessor(afterKey, replies[i], afterReply)) continue;
      ASSERT_FALSE(registerkey::HasEnPassantRight(afterReply));
      reg.InsertDoubtful(kSelection, afterReply.ply, registerkey::Build(afterReply), false);
    }

    struct TCase {
      TAggregatedTemporaryChessboardRegister* pDoubtful;
      THeuristicsKey selection;
      bool bKeyFound;
    } cases[] = {
        {&reg, kSelection, false},
        {&reg, MakeHeuristicsKey(0x200, 4), true},  // another selection's answers do not apply
        {nullptr, kSelection, true},                // the pass that searches doubtful positions out
    };
    for (const TCase& test : cases) {
      reg.TChessboardRegister<bool>::Clear();  // exact answers only: the cut stays
      const TRootOutcome outcome = SolveAll(root, nMoves, reg, test.pDoubtful, test.selection);
      EXPECT_EQ(matetest::Texts(root, outcome.keys, true),
                test.bKeyFound ? published : std::vector<std::string>{})
          << row.at("id") << " selection " << test.selection;
    }
    if (++nChecked == 4) break;
  }
  EXPECT_EQ(nChecked, 4);
}
