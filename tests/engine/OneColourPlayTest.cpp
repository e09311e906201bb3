#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "HeuristicLine.h"
#include "core/MoveMaking.h"
#include "engine/HeuristicRules.h"
#include "engine/MateSearch.h"
#include "engine/OneColourPlay.h"

namespace {

using heuristictest::CLine;

THeuristicSet OneColour(EOneColour form = EOneColour::kBishopColour) {
  THeuristicSet set = heuristictest::Set(shbit::kOneColorPlay);
  set.oneColour = form;
  return set;
}

// board marked as a position of the reduced game in which White keeps to the light squares.
TChessboard ReducedLight(const TChessboard& board) {
  TChessboard reduced = board;
  reduced.searchFlags |= onecolour::kReducedFlag | onecolour::kLightFlag;
  return reduced;
}

SquareIndex Square(const char* text) {
  return static_cast<SquareIndex>((text[0] - 'a') + 8 * (text[1] - '1'));
}

// The forms pick their squares, or none when the bishops do not fit.
TEST(OneColourPlay, ColourOfEachForm) {
  const char* kLightWhiteBishop = "5bk1/8/8/8/8/3B4/8/2K5 w - - 0 1";
  const char* kDarkWhiteBishop = "4b1k1/8/8/8/8/2B5/8/2K5 w - - 0 1";
  const struct {
    const char* fen;
    EOneColour form;
    int expected;  // 1 light, 0 dark, -1 none
  } cases[] = {
      {kLightWhiteBishop, EOneColour::kBishopColour, 1},
      {kLightWhiteBishop, EOneColour::kDarkSquares, -1},
      {kDarkWhiteBishop, EOneColour::kBishopColour, 0},
      {kDarkWhiteBishop, EOneColour::kLightSquares, -1},
      {"4bnk1/8/8/8/8/2B5/8/2K5 w - - 0 1", EOneColour::kBishopColour, -1},
      {"6k1/5b2/8/8/8/3B4/8/2K5 w - - 0 1", EOneColour::kBishopColour, -1},
      {"5bk1/8/8/8/8/3B4/8/R1K5 w - - 0 1", EOneColour::kBishopColour, -1},
  };
  for (const auto& c : cases) {
    CLine line(c.fen);
    const std::optional<bool> colour = onecolour::PlayColour(line.Root(), c.form);
    EXPECT_EQ(colour ? (*colour ? 1 : 0) : -1, c.expected)
        << c.fen << " " << heuristicset::OneColourWord(c.form);
  }
}

// White's moves through the rules' hook: off the colour they are left out, and in the
// reduced game also the double steps and the new queens that would cross the other colour.
TEST(OneColourPlay, WhiteMovesKeepToTheColour) {
  const char* kBishops = "5bk1/8/8/8/8/3B4/4P3/2K5 w - - 0 1";
  const char* kPromotion = "2n4k/1P6/8/8/8/8/8/5K2 w - - 0 1";
  const struct {
    const char* what;
    const char* fen;
    const char* move;
    PieceCode promotion;
    bool bReduced;
    std::uint32_t expected;
  } cases[] = {
      {"the king along them", kBishops, "c1d1", 0, false, 0},
      {"the king off them", kBishops, "c1d2", 0, false, shbit::kOneColorPlay},
      {"a double step", kBishops, "e2e4", 0, false, 0},
      {"reduced: a double step", kBishops, "e2e4", 0, true, shbit::kOneColorPlay},
      {"reduced: the bishop", kBishops, "d3a6", 0, true, 0},
      {"reduced: a new queen", kPromotion, "b7c8", piece::kQueen, true, shbit::kOneColorPlay},
      {"reduced: a new bishop", kPromotion, "b7c8", piece::kBishop, true, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    CLine line(c.fen);
    const TChessboard before = c.bReduced ? ReducedLight(line.Root()) : line.Root();
    TChessboard after;
    ASSERT_TRUE(movemaking::MakeSuccessor(
        before, TMove{Square(c.move), Square(c.move + 2), c.promotion, 0}, after));
    EXPECT_EQ(heuristicrules::WhiteMoveBreaks(after, THeuristicContext(OneColour(), before)),
              c.expected);
  }
}

// Where Black may pass: every white piece on its colour, a bishop that can move, no check.
TEST(OneColourPlay, WhereBlackMayPass) {
  const struct {
    const char* what;
    const char* fen;  // Black to move
    bool bReduced;
    bool bExpected;
  } cases[] = {
      {"all on the colour", "8/8/8/8/8/3B4/7p/2b2K1k b - - 0 1", false, true},
      {"a pawn on the other colour", "8/8/8/8/8/3B4/1P5p/2b2K1k b - - 0 1", false, false},
      {"the bishop shut in", "8/8/8/8/8/3B4/1p5p/b4K1k b - - 0 1", false, false},
      {"in check", "8/8/8/8/4B3/8/7p/2b2K1k b - - 0 1", false, false},
      {"reduced already", "8/8/8/8/8/3B4/7p/5K1k b - - 0 1", true, true},
  };
  for (const auto& c : cases) {
    CLine line(c.fen);
    const TChessboard board = c.bReduced ? ReducedLight(line.Root()) : line.Root();
    EXPECT_EQ(onecolour::MayPass(board, EOneColour::kBishopColour), c.bExpected) << c.what;
  }
}

// A real bishop could stalemate Black only by blocking every move Black has left.
TEST(OneColourPlay, StalemateByTheBishopIsFeared) {
  const struct {
    const char* what;
    const char* fen;  // Black to move; the bishop's squares are the dark ones
    bool bExpected;
  } cases[] = {
      {"no move at all", "8/8/8/8/8/8/7p/5K1k b - - 0 1", true},
      {"one step to a dark square", "8/8/8/8/8/8/8/5K1k b - - 0 1", true},
      {"steps to two squares", "8/8/8/8/8/8/8/4K2k b - - 0 1", false},
      {"a pawn's steps through one dark square", "8/1p6/8/8/8/8/7p/5K1k b - - 0 1", true},
      {"a capture", "8/1p6/B7/8/8/8/7p/5K1k b - - 0 1", false},
  };
  for (const auto& c : cases) {
    CLine line(c.fen);
    EXPECT_EQ(onecolour::MayBeRealStalemate(ReducedLight(line.Root())), c.bExpected) << c.what;
  }
}

// The search mates through the pass with fewer positions, and the pass's failure is a doubt,
// never "no mate".
TEST(OneColourPlay, SearchPassesForTheBishop) {
  const auto Search = [](const char* fenText, bool bHeuristics, std::uint64_t& nPositions,
                         std::uint32_t& reason) {
    CLine line(fenText, 2);
    SearchContext context;
    if (bHeuristics) context.heuristics = THeuristicContext(OneColour(), line.Root());
    CMateSearch search(context, line.Root().ply);
    const MateResult result = search.FindMate(line.Root());
    nPositions = search.Positions();
    reason = context.doubtfulReason.load();
    return result;
  };
  const char* kMated = "8/8/8/8/8/3B4/7p/2b2K1k b - - 0 1";
  const char* kFlight = "8/8/8/8/8/3B4/8/2b2K1k b - - 0 1";
  std::uint64_t nReduced = 0, nFull = 0;
  std::uint32_t reason = 0;
  EXPECT_EQ(Search(kMated, true, nReduced, reason), mate::kMate);
  EXPECT_EQ(Search(kMated, false, nFull, reason), mate::kMate);
  EXPECT_LT(nReduced, nFull);
  EXPECT_EQ(Search(kFlight, false, nFull, reason), mate::kNoMate);
  EXPECT_EQ(Search(kFlight, true, nReduced, reason), mate::kDoubtful);
  EXPECT_EQ(reason, shbit::kOneColorPlay);
}

}  // namespace
