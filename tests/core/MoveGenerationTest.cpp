#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "FenBoard.h"
#include "LinePosition.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "core/Perft.h"

namespace {

bool HasMove(const TChessboard& board, const std::string& move) {
  const auto moves = MoveTexts(board, true);
  return std::find(moves.begin(), moves.end(), move) != moves.end();
}

struct TRuleCase {
  const char* name;
  const char* fen;
  std::vector<std::string> line;  // moves made first, from the FEN's side to move
  const char* move;               // the move in question, for the side to move then
  bool bExpected;
};

class MoveRules : public testing::TestWithParam<TRuleCase> {};

TEST_P(MoveRules, MoveIsGeneratedOnlyWhenTheRulesAllowIt) {
  const TRuleCase& c = GetParam();
  CLinePosition position(c.fen);
  const TChessboard& board = position.Play(c.line);
  EXPECT_EQ(HasMove(board, c.move), c.bExpected) << c.name;
}

const TRuleCase kRuleCases[] = {
    {"short castling", "3k4/8/8/8/8/8/8/R3K2R w KQ - 0 1", {}, "e1g1", true},
    {"long castling", "3k4/8/8/8/8/8/8/R3K2R w KQ - 0 1", {}, "e1c1", true},
    {"castling field cannot forbid", "3k4/8/8/8/8/8/8/R3K2R w - - 0 1", {}, "e1g1", true},
    {"castling field cannot allow", "3k4/8/8/8/8/8/8/R3K1R1 w KQ - 0 1", {}, "e1g1", false},
    {"black long castling", "r3k2r/8/8/8/8/8/8/1K6 b kq - 0 1", {}, "e8c8", true},
    {"through check", "3k1r2/8/8/8/8/8/8/R3K2R w - - 0 1", {}, "e1g1", false},
    {"into check", "3k2r1/8/8/8/8/8/8/R3K2R w - - 0 1", {}, "e1g1", false},
    {"b1 attacked allows long", "1r1k4/8/8/8/8/8/8/R3K2R w - - 0 1", {}, "e1c1", true},
    {"d1 attacked forbids long", "3r2k1/8/8/8/8/8/8/R3K2R w - - 0 1", {}, "e1c1", false},
    {"in check", "1k2r3/8/8/8/8/8/8/R3K2R w - - 0 1", {}, "e1g1", false},
    {"blocked", "3k4/8/8/8/8/8/8/R3KB1R w - - 0 1", {}, "e1g1", false},
    {"black short castling", "r3k2r/8/8/8/8/8/8/1K6 b - - 0 1", {}, "e8g8", true},
    {"king walked away and back",
     "3k4/8/8/8/8/8/8/R3K2R w - - 0 1",
     {"e1f1", "d8c8", "f1e1", "c8d8"},
     "e1g1",
     false},
    {"rook walked away and back",
     "3k4/8/8/8/8/8/8/R3K2R w - - 0 1",
     {"h1h2", "d8c8", "h2h1", "c8d8"},
     "e1g1",
     false},
    {"other rook still may castle",
     "3k4/8/8/8/8/8/8/R3K2R w - - 0 1",
     {"h1h2", "d8c8", "h2h1", "c8d8"},
     "e1c1",
     true},
    {"rook captured on its corner",
     "3k4/8/8/8/8/7R/6b1/R3K2R b - - 0 1",
     {"g2h1", "h3h2", "h1c6", "h2h1", "d8c8"},
     "e1g1",
     false},
    {"en passant never on first move", "k7/8/8/3pP3/8/8/8/K7 w - d6 0 1", {}, "e5d6", false},
    {"en passant after double step", "k7/3p4/8/4P3/8/8/8/K7 b - - 0 1", {"d7d5"}, "e5d6", true},
    {"en passant only at once",
     "k7/3p4/8/4P3/8/8/8/K7 b - - 0 1",
     {"d7d5", "a1a2", "a8b8"},
     "e5d6",
     false},
    {"no en passant after single steps",
     "k7/8/3p4/4P3/8/8/8/K7 b - - 0 1",
     {"d6d5"},
     "e5d6",
     false},
    {"en passant uncovering rank check",
     "8/3p4/8/K3P2r/8/8/8/7k b - - 0 1",
     {"d7d5"},
     "e5d6",
     false},
    {"black en passant", "k7/8/8/8/4p3/8/3P4/K7 w - - 0 1", {"d2d4"}, "e4d3", true},
    {"pinned knight", "k3r3/8/8/8/8/8/4N3/4K3 w - - 0 1", {}, "e2c3", false},
    {"pinned rook along the pin", "k3r3/8/8/8/8/8/4R3/4K3 w - - 0 1", {}, "e2e8", true},
    {"king cannot approach king", "8/8/8/3k4/8/3K4/8/8 w - - 0 1", {}, "d3d4", false},
    {"king cannot take defended", "8/8/8/3k4/3p4/3K4/8/8 w - - 0 1", {}, "d3d4", false},
    {"double check: no capture", "4k3/8/8/1B6/8/8/8/r3R1K1 b - - 0 1", {}, "a1e1", false},
};

INSTANTIATE_TEST_SUITE_P(Rules, MoveRules, testing::ValuesIn(kRuleCases));

TEST(MoveOrder, FollowsTheFixedGenerationOrders) {
  const struct {
    const char* fen;
    std::vector<std::string> expected;
  } cases[] = {
      // The king on a1 comes first (square order); its steps go up first. Rook rays: up, down,
      // right, left.
      {"k7/8/8/8/8/8/1p6/KR6 w - - 0 1",
       {"a1a2", "a1b2", "b1b2", "b1c1", "b1d1", "b1e1", "b1f1", "b1g1", "b1h1"}},
      // Knight: file -1 (rank -2, +2), file -2, file +1, file +2.
      {"k7/8/8/8/8/8/8/K5N1 w - - 0 1", {"a1a2", "a1b2", "a1b1", "g1f3", "g1e2", "g1h3"}},
      // Promotions Q R B N: the step first, then the capture towards the higher file.
      {"1n5k/P7/8/8/8/8/8/K7 w - - 0 1",
       {"a1a2", "a1b2", "a1b1", "a7a8q", "a7a8r", "a7a8b", "a7a8n", "a7b8q", "a7b8r", "a7b8b",
        "a7b8n"}},
  };
  for (const auto& c : cases) {
    CLinePosition position(c.fen);
    auto moves = MoveTexts(position.Root(), false);
    EXPECT_EQ(moves, c.expected) << c.fen;
  }
}

TEST(MoveOrder, BlackKingStepsBelowThenAboveThenBeside) {
  CLinePosition position("8/8/8/4k3/8/8/8/K7 b - - 0 1");
  EXPECT_EQ(
      MoveTexts(position.Root(), false),
      (std::vector<std::string>{"e5e4", "e5d4", "e5f4", "e5e6", "e5d6", "e5f6", "e5d5", "e5f5"}));
}

// The evasions as "e8d8"-style texts, in generation order.
std::vector<std::string> EvasionTexts(const TChessboard& board) {
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateEvasions(board, moves);
  std::vector<std::string> texts;
  for (int i = 0; i < n; ++i) texts.push_back(FromTo(moves[i]));
  return texts;
}

TEST(Evasions, KeepKingStepsAndOnlyTheMovesThatMeetASingleCheck) {
  const struct {
    const char* fen;
    std::vector<std::string> expected;
  } cases[] = {
      // Bishop b5 and rook e1 both check: the rook a1 that could take e1 must stay, only the
      // king's pseudo-legal steps remain.
      {"4k3/8/8/1B6/8/8/8/r3R1K1 b - - 0 1", {"e8e7", "e8d7", "e8f7", "e8d8", "e8f8"}},
      // The rook e1 alone checks: taking it and blocking the file are kept, a1-b1 is not.
      {"4k3/8/8/8/8/8/8/r3R1K1 b - - 0 1", {"a1e1", "e8e7", "e8d7", "e8f7", "e8d8", "e8f8"}},
  };
  for (const auto& c : cases) {
    CLinePosition position(c.fen);
    EXPECT_EQ(EvasionTexts(position.Root()), c.expected) << c.fen;
  }
}

TEST(MoveMaking, KeepsDerivedFieldsLikeAFreshAnalysis) {
  // Castling, en passant, promotion with capture, discovered and double checks.
  CLinePosition position("r3k2r/3p4/8/4P3/8/8/1p4B1/R3K2R w - - 0 1");
  const TChessboard& after = position.Play({"e1g1", "d7d5", "e5d6", "b2a1q", "g2f3", "e8c8"});
  EXPECT_TRUE(IsConsistent(after));
  EXPECT_EQ(fen::WriteShortFen(after), "2kr3r/8/3P4/8/8/5B2/8/q4RK1");
}

TEST(MoveMaking, ConsistencyCheckSeesEveryDamagedField) {
  const TChessboard good = ReadBoard("4k3/8/8/8/8/8/4R3/B3K1N1");
  ASSERT_TRUE(IsConsistent(good));
  const struct {
    const char* name;
    void (*damage)(TChessboard&);
  } cases[] = {
      {"king square", [](TChessboard& b) { b.whiteKingFile = 3; }},
      {"check value", [](TChessboard& b) { b.blackKingCheck = 52; }},
      {"piece count", [](TChessboard& b) { ++b.nPieces[kWhiteRooks]; }},
      {"simple material", [](TChessboard& b) { b.bSimpleWhiteMaterial = 0; }},
      {"rook slot", [](TChessboard& b) { b.whiteRookSquares[0] = 13; }},
      {"bishop slot", [](TChessboard& b) { b.whiteBishopSquares[1] = 9; }},
      {"knight slot", [](TChessboard& b) { b.whiteKnightSquares[0] = square::kNone; }},
      {"squares", [](TChessboard& b) { b.squares[square::kE1] = piece::kEmpty; }},
  };
  for (const auto& c : cases) {
    TChessboard board = good;
    c.damage(board);
    EXPECT_FALSE(IsConsistent(board)) << c.name;
  }
}

TEST(MoveMaking, NoMoveAtPlyZeroNorWithTheKingNotToMoveInCheck) {
  TChessboard successor;
  TChessboard board = ReadBoard("k7/8/8/8/8/8/8/K6R");
  ASSERT_TRUE(movemaking::IsMoveValid(board, M("h1h2").Code(), successor));
  board.ply = 0;
  EXPECT_FALSE(movemaking::IsMoveValid(board, M("h1h2").Code(), successor));
  // Black to move while White's king is attacked: the rook could take it.
  const TChessboard over = ReadBoard("k7/8/8/8/8/8/8/K6r", 2);
  EXPECT_FALSE(movemaking::IsMoveValid(over, M("h1a1").Code(), successor));
  EXPECT_FALSE(movemaking::IsMoveValid(over, M("a8b8").Code(), successor));
  EXPECT_THROW(perft::CPerftPosition("k7/8/8/8/8/8/8/K6r b - - 0 1", 1), ChessException);
}

}  // namespace
