// The leader's account of shared first moves: the keys reported are the first ones in the
// order of the moves however the results come in, and no move goes out once it cannot
// change them.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "SolvingSessionHelpers.h"
#include "app/FenProblem.h"
#include "app/FirstMoveShares.h"
#include "app/SolvingSession.h"
#include "core/Notation.h"

namespace {

// White Kb6 and Rh1 against Ka8: twenty first moves.
constexpr const char* kFen = "k7/8/1K6/8/8/8/8/7R";

CFirstMoveShares Shares(int nKeysWanted) {
  return CFirstMoveShares(DirectMateFromFen(kFen, 1)->start, nKeysWanted);
}

TEST(FirstMoveShares, HandsOutEveryLegalMoveOnce) {
  CFirstMoveShares shares = Shares(0);
  // King b6: a5 b5 c5 a6 c6 c7 (not a7 b7 beside the black king); rook h1: 14 squares.
  ASSERT_EQ(shares.Size(), 6 + 14);
  for (int i = 0; i < shares.Size(); ++i) EXPECT_EQ(shares.Take(), i);
  EXPECT_EQ(shares.Take(), std::nullopt);
  EXPECT_FALSE(shares.Finished());
  for (int i = 0; i < shares.Size(); ++i) shares.Settle(i, {.nPositions = 2});
  EXPECT_TRUE(shares.Finished());
  EXPECT_EQ(shares.Outcome().nPositions, 2u * static_cast<unsigned>(shares.Size()));
  EXPECT_EQ(shares.Outcome().result, mate::kNoMate);
}

TEST(FirstMoveShares, KeysAreTheFirstInOrderWhateverSettlesFirst) {
  const struct {
    int nKeysWanted;
    std::vector<int> keyIndices;  // the moves that are keys, settled last to first
    std::vector<int> reported;
    int nHandedOut;  // before the keys are settled, the moves after the cut are not needed
  } cases[] = {
      {1, {3, 7}, {3}, 8},
      {2, {3, 7, 9}, {3, 7}, 10},
      {0, {3, 7, 9}, {3, 7, 9}, 20},
      {1, {}, {}, 20},
  };
  for (const auto& c : cases) {
    CFirstMoveShares shares = Shares(c.nKeysWanted);
    std::vector<int> out;
    while (const auto next = shares.Take()) {
      out.push_back(*next);
      if (static_cast<int>(out.size()) == c.nHandedOut) break;
    }
    for (auto it = c.keyIndices.rbegin(); it != c.keyIndices.rend(); ++it)
      shares.Settle(*it, {.bKey = true});
    for (const int index : out)
      if (std::find(c.keyIndices.begin(), c.keyIndices.end(), index) == c.keyIndices.end())
        shares.Settle(index, {});
    EXPECT_EQ(shares.Take(), std::nullopt) << c.nKeysWanted;
    EXPECT_TRUE(shares.Finished()) << c.nKeysWanted;
    std::vector<TMove> expected;
    for (const int index : c.reported) expected.push_back(shares.Move(index));
    EXPECT_EQ(shares.Outcome().keys, expected) << c.nKeysWanted;
  }
}

TEST(FirstMoveShares, AStoppedOrFailedMoveEndsTheHandingOut) {
  for (const TShareResult& failure :
       {TShareResult{.bStopped = true}, TShareResult{.sError = "no threads"}}) {
    CFirstMoveShares shares = Shares(0);
    const int first = *shares.Take();
    const int second = *shares.Take();
    shares.Settle(first, failure);
    EXPECT_EQ(shares.Take(), std::nullopt);
    EXPECT_FALSE(shares.Finished());  // the second move is still out
    shares.Settle(second, {.bKey = true});
    EXPECT_TRUE(shares.Finished());
    const TSharesOutcome outcome = shares.Outcome();
    EXPECT_EQ(outcome.bStopped, failure.bStopped);
    EXPECT_EQ(outcome.sError, failure.sError);
    EXPECT_EQ(outcome.keys.size(), 1u);
  }
}

// What one rank does with its share: the problem solved with one first move, or a few, on
// the position as given and its mirror (two keys, Ka6-b6 and Ne8-c7, among 7 first moves).
TEST(FirstMoveShares, ASolveRestrictedToSomeFirstMovesFindsTheirKeysOnly) {
  const auto problem = DirectMateFromFen("k3N3/P7/K6p/8/8/8/8/8", 2);
  const struct {
    std::vector<std::string> moves;
    bool bMirror;
    std::vector<std::string> keys;
  } cases[] = {
      {{"Ka6-b6"}, false, {"Ka6-b6"}},
      {{"Ne8-d6"}, false, {}},
      {{"Ne8-d6", "Ne8-c7"}, false, {"Ne8-c7"}},
      {{"Ne8-c7"}, true, {"Ne8-c7"}},  // the mirrored pass is not restricted
  };
  CSolvingSession session(sessiontest::TestOptions());
  for (const auto& c : cases) {
    std::vector<TMove> moves;
    for (const std::string& text : c.moves)
      moves.push_back(notation::FullDescriptionToMove(text, true));
    ASSERT_EQ(session.Start({.pProblem = problem.get(),
                             .bFindAll = true,
                             .threads = TThreadSettings{2, 1},
                             .bMirrorSwitch = c.bMirror,
                             .onlyFirstMoves = moves}),
              std::nullopt);
    session.Wait({.bQuiet = true});
    EXPECT_EQ(session.Requests().front()->result.keyTexts, c.keys) << c.moves.front();
    ASSERT_EQ(session.Requests().size(), c.bMirror ? 2u : 1u);
    EXPECT_EQ(session.Requests().back()->result.nSolutions,
              c.bMirror ? 2 : static_cast<int>(c.keys.size()));
  }
}

}  // namespace
