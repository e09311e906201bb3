// The check prediction must miss no legal checking move: the search tries only the moves it
// predicts when looking for a mate in one, so a miss loses a mate. Every move is made here
// and its check read from the position it leads to.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "FenBoard.h"
#include "LinePosition.h"
#include "TestData.h"
#include "core/CastlingRule.h"
#include "core/CheckPrediction.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"

namespace {

struct TMadeMove {
  TMove move;
  bool bCheck;
  bool bSpecial;  // castling or en passant: the prediction may answer true without a check
};

std::vector<TMadeMove> LegalMoves(const TChessboard& board) {
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateAllMoves(board, moves);
  std::vector<TMadeMove> legal;
  TChessboard child;
  for (int i = 0; i < n; ++i) {
    if (!movemaking::MakeSuccessor(board, moves[i], child)) continue;
    const TMove m = moves[i];
    const PieceCode type = piece::TypeOf(board.squares[m.from]);
    const bool bCastling = type == piece::kKing && castling::RuleOfKingMove(m.from, m.to);
    const bool bEnPassant = type == piece::kPawn && square::File(m.from) != square::File(m.to) &&
                            board.squares[m.to] == piece::kEmpty;
    legal.push_back({m, child.IsSideToMoveInCheck(), bCastling || bEnPassant});
  }
  return legal;
}

bool Holds(const TMove* moves, int n, TMove move) {
  for (int i = 0; i < n; ++i)
    if (moves[i].SameMove(move)) return true;
  return false;
}

// Counts what was checked, so that the test can tell that it saw enough.
struct TTally {
  int nPositions = 0, nChecks = 0;
};

void ExpectPredictionComplete(const TChessboard& board, TTally& tally) {
  const attacks::CCheckFilter filter(board);
  TMove generated[kMoveBufferSize];
  const int nGenerated = filter.GenerateCheckingMoves(generated);
  ++tally.nPositions;
  for (const TMadeMove& made : LegalMoves(board)) {
    const std::string where = fen::WriteFullFen(board) + " " + FromTo(made.move);
    if (made.bCheck) {
      ++tally.nChecks;
      EXPECT_TRUE(Holds(generated, nGenerated, made.move)) << "not generated: " << where;
      EXPECT_TRUE(attacks::MayGiveCheck(board, made.move)) << where;
    }
    // Exact for ordinary moves: a false alarm would only cost time, but it shows a wrong rule.
    if (!made.bSpecial) {
      EXPECT_EQ(filter.MayGiveCheck(made.move), made.bCheck) << where;
      EXPECT_EQ(attacks::MayGiveCheck(board, made.move), made.bCheck) << where;
    } else {
      EXPECT_TRUE(filter.MayGiveCheck(made.move)) << where;
    }
  }
}

// Walks from the start by random legal moves, checking every position on the way.
void WalkAndCheck(const std::string& fenText, std::mt19937& random, int nPlies, TTally& tally) {
  CLinePosition position(fenText, nPlies);
  const TChessboard* current = &position.Root();
  for (int ply = 0; ply <= nPlies; ++ply) {
    ExpectPredictionComplete(*current, tally);
    const std::vector<TMadeMove> legal = LegalMoves(*current);
    if (legal.empty() || current->ply == 0) return;
    const TMove move = legal[random() % legal.size()].move;
    TChessboard& next = position.Line()[current->ply];
    ASSERT_TRUE(movemaking::MakeSuccessor(*current, move, next));
    current = &next;
  }
}

TEST(CheckPrediction, MissesNoCheckOnReferencePositionsAndRandomWalksFromThem) {
  std::mt19937 random(20250611);
  TTally tally;
  for (const std::string file : {"perft.tsv", "directmates.tsv", "moremovers.tsv"}) {
    for (const auto& row : testdata::ReadTsv(file)) {
      // The problem sets give White the move; Black to move is worth a walk of its own.
      WalkAndCheck(row.at("fen"), random, 24, tally);
      if (file != "perft.tsv") {
        const std::string blackToMove = testdata::Split(row.at("fen"), " ").at(0) + " b";
        if (!ReadBoard(blackToMove, 2).IsWhiteInCheck())
          WalkAndCheck(blackToMove, random, 12, tally);
      }
    }
  }
  EXPECT_GE(tally.nPositions, 5000);
  EXPECT_GE(tally.nChecks, 5000);
}

// Checks the random walks seldom meet: castling and en passant, promotions, double steps and
// king moves that uncover a line.
TEST(CheckPrediction, MissesNoCheckOfTheRareKinds) {
  const struct {
    const char* fen;
    std::vector<std::string> line;
  } cases[] = {
      {"5k2/8/8/8/8/8/8/4K2R w - - 0 1", {}},          // 0-0 checks with the rook
      {"r3k3/8/8/8/8/8/8/3K4 b - - 0 1", {}},          // 0-0-0 for Black
      {"8/3p4/8/R3P2k/8/8/8/K7 b - - 0 1", {"d7d5"}},  // e5:d6 opens the rank
      {"4k3/3p4/8/8/4K3/8/8/8 b - - 0 1", {}},         // d7-d5 checks
      {"8/1P1k4/8/8/8/8/8/K7 w - - 0 1", {}},          // b8N, b8Q
      {"2r1k3/1P6/8/8/8/8/8/K7 w - - 0 1", {}},        // b7:c8 and b8 promotions
      {"7k/8/8/8/8/8/1P6/B6K w - - 0 1", {}},          // b2-b4 uncovers a1-h8
      {"k7/8/8/8/8/8/K7/R7 w - - 0 1", {}},            // the king uncovers the file
      {"8/8/8/2k5/8/8/3P4/K7 w - - 0 1", {}},          // d2-d4 checks directly
  };
  TTally tally;
  for (const auto& c : cases) {
    CLinePosition position(c.fen);
    ExpectPredictionComplete(position.Play(c.line), tally);
  }
  EXPECT_GE(tally.nChecks, 15);
}

}  // namespace
