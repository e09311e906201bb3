#include <gtest/gtest.h>

#include "core/Fen.h"
#include "engine/HeuristicChoice.h"
#include "engine/HeuristicPlan.h"

namespace {

// Hand-named sets: names of the catalogue, parameter words, and what cannot be read.
TEST(HeuristicChoice, NamedSetsReadAsWritten) {
  const struct {
    const char* text;
    const char* description;  // nullptr: automatic
    const char* error = "";
  } cases[] = {
      {"auto", nullptr},
      {"none", "(none)"},
      {"SH_FINDFORCEDMATE", "SH_FINDFORCEDMATE(CheckOnly-Custom)"},
      {"sh_findforcedmate(#1+)", "SH_FINDFORCEDMATE(#1+-Custom)"},
      {"SH_KEEPKINGONTHEEDGE(STRICT),SH_DONTLOSEANYFIGURES(incl.pawns)",
       "SH_KEEPKINGONTHEEDGE(STRICT), SH_DONTLOSEANYFIGURES(incl.pawns)"},
      {"SH_KEEPKINGONTHEEDGE(strict)", "SH_KEEPKINGONTHEEDGE(strict)"},
      {"SH_KEYWHITEFIGURE(c3)", "SH_KEYWHITEFIGURE(C3)"},
      {"SH_KEEPKINGNEARCORNER(3M)", "SH_KEEPKINGNEARCORNER(3M)"},
      {"SH_DONTLETKINGMOVE(excptns)", "SH_DONTLETKINGMOVE(excptns)"},
      {"SH_ONECOLORPLAYPOSSIBLE(blackfieldsonly)", "SH_ONECOLORPLAYPOSSIBLE(BlackFieldsOnly)"},
      {"SH_ONECOLORPLAYPOSSIBLE", "SH_ONECOLORPLAYPOSSIBLE(SeparatedBlackBishop)"},
      {"SH_ONECOLORPLAYPOSSIBLE(Grey)", "", "SH_ONECOLORPLAYPOSSIBLE(Grey)"},
      {"SH_NOSUCHTHING", "", "SH_NOSUCHTHING"},
      {"SH_FINDFORCEDMATE(#9x)", "", "SH_FINDFORCEDMATE(#9x)"},
      {"SH_AREKINGSNEAR,", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const heuristicchoice::TNamedSet named = heuristicchoice::ReadNamedSet(c.text);
    EXPECT_EQ(named.bAutomatic, c.description == nullptr);
    EXPECT_EQ(named.sError, c.error);
    if (c.description != nullptr && named.sError.empty() && *c.description != '\0') {
      EXPECT_EQ(heuristicset::Describe(named.set), c.description);
    }
  }
}

// The problem's settings: members with words start the path, "OFF" takes members out of the
// automatic passes, and a named set wins over both.
TEST(HeuristicChoice, ProblemSettingsShapeThePasses) {
  TChessboard board;
  ClearChessboard(board);
  ASSERT_TRUE(fen::ReadFen(board, "7k/8/8/8/8/8/8/K6R w - - 0 1"));
  const int kForced = 9, kEdge = 2;  // bit indexes of SH_FINDFORCEDMATE, SH_KEEPKINGONTHEEDGE
  const auto automatic = heuristicplan::AutomaticPasses(board, 10);
  EXPECT_EQ(heuristicchoice::PassesFor(board, 10, {}).size(), automatic.size());
  for (const THeuristicSet& set : heuristicchoice::PassesFor(board, 10, {{kForced, {"OFF"}}}))
    EXPECT_FALSE(set.Has(shbit::kFindForcedMate));
  const auto edge = heuristicchoice::PassesFor(board, 10, {{kEdge, {"STRICT"}}});
  ASSERT_FALSE(edge.empty());
  EXPECT_EQ(edge.front().mask, shbit::kKeepKingOnTheEdge);
  EXPECT_EQ(edge.front().edgeForm, EEdgeForm::kAllStrict);
  EXPECT_TRUE(heuristicchoice::PassesFor(board, 10, {{kEdge, {"STRICT"}}},
                                         heuristicchoice::ReadNamedSet("none"))
                  .empty());
}

}  // namespace
