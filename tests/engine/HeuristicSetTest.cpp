#include <gtest/gtest.h>

#include <algorithm>

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
  };
  for (const auto& c : cases) EXPECT_EQ(heuristicset::Describe(c.set), c.text);
}

// Sets that restrict differently never share a parameters word.
TEST(HeuristicSet, ParamsTellSetsApart) {
  THeuristicSet a = Set(shbit::kFindForcedMate), b = a;
  b.forcedMateMode = EForcedMateMode::kMateIn1;
  THeuristicSet c = Set(shbit::kKeepKingNearCorner), d = c;
  d.bCornerInKingMoves = true;
  EXPECT_NE(a.Params(), b.Params());
  EXPECT_NE(c.Params(), d.Params());
  THeuristicSet e = Set(shbit::kOneColorPlay), f = e;
  f.oneColour = EOneColour::kDarkSquares;
  EXPECT_NE(e.Params(), f.Params());
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

// The automatic choice: nothing for short problems, the edge passes only where the king is.
TEST(HeuristicPlan, AutomaticPassesFollowThePosition) {
  const auto Passes = [](const char* fenText, int nMoves) {
    TChessboard board;
    ClearChessboard(board);
    EXPECT_TRUE(fen::ReadFen(board, fenText));
    return heuristicplan::AutomaticPasses(board, nMoves);
  };
  const char* kEdge = "7k/8/8/8/8/8/8/K6R w - - 0 1";
  const char* kCentre = "8/8/8/3k4/8/8/8/K6R w - - 0 1";
  EXPECT_TRUE(Passes(kEdge, heuristicplan::kMinMovesForHeuristics - 1).empty());
  const auto edge = Passes(kEdge, 8), centre = Passes(kCentre, 8);
  ASSERT_FALSE(centre.empty());
  EXPECT_GT(edge.size(), centre.size());
  for (const auto& set : centre) EXPECT_TRUE(set.Has(shbit::kFindForcedMate));
  EXPECT_TRUE(std::any_of(edge.begin(), edge.end(),
                          [](const auto& set) { return set.Has(shbit::kKeepKingOnTheEdge); }));
}

}  // namespace
