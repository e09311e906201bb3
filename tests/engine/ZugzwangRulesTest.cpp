#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HeuristicLine.h"
#include "engine/HeuristicRules.h"
#include "engine/ZugzwangRules.h"

namespace {

using heuristictest::CLine;
using heuristictest::Set;

struct TMoveCase {
  const char* what;
  const char* fen;  // White to move
  std::vector<std::string> moves;
  THeuristicSet set;
  std::uint32_t expected;
};

// The last White move of each line, through the hook the search calls: each restriction
// leaves out the moves that leave its pattern and keeps the others.
TEST(ZugzwangRules, WhiteMovesThatLeaveThePattern) {
  const char* kRookInside = "B7/8/2p5/2P1R3/2p5/p1Pp1p2/p2K1P2/k7 w - - 0 1";
  const char* kRookOnEdge = "B3R3/8/2p1p3/2P5/2p5/p1Pp1p2/p2K1P2/k7 w - - 0 1";
  const char* kPendulum = "6k1/6pp/3K4/8/8/8/8/8 w - - 0 1";
  const char* kNoPendulum = "6k1/7p/3K4/8/8/8/8/8 w - - 0 1";
  const char* kSnake = "8/6p1/6p1/2N3p1/1p4p1/bP4p1/5pPk/1K3B1n w - - 0 1";
  const THeuristicSet sweep = Set(shbit::kSweepingWhiteRook);
  const THeuristicSet triangle = Set(shbit::kZugzwangTriangles);
  const THeuristicSet snake = Set(shbit::kSeaSnake);
  const TMoveCase cases[] = {
      {"rook: to the edge", kRookInside, {"e5e8"}, sweep, 0},
      {"rook: off the edge", kRookOnEdge, {"e8e7"}, sweep, shbit::kSweepingWhiteRook},
      {"rook: off the edge to capture", kRookOnEdge, {"e8e6"}, sweep, 0},
      {"triangle: back next to the old square", kPendulum, {"d6e7", "g8h8", "e7e6"}, triangle, 0},
      {"triangle: away from it",
       kPendulum,
       {"d6e7", "g8h8", "e7e8"},
       triangle,
       shbit::kZugzwangTriangles},
      {"triangle: no pendulum left", kNoPendulum, {"d6e7", "g8h8", "e7e8"}, triangle, 0},
      {"triangle: other pieces move freely",
       "6k1/6pp/3K4/8/8/8/8/R7 w - - 0 1",
       {"d6e7", "g8h8", "a1a5"},
       triangle,
       0},
      {"snake: Black stays tied", kSnake, {"c5e4"}, snake, 0},
      {"snake: the bishop frees the pawn", kSnake, {"f1e2"}, snake, shbit::kSeaSnake},
  };
  for (const TMoveCase& c : cases) {
    SCOPED_TRACE(c.what);
    CLine line(c.fen, 10);
    const TChessboard& after = line.Play(c.moves);
    EXPECT_EQ(heuristicrules::WhiteMoveBreaks(after, THeuristicContext(c.set, line.Root())),
              c.expected);
  }
}

// The pattern tests the automatic choice relies on, each on a position of its type and on
// one that only looks like it.
TEST(ZugzwangRules, PatternsRecogniseTheirPositions) {
  const struct {
    const char* what;
    const char* fen;
    bool (*pattern)(const TChessboard&);
    bool bExpected;
  } cases[] = {
      {"rook against a king shut in by pawns", "B7/8/2p5/2P1R3/2p5/p1Pp1p2/p2K1P2/k7 w - - 0 1",
       zugzwangrules::SweepingRookPattern, true},
      {"rook against a free king", "8/8/8/3k4/8/8/8/K6R w - - 0 1",
       zugzwangrules::SweepingRookPattern, false},
      {"a black piece besides the pawns", "B7/8/2p5/2P1R3/2p5/p1Pp1p2/p2K1P2/k6n w - - 0 1",
       zugzwangrules::SweepingRookPattern, false},
      {"a king with one square", "7k/6pp/4K3/8/8/8/8/8 w - - 0 1", zugzwangrules::PendulumPattern,
       true},
      {"a king with two squares", "7k/7p/4K3/8/8/8/8/8 w - - 0 1", zugzwangrules::PendulumPattern,
       false},
      {"a knight with one square besides free pawns", "7k/5Kpp/8/8/8/1p6/p7/n7 w - - 0 1",
       zugzwangrules::PendulumPattern, true},
      {"tied pawns and pieces", "8/6p1/6p1/2N3p1/1p4p1/bP4p1/5pPk/1K3B1n w - - 0 1",
       zugzwangrules::SeaSnakePattern, true},
      {"the same men set free", "8/6p1/6p1/2N3p1/1p4p1/bP6/5pPk/1K5n w - - 0 1",
       zugzwangrules::SeaSnakePattern, false},
  };
  for (const auto& c : cases) {
    CLine line(c.fen);
    EXPECT_EQ(c.pattern(line.Root()), c.bExpected) << c.what;
  }
}

}  // namespace
