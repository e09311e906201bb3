// SH_FINDFORCEDMATE: which White moves each mode keeps, how the sets read and describe, and
// the end of the forced-mate depth, which must never pass for a refutation.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "DirectMateRows.h"
#include "HeuristicLine.h"
#include "engine/HeuristicChoice.h"
#include "engine/HeuristicPlan.h"
#include "engine/MateSearch.h"
#include "engine/MateSolver.h"

namespace {

using heuristictest::CLine;

constexpr std::pair<EForcedMateMode, const char*> kModes[] = {
    {EForcedMateMode::kCheckOnly, "CheckOnly"}, {EForcedMateMode::kMateIn1, "#1"},
    {EForcedMateMode::kMateIn1Plus, "#1+"},     {EForcedMateMode::kMateIn2, "#2"},
    {EForcedMateMode::kMateIn2Plus, "#2+"},     {EForcedMateMode::kMateIn3, "#3"},
    {EForcedMateMode::kMateIn4, "#4"},          {EForcedMateMode::kMateIn5, "#5"}};

THeuristicSet ForcedMate(EForcedMateMode mode) {
  THeuristicSet set;
  set.mask = shbit::kFindForcedMate;
  set.forcedMateMode = mode;
  return set;
}

// The parameter texts of the modes that let the move through, the threats answered by the
// search itself.
std::string KeptBy(const CLine& line, const TChessboard& after) {
  TChessboardRegister<bool> reg(100'000);
  SearchContext context;
  context.pRegister = &reg;
  CMateSearch search(context, line.Root().rootPlies);
  const heuristicrules::TThreatTest threatens = [&](const TChessboard& board, int nMoves) {
    return search.ThreatensMate(board, nMoves);
  };
  std::string kept;
  for (const auto& [mode, name] : kModes) {
    const THeuristicContext heuristics(ForcedMate(mode), line.Root());
    if (heuristicrules::WhiteMoveBreaks(after, heuristics, threatens) == 0)
      kept += (kept.empty() ? "" : " ") + std::string(name);
  }
  return kept;
}

// The modes on small positions: a check passes every mode, a threat passes the modes of its
// length and longer, a capture passes the "plus" modes without a threat, and a threat longer
// than the moves left counts for nothing.
TEST(ForcedMate, EachModeKeepsTheMovesOfItsThreats) {
  const char* kRook = "7k/8/6K1/8/8/8/8/R7 w - - 0 1";
  const char* kRookCapture = "7k/8/5K2/8/8/8/p7/R7 w - - 0 1";
  const char* kFar = "k7/8/8/8/8/2K5/8/7R w - - 0 1";
  const struct {
    const char* what;
    const char* fen;
    const char* move;
    const char* keptBy;
    std::uint16_t ply = 11;  // of the position before the move
  } cases[] = {
      {"a mating check", kRook, "a1a8", "CheckOnly #1 #1+ #2 #2+ #3 #4 #5"},
      {"a threat of mate in one", kRook, "a1a7", "#1 #1+ #2 #2+ #3 #4 #5"},
      {"a threat of mate in two", kRook, "g6f6", "#2 #2+ #3 #4 #5"},
      {"a capture that threatens mate in two", kRookCapture, "a1a2", "#1+ #2 #2+ #3 #4 #5"},
      {"a king's step that threatens mate in five", kFar, "c3c4", "#5"},
      {"the same step with four moves left", kFar, "c3c4", "", 9},
      {"a king's step that threatens mate in six", kFar, "c3d4", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    CLine line(c.fen, static_cast<std::uint16_t>(c.ply - 1));
    EXPECT_EQ(KeptBy(line, line.Play({c.move})), c.keptBy);
  }
}

// Every mode and kind of run reads back from its own description; a user's set is custom.
TEST(ForcedMate, DescriptionsReadBack) {
  for (const auto& [mode, name] : kModes) {
    for (const bool bPreliminary : {false, true}) {
      THeuristicSet set = ForcedMate(mode);
      set.bPreliminary = bPreliminary;
      set.bCustom = !bPreliminary;
      const std::string text = heuristicset::Describe(set);
      SCOPED_TRACE(text);
      const heuristicchoice::TNamedSet named = heuristicchoice::ReadNamedSet(text);
      EXPECT_EQ(named.sError, "");
      EXPECT_TRUE(named.set == set);
    }
  }
  const struct {
    const char* text;
    const char* description;
  } cases[] = {
      {"SH_FINDFORCEDMATE(#2-Preliminary)", "SH_FINDFORCEDMATE(#2-Preliminary)"},
      {"SH_FINDFORCEDMATE(#2+)", "SH_FINDFORCEDMATE(#2+-Custom)"},
      {"SH_FINDFORCEDMATE(#5-custom)", "SH_FINDFORCEDMATE(#5-Custom)"},
      {"SH_FINDFORCEDMATE(#6)", nullptr},
      {"SH_FINDFORCEDMATE(#3-Final)", nullptr},
  };
  for (const auto& c : cases) {
    const heuristicchoice::TNamedSet named = heuristicchoice::ReadNamedSet(c.text);
    if (c.description == nullptr) {
      EXPECT_EQ(named.sError, c.text);
    } else {
      EXPECT_EQ(heuristicset::Describe(named.set), c.description);
    }
  }
}

// #2 widens to #2+ (the widening of every mode is in HeuristicPlan's path); once the member
// goes, a mixture keeps its other members over the whole solution.
TEST(ForcedMate, RelaxationWidensTheModesThenFreesTheMixture) {
  EXPECT_EQ(heuristicplan::Relax(ForcedMate(EForcedMateMode::kMateIn2)).forcedMateMode,
            EForcedMateMode::kMateIn2Plus);
  THeuristicSet mixture = ForcedMate(EForcedMateMode::kMateIn5);
  mixture.mask |= shbit::kDontLoseAnyFigures;
  mixture.nForcedMateMoves = 4;
  const THeuristicSet freed = heuristicplan::Relax(mixture);
  EXPECT_EQ(freed.mask, shbit::kDontLoseAnyFigures);
  EXPECT_TRUE(freed.OthersHold(1));
}

TEST(ForcedMate, AutomaticPassesEndInTheMixture) {
  const TChessboard board = matetest::Board("7k/8/6K1/8/8/8/8/R7 w - - 0 1", 15);
  EXPECT_TRUE(
      heuristicplan::ForcedMatePasses(board, heuristicplan::kMinMovesForHeuristics - 1).empty());
  const std::vector<THeuristicSet> passes = heuristicplan::ForcedMatePasses(board, 8);
  ASSERT_GE(passes.size(), 2u);
  EXPECT_EQ(heuristicset::Describe(passes.front()), "SH_FINDFORCEDMATE(CheckOnly-Preliminary)");
  const THeuristicSet& mixture = passes.back();
  EXPECT_FALSE(mixture.bPreliminary);
  EXPECT_TRUE(mixture.ForcedMateHolds(8 - heuristicplan::kMixtureEndMoves));
  EXPECT_FALSE(mixture.OthersHold(8 - heuristicplan::kMixtureEndMoves));
  EXPECT_TRUE(mixture.OthersHold(9 - heuristicplan::kMixtureEndMoves));
  EXPECT_FALSE(mixture.ForcedMateHolds(9 - heuristicplan::kMixtureEndMoves));
}

// The mixture splits the solution at its forced-mate depth: before it only White's moves
// are held to forcing ones, after it only the other members hold.
TEST(ForcedMate, MixtureHoldsEachPartToItsOwnMembers) {
  THeuristicSet mixture = ForcedMate(EForcedMateMode::kMateIn1);
  mixture.mask |= shbit::kDontLoseAnyFigures;
  mixture.nForcedMateMoves = 1;
  const char* kRooks = "7k/1r6/6K1/8/8/8/8/R7 w - - 0 1";
  const struct {
    const char* what;
    std::vector<std::string> moves;  // White's first
    std::uint32_t expected;
  } cases[] = {
      {"a quiet first move", {"g6f6"}, shbit::kFindForcedMate},
      {"a quiet second move", {"a1a2", "h8g8", "g6f6"}, 0},
      {"a piece lost to the first reply", {"a1a7", "b7a7"}, 0},
      {"a piece lost to the second reply",
       {"g6f6", "h8g8", "a1a7", "b7a7"},
       shbit::kDontLoseAnyFigures},
  };
  for (const auto& c : cases) {
    CLine line(kRooks, 10);
    const TChessboard& after = line.Play(c.moves);
    const THeuristicContext heuristics(mixture, line.Root());
    const std::uint32_t bit = after.IsWhiteToMove()
                                  ? heuristicrules::BlackReplyBreaks(after, heuristics).bit
                                  : heuristicrules::WhiteMoveBreaks(after, heuristics);
    EXPECT_EQ(bit, c.expected) << c.what;
  }
}

THeuristicSet Preliminary(int nForcedMoves) {
  THeuristicSet set = ForcedMate(EForcedMateMode::kMateIn1Plus);
  set.bPreliminary = true;
  set.nForcedMateMoves = static_cast<std::uint8_t>(nForcedMoves);
  return set;
}

// A preliminary run that stops one move short of the mates ends every line at its depth:
// the solve is doubtful for the forced-mate member, never "no mate", and the pass without
// heuristics still finds every key. Deep enough, the same run finds keys, all published.
TEST(ForcedMate, EndOfTheForcedMateDepthIsNeverNoMate) {
  int nRows = 0;
  for (const auto& row : matetest::QuickRows(0.05, 3)) {
    const auto published = matetest::PublishedKeys(row);
    const int nMoves = matetest::Moves(row);
    if (published.empty() || nMoves != 3) continue;
    SCOPED_TRACE(row.at("id"));
    for (const bool bPass2 : {false, true}) {
      TChessboardRegister<bool> reg(1'000'000);
      CMateSolver solver(matetest::Root(row), nMoves,
                         {.nMaxSolutions = 0,
                          .pRegister = &reg,
                          .heuristicPasses = {Preliminary(1)},
                          .bPass2 = bPass2});
      const TRootOutcome outcome = solver.Run();
      const auto keys = matetest::Texts(matetest::Root(row), outcome.keys, true);
      if (bPass2) {
        EXPECT_EQ(keys, published);
      } else {
        EXPECT_NE(int{outcome.result}, int{mate::kNoMate});
        if (keys.empty()) {
          EXPECT_EQ(solver.DoubtfulReason(), shbit::kFindForcedMate);
        }
        EXPECT_TRUE(std::includes(published.begin(), published.end(), keys.begin(), keys.end()));
      }
    }
    ++nRows;
  }
  EXPECT_GE(nRows, 3);
}

}  // namespace
