// The short notation other programs write: the texts of typical moves, and for every legal move
// of the reference positions a text that reads back as that move and as no other.
#include <gtest/gtest.h>

#include <set>

#include "FenBoard.h"
#include "TestData.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "core/ShortAlgebraic.h"

namespace {

TMove Squares(const std::string& from, const std::string& to, PieceCode promotion = 0) {
  auto index = [](const std::string& s) { return square::Make(s[0] - 'a', s[1] - '1'); };
  return TMove{index(from), index(to), promotion, 0};
}

struct TCase {
  const char* fen;
  TMove move;
  const char* text;
};

TEST(ShortAlgebraic, TypicalMoves) {
  const TCase cases[] = {
      {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", Squares("g1", "f3"), "Nf3"},
      {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", Squares("e2", "e4"), "e4"},
      {"r3k2r/8/8/8/8/8/8/R3K2R", Squares("e1", "g1"), "O-O"},
      {"r3k2r/8/8/8/8/8/8/R3K2R", Squares("e1", "c1"), "O-O-O"},
      {"k7/8/8/8/8/8/8/1N3N1K", Squares("b1", "d2"), "Nbd2"},
      {"7k/8/8/R7/8/8/8/R5K1", Squares("a1", "a3"), "R1a3"},
      {"8/8/6k1/8/8/Q7/8/Q1Q4K", Squares("a1", "b2"), "Qa1b2"},
      {"3r3k/4P3/8/8/8/8/8/K7", Squares("e7", "d8", piece::kQueen), "exd8=Q+"},
      {"3r3k/4P3/8/8/8/8/8/K7", Squares("e7", "e8", piece::kKnight), "e8=N"},
      {"6k1/5ppp/8/8/8/8/8/R5K1", Squares("a1", "a8"), "Ra8#"},
      {"6k1/5ppp/8/8/8/8/r7/R5K1", Squares("a1", "a2"), "Rxa2"},
  };
  for (const TCase& c : cases) {
    const TChessboard board = ReadBoard(c.fen);
    TMove generated;
    ASSERT_TRUE(movegen::FindPieceMove(board, c.move, &generated)) << c.fen << " " << c.text;
    EXPECT_EQ(shortalgebraic::MoveToText(board, generated), c.text) << c.fen;
    const auto back = shortalgebraic::TextToMove(board, c.text);
    ASSERT_TRUE(back.has_value()) << c.text;
    EXPECT_TRUE(back->SameMove(c.move)) << c.text;
  }
}

TEST(ShortAlgebraic, OtherProgramsSpellings) {
  const TChessboard start = ReadBoard("r3k2r/1P6/8/8/8/8/8/R3K2R");
  const struct {
    const char* text;
    TMove move;
  } spellings[] = {
      {"0-0", Squares("e1", "g1")},
      {"O-O-O+", Squares("e1", "c1")},
      {"b8Q", Squares("b7", "b8", piece::kQueen)},
      {"bxa8=R!?", Squares("b7", "a8", piece::kRook)},
      {"Ra1-a7", Squares("a1", "a7")},
      {"Rh1h7", Squares("h1", "h7")},
  };
  for (const auto& spelling : spellings) {
    const auto move = shortalgebraic::TextToMove(start, spelling.text);
    ASSERT_TRUE(move.has_value()) << spelling.text;
    EXPECT_TRUE(move->SameMove(spelling.move)) << spelling.text;
  }
  // Not a move here, ambiguous, or no move at all.
  const struct {
    const char* fen;
    const char* text;
  } refused[] = {{"r3k2r/1P6/8/8/8/8/8/R3K2R", "Nf3"}, {"r3k2r/1P6/8/8/8/8/8/R3K2R", "b8"},
                 {"r3k2r/1P6/8/8/8/8/8/R3K2R", ""},    {"r3k2r/1P6/8/8/8/8/8/R3K2R", "+"},
                 {"k7/8/8/8/8/8/8/1N3N1K", "Nd2"},     {"k7/8/8/8/8/8/8/1N3N1K", "Nc4"}};
  for (const auto& r : refused)
    EXPECT_FALSE(shortalgebraic::TextToMove(ReadBoard(r.fen), r.text).has_value()) << r.text;
}

// Every legal move of every reference position has its own text, which reads back as it.
TEST(ShortAlgebraic, EveryMoveOfTheReferencePositionsReadsBack) {
  int nMoves = 0;
  for (const std::string file : {"perft.tsv", "directmates.tsv"}) {
    std::set<std::string> seen;
    for (const testdata::TRow& row : testdata::ReadTsv(file)) {
      const std::string fen = row.at("fen");
      if (!seen.insert(fen).second) continue;
      const bool bBlack = fen.find(" b ") != std::string::npos;
      const TChessboard board = ReadBoard(fen.substr(0, fen.find(' ')), bBlack ? 2 : 1);
      std::set<std::string> texts;
      for (const TMove& move : movemaking::LegalMoves(board)) {
        const std::string text = shortalgebraic::MoveToText(board, move);
        EXPECT_TRUE(texts.insert(text).second) << fen << ": two moves written " << text;
        const auto back = shortalgebraic::TextToMove(board, text);
        ASSERT_TRUE(back.has_value()) << fen << ": " << text;
        EXPECT_TRUE(back->SameMove(move)) << fen << ": " << text;
        ++nMoves;
      }
    }
  }
  EXPECT_GT(nMoves, 1000);
}

}  // namespace
