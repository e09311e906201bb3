// The problem's sort indications in the search: which moves an element names, at which of
// White's moves it applies, the order of the first moves they give, and that the keys found
// never depend on them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "DirectMateRows.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "engine/MateSolver.h"
#include "engine/WhiteMoveHints.h"

namespace {

using matetest::Board;
using matetest::Texts;

// S. Loyd 1859, #2, the one key Qh5-a5.
constexpr const char* kLoyd = "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8";

// Makes the move text in board into child; false when the side to move has no such move.
bool Make(const TChessboard& board, const std::string& text, TChessboard& child) {
  const TMove wanted = notation::FullDescriptionToMove(text, board.IsWhiteToMove());
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateAllMoves(board, moves);
  for (int i = 0; i < n; ++i) {
    if (!moves[i].SameMove(wanted)) continue;
    child = board;
    child.parent = &board;
    return (board.IsWhiteToMove() ? movemaking::MakeWhiteMove(child, moves[i])
                                  : movemaking::MakeBlackMove(child, moves[i])) > 0;
  }
  return false;
}

TEST(WhiteMoveHints, EveryFieldAnElementGivesMustHold) {
  // Black has just played d7-d5, so e5:d6 takes en passant; castling both ways is open.
  constexpr const char* kOpen = "4k3/1P1p4/8/4P3/8/3Q4/8/R3K2R";
  // Ne6-g7 and Ne6-c7 check twice (knight and rook), Ne6-d8 once (the rook only).
  constexpr const char* kDouble = "4k3/8/4N3/8/8/8/8/K3R3";
  const struct {
    const char* fen;
    const char* element;
    const char* move;
    bool bMatches;
  } cases[] = {
      {kOpen, "d6", "e5-d6", true},       {kOpen, "e5:d6", "e5-d6", true},
      {kOpen, "e5>d6", "e5-d6", false},   {kOpen, "e5-d6", "e5-d6", true},
      {kOpen, "e4-d6", "e5-d6", false},   {kOpen, "Qd5", "Qd3-d5", true},
      {kOpen, "Rd5", "Qd3-d5", false},    {kOpen, "Q:d5", "Qd3-d5", true},
      {kOpen, "d3>d5", "Qd3-d5", false},  {kOpen, "b8", "b7-b8Q", true},
      {kOpen, "b8N", "b7-b8Q", false},    {kOpen, "b8N", "b7-b8N", true},
      {kOpen, "b8Q+", "b7-b8Q", true},    {kOpen, "b8B+", "b7-b8B", false},
      {kOpen, "0-0", "0-0", true},        {kOpen, "0-0", "0-0-0", false},
      {kOpen, "0-0-0", "0-0-0", true},    {kOpen, "a1>d1", "Ra1-d1", true},
      {kOpen, "a1:d1", "Ra1-d1", false},  {kOpen, "~Ra1-d1", "Ra1-d1", true},
      {kDouble, "g7++", "Ne6-g7", true},  {kDouble, "c7++", "Ne6-c7", true},
      {kDouble, "d8++", "Ne6-d8", false}, {kDouble, "d8+", "Ne6-d8", true},
      {kDouble, "b1+", "Ka1-b1", false},  {kDouble, "Kb1", "Ka1-b1", true},
  };
  TChessboard open = Board(kOpen, 4), afterD5;
  open.squares[51] = piece::kBlackPawn;  // d7, Black to move
  ASSERT_TRUE(Make(open, "d7-d5", afterD5));
  const TChessboard doubleCheck = Board(kDouble, 3);
  for (const auto& c : cases) {
    const TChessboard& board = c.fen == kOpen ? afterD5 : doubleCheck;
    TChessboard child;
    ASSERT_TRUE(Make(board, c.move, child)) << c.move;
    EXPECT_EQ(
        CWhiteMoveHints::Matches(sortindication::Parse(c.element), board, child.lastMove, child),
        c.bMatches)
        << c.element << " for " << c.move;
  }
}

TEST(WhiteMoveHints, MoveNumberIsCountedAlongTheLine) {
  const struct {
    const char* indications;
    std::uint16_t atKey, atSecondMove;
  } cases[] = {
      {"1. e2-e4", 1, 0},
      {"2. e2-e4", 0, 2},
      {"1. e2-e4, 3. e2-e4", 1, 0},
      {"e2-e4", 1, 1},  // elements for any move: every move counts as the first beyond none
      {"~e2-e4, 2. e2-e4", 1, 2},
  };
  const TChessboard root = Board(kLoyd, 5);  // as a #3
  TChessboard afterKey, second;
  ASSERT_TRUE(Make(root, "Qh5-a5", afterKey));
  ASSERT_TRUE(Make(afterKey, "Rd8-d5", second));
  TChessboard shallower = second;  // the same position searched for a shorter mate
  shallower.ply = 1;
  for (const auto& c : cases) {
    const CWhiteMoveHints hints(sortindication::ParseList(c.indications));
    EXPECT_EQ(hints.MoveNumberAt(root), c.atKey) << c.indications;
    EXPECT_EQ(hints.MoveNumberAt(second), c.atSecondMove) << c.indications;
    EXPECT_EQ(hints.MoveNumberAt(shallower), c.atSecondMove) << c.indications;
  }
}

TEST(WhiteMoveHints, FirstMovesFollowTheIndications) {
  const struct {
    const char* indications;
    std::vector<std::string> first, last;
  } cases[] = {
      // Numbered elements come before those for any move, each in the order given.
      {"Kg3-h4, 1. Ne3-c4, 1. Qh5-h8", {"Ne3-c4", "Qh5-h8", "Kg3-h4"}, {}},
      // One element naming two moves: the search's own order (checks first) between them.
      {"d5", {"Qh5-d5", "Ne3-d5"}, {}},
      // Unwanted moves go last, even when a wanted element names them too.
      {"~Qh5-a5, Qh5-a5, Qh5-h8", {"Qh5-h8"}, {"Qh5-a5"}},
      {"~Kg3-h2, ~e3-g2", {}, {"Ne3-g2", "Kg3-h2"}},
      // An element for another move number changes nothing here.
      {"2. Qh5-h8", {}, {}},
  };
  const TChessboard root = Board(kLoyd, 3);
  TChessboardRegister<bool> reg(1000);
  const std::vector<TMove> plain = CMateSolver(root, 2, {.pRegister = &reg}).Root().FirstMoves();
  for (const auto& c : cases) {
    const TSortIndications indications = sortindication::ParseList(c.indications);
    const CMateSolver solver(root, 2, {.pRegister = &reg, .sortIndications = indications});
    const std::vector<std::string> order = Texts(root, solver.Root().FirstMoves());
    ASSERT_EQ(order.size(), plain.size()) << c.indications;
    EXPECT_TRUE(std::equal(c.first.begin(), c.first.end(), order.begin())) << c.indications;
    EXPECT_TRUE(std::equal(c.last.rbegin(), c.last.rend(), order.rbegin())) << c.indications;
    if (c.first.empty() && c.last.empty()) {
      EXPECT_EQ(order, Texts(root, plain)) << c.indications;
    }
  }
}

// The published keys, and nothing else, however the indications order the moves: at the
// first move only, or at every White move of the tree, with 1 and 2 threads.
TEST(WhiteMoveHints, KeysDoNotDependOnTheOrder) {
  int nSolved = 0;
  for (const auto& row : matetest::QuickRows(0.2)) {
    const std::vector<std::string> published = matetest::PublishedKeys(row);
    if (published.empty()) continue;
    const TChessboard root = matetest::Root(row);
    for (const std::string& indications : {"~1. " + published.front(), "~" + published.front()}) {
      for (int nThreads : {1, 2}) {
        TChessboardRegister<bool> reg(1'000'000);
        CMateSolver solver(root, matetest::Moves(row),
                           {.nThreads = nThreads,
                            .nMaxSolutions = 0,
                            .pRegister = &reg,
                            .sortIndications = sortindication::ParseList(indications)});
        const std::string where = row.at("id") + " with " + indications;
        EXPECT_EQ(Texts(root, solver.Root().FirstMoves()).back(), published.front()) << where;
        EXPECT_EQ(Texts(root, solver.Run().keys, true), published)
            << where << ", " << nThreads << " threads";
      }
    }
    ++nSolved;
  }
  EXPECT_GE(nSolved, 20);
}

}  // namespace
