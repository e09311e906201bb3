#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/Fen.h"
#include "engine/HeuristicPlan.h"
#include "engine/HeuristicSet.h"

namespace {

THeuristicSet Set(std::uint32_t mask) {
  THeuristicSet set;
  set.mask = mask;
  return set;
}

// How a set is written: names, parameter texts and the dynamic-unblock note.
TEST(HeuristicSet, Descriptions) {
  THeuristicSet keyField = Set(shbit::kKeyField);
  keyField.keySquare = 18;
  THeuristicSet preliminary = Set(shbit::kFindForcedMate);
  preliminary.forcedMateMode = EForcedMateMode::kMateIn1Plus;
  preliminary.bPreliminary = true;
  THeuristicSet edge = Set(shbit::kKeepKingOnTheEdge | shbit::kDontLoseAnyFigures);
  edge.edgeForm = EEdgeForm::kAlmostStrict;
  edge.nLoseFiguresLevel = 2;
  THeuristicSet corner = Set(shbit::kKeepKingNearCorner | shbit::kDontLetKingMove);
  corner.nCornerDistance = 3;
  corner.bCornerInKingMoves = true;
  corner.bKingMoveExceptions = true;
  THeuristicSet dynamic = Set(shbit::kDontLetFigureUnblock);
  dynamic.bCannotApplyDlfuDynamically = true;
  const struct {
    THeuristicSet set;
    const char* text;
  } cases[] = {
      {Set(0), "(none)"},
      {keyField, "SH_KEYFIELD(C3)"},
      {Set(shbit::kKeyField), "SH_KEYFIELD"},
      {Set(shbit::kFindForcedMate), "SH_FINDFORCEDMATE(CheckOnly)"},
      {preliminary, "SH_FINDFORCEDMATE(#1+-Preliminary)"},
      {edge, "SH_KEEPKINGONTHEEDGE(ALMOST_STRICT), SH_DONTLOSEANYFIGURES(incl.pawnsBeforePromo)"},
      {corner, "SH_DONTLETKINGMOVE(excptns), SH_KEEPKINGNEARCORNER(3M)"},
      {dynamic, "SH_DONTLETFIGUREUNBLOCK (CannotApplyDLFUDynamically)"},
      {[] {
         THeuristicSet set = Set(shbit::kDontLoseAnyFigures);
         set.fallback = EFallback::kKeepOnEdge;
         return set;
       }(),
       "SH_DONTLOSEANYFIGURES (fallback: SH_KEEPKINGONTHEEDGE(STRICT))"},
  };
  for (const auto& c : cases) EXPECT_EQ(heuristicset::Describe(c.set), c.text);
}

// Sets that restrict differently never share a parameters word: each set below differs from
// the first of its group in one value.
TEST(HeuristicSet, ParamsTellSetsApart) {
  const auto Variants = [](std::uint32_t mask, const std::vector<void (*)(THeuristicSet&)>& edits) {
    std::vector<THeuristicSet> sets{Set(mask)};
    for (const auto edit : edits) edit(sets.emplace_back(Set(mask)));
    return sets;
  };
  const std::vector<std::vector<THeuristicSet>> groups = {
      Variants(shbit::kFindForcedMate,
               {[](THeuristicSet& s) { s.forcedMateMode = EForcedMateMode::kMateIn1; },
                [](THeuristicSet& s) { s.bPreliminary = true; },
                [](THeuristicSet& s) { s.nForcedMateMoves = 7; }}),
      Variants(shbit::kKeepKingNearCorner, {[](THeuristicSet& s) { s.bCornerInKingMoves = true; },
                                            [](THeuristicSet& s) { s.nCornerDistance = 3; }}),
      Variants(shbit::kOneColorPlay,
               {[](THeuristicSet& s) { s.oneColour = EOneColour::kDarkSquares; }}),
      Variants(shbit::kDontLoseAnyFigures,
               {[](THeuristicSet& s) { s.bDynamicDlfu = true; },
                [](THeuristicSet& s) { s.fallback = EFallback::kKingStays; },
                [](THeuristicSet& s) { s.fallback = EFallback::kKeepOnEdge; },
                [](THeuristicSet& s) { s.nLoseFiguresLevel = 2; }}),
      // Many members at once: the values still tell the sets apart.
      Variants(shbit::kFindForcedMate | shbit::kDontLoseAnyFigures | shbit::kKeepKingOnTheEdge |
                   shbit::kDontLetKingMove | shbit::kKeepKingNearCorner,
               {[](THeuristicSet& s) { s.nForcedMateMoves = 9; },
                [](THeuristicSet& s) { s.edgeForm = EEdgeForm::kAllStrict; },
                [](THeuristicSet& s) { s.bKingMoveExceptions = true; },
                [](THeuristicSet& s) { s.fallback = EFallback::kKingStays; }}),
  };
  for (const std::vector<THeuristicSet>& sets : groups)
    for (std::size_t i = 0; i < sets.size(); ++i)
      for (std::size_t j = i + 1; j < sets.size(); ++j)
        EXPECT_NE(sets[i].Params(), sets[j].Params())
            << heuristicset::Describe(sets[i]) << " / " << heuristicset::Describe(sets[j]) << " "
            << j;
}

// Relaxation widens the forced-mate modes, loosens the edge, then drops members, and ends.
TEST(HeuristicPlan, RelaxationPathWidensStepByStep) {
  THeuristicSet start = Set(shbit::kFindForcedMate | shbit::kKeepKingOnTheEdge);
  start.edgeForm = EEdgeForm::kStrict;
  const std::vector<THeuristicSet> path = heuristicplan::RelaxationPath(start);
  std::vector<std::string> texts;
  for (const THeuristicSet& set : path) texts.push_back(heuristicset::Describe(set));
  EXPECT_EQ(texts,
            (std::vector<std::string>{"SH_KEEPKINGONTHEEDGE(strict), SH_FINDFORCEDMATE(CheckOnly)",
                                      "SH_KEEPKINGONTHEEDGE(strict), SH_FINDFORCEDMATE(#1)",
                                      "SH_KEEPKINGONTHEEDGE(strict), SH_FINDFORCEDMATE(#1+)",
                                      "SH_KEEPKINGONTHEEDGE(strict), SH_FINDFORCEDMATE(#2+)",
                                      "SH_KEEPKINGONTHEEDGE(strict), SH_FINDFORCEDMATE(#3)",
                                      "SH_KEEPKINGONTHEEDGE(strict), SH_FINDFORCEDMATE(#4)",
                                      "SH_KEEPKINGONTHEEDGE(strict), SH_FINDFORCEDMATE(#5)",
                                      "SH_KEEPKINGONTHEEDGE(strict)", "SH_KEEPKINGONTHEEDGE"}));
  EXPECT_TRUE(heuristicplan::RelaxationPath(Set(0)).empty());
}

// The automatic choice: nothing for short problems; after the forced-mate runs, the first
// steps of the path of the position's type, the strictest set with the dynamic unblock
// restriction unless Black has a queen or the switch is off.
TEST(HeuristicPlan, AutomaticPassesFollowThePosition) {
  const auto Board = [](const char* fenText) {
    TChessboard board;
    ClearChessboard(board);
    EXPECT_TRUE(fen::ReadFen(board, fenText));
    return board;
  };
  const struct {
    const char* fen;
    std::vector<std::string> texts;  // the passes after the forced-mate runs
  } cases[] = {
      {"8/8/8/3k4/8/8/8/K6R w - - 0 1",
       {"SH_DONTLOSEANYFIGURES (fallback: SH_DONTLETKINGMOVE)",
        "SH_DONTLOSEANYFIGURES (fallback: SH_KEEPKINGONTHEEDGE(STRICT))"}},
      {"7k/8/8/8/8/8/8/K6R w - - 0 1",
       {"SH_KEEPKINGONTHEEDGE(strict), SH_SAVEQUEEN/ROOK, SH_DONTLOSEANYFIGURES",
        "SH_KEEPKINGONTHEEDGE, SH_SAVEQUEEN/ROOK, SH_DONTLOSEANYFIGURES"}},
      {"8/8/8/8/8/8/ppQKPPP1/k7 w - - 0 1",
       {"SH_DONTLOSEANYFIGURES, SH_ASSERTBLACKKINGSURROUNDED, SH_DONTLETPROMOTEDFIGUREMOVE",
        "SH_ASSERTBLACKKINGSURROUNDED, SH_DONTLETPROMOTEDFIGUREMOVE"}},
      {"4k3/4p3/4B3/8/8/3p1K2/3B4/8 w - - 0 1",
       {"SH_AREKINGSNEAR, SH_DONTRECEDEBLACKKING, SH_DONTLOSEANYFIGURES",
        "SH_DONTRECEDEBLACKKING, SH_DONTLOSEANYFIGURES"}},
      {"2K5/2pp3k/8/4p3/8/8/B4q2/3Q4 w - - 0 1",
       {"SH_KEEPKINGONTHEEDGE(strict), SH_DONTLETFIGUREUNBLOCK, SH_SAVEQUEEN/ROOK, "
        "SH_DONTLETPROMOTEDFIGUREMOVE",
        "SH_KEEPKINGONTHEEDGE, SH_DONTLETFIGUREUNBLOCK, SH_SAVEQUEEN/ROOK, "
        "SH_DONTLETPROMOTEDFIGUREMOVE",
        "SH_KEEPKINGONTHEEDGE, SH_SAVEQUEEN/ROOK, SH_DONTLETPROMOTEDFIGUREMOVE"}},
      {"6k1/8/8/8/8/8/q7/K6R w - - 0 1",
       {"SH_KEEPKINGONTHEEDGE(strict), SH_SAVEQUEEN/ROOK, SH_DONTLOSEANYFIGURES "
        "(CannotApplyDLFUDynamically)",
        "SH_KEEPKINGONTHEEDGE, SH_SAVEQUEEN/ROOK, SH_DONTLOSEANYFIGURES"}},
  };
  for (const auto& c : cases) {
    const TChessboard board = Board(c.fen);
    const std::size_t nForced = heuristicplan::PatternPasses(board, 8).size() +
                                heuristicplan::ForcedMatePasses(board, 8).size();
    EXPECT_TRUE(
        heuristicplan::AutomaticPasses(board, heuristicplan::kMinMovesForHeuristics - 1).empty());
    for (const bool bDynamic : {true, false}) {
      const auto passes = heuristicplan::AutomaticPasses(board, 8, bDynamic);
      ASSERT_EQ(passes.size(), nForced + c.texts.size()) << c.fen;
      for (std::size_t i = 0; i < nForced; ++i) EXPECT_FALSE(passes[i].bDynamicDlfu);
      std::vector<std::string> texts;
      for (std::size_t i = nForced; i < passes.size(); ++i) {
        const bool bFirst = i == nForced;
        const bool bStatic = passes[i].Has(shbit::kDontLetFigureUnblock);
        const bool bRefused = passes[i].bCannotApplyDlfuDynamically;
        EXPECT_EQ(passes[i].bDynamicDlfu, bDynamic && bFirst && !bStatic && !bRefused) << c.fen;
        texts.push_back(heuristicset::Describe(passes[i]));
      }
      if (bDynamic) {
        EXPECT_EQ(texts, c.texts);
      }
    }
  }
}

// The narrow patterns go first, each with the one restriction that fits it.
TEST(HeuristicPlan, PatternPassesComeFirst) {
  const struct {
    const char* fen;
    int nMoves;
    std::vector<std::string> texts;
  } cases[] = {
      {"6k1/8/5Q2/8/8/8/3p1pp1/3Kbrrb w - - 0 1", 17, {"SH_SINGLEQUEENMATE"}},
      {"8/8/8/8/8/8/ppQKPPP1/k7 w - - 0 1", 12, {"SH_ZUGZWANG", "SH_SINGLEQUEENMATE"}},
      {"8/8/8/8/8/8/ppQKPPP1/k7 w - - 0 1", heuristicplan::kMinMovesForHeuristics - 1, {}},
      {"8/8/8/3k4/8/8/8/K6R w - - 0 1", 12, {}},
      {"8/3p4/8/2p1K3/8/2PPk2N/3pP3/3B4 w - - 0 1", 16, {"SH_ZUGZWANG"}},
  };
  for (const auto& c : cases) {
    TChessboard board;
    ClearChessboard(board);
    ASSERT_TRUE(fen::ReadFen(board, c.fen));
    std::vector<std::string> texts;
    for (const THeuristicSet& set : heuristicplan::PatternPasses(board, c.nMoves))
      texts.push_back(heuristicset::Describe(set));
    EXPECT_EQ(texts, c.texts) << c.fen;
    const auto passes = heuristicplan::AutomaticPasses(board, c.nMoves);
    for (std::size_t i = 0; i < texts.size() && i < passes.size(); ++i)
      EXPECT_EQ(heuristicset::Describe(passes[i]), texts[i]) << c.fen;
  }
}

}  // namespace
