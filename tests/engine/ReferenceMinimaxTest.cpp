// The engine's root search against a plain minimax (ReferenceMate.h) on the tests' own board
// and move generator: no register, no move ordering, no pruning beyond the short-cuts of
// "any" and "every", on random positions with few pieces.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "ReferenceBoard.h"
#include "ReferenceMate.h"
#include "TestData.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "engine/HeuristicPlan.h"
#include "engine/MateSolver.h"
#include "registers/AggregatedTemporaryChessboardRegister.h"

namespace {

using reference::CReferenceBoard;
using reference::MatingMoves;

// Keys as sorted texts, so that sets compare directly and failures read well.
std::vector<std::string> KeyTexts(const TChessboard& root, const std::vector<TMove>& keys) {
  std::vector<std::string> texts;
  for (TMove key : keys) texts.push_back(notation::MoveToText(root, key));
  std::sort(texts.begin(), texts.end());
  return texts;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const auto& text : texts) joined += (joined.empty() ? "" : " ") + text;
  return joined.empty() ? "(none)" : joined;
}

std::vector<std::string> ReferenceKeys(const TChessboard& root, int nMoves) {
  std::vector<TMove> keys;
  MatingMoves(CReferenceBoard::FromProblemStart(root), 2 * nMoves - 1, &keys);
  return KeyTexts(root, keys);
}

struct TEngineRun {
  int nThreads;
  bool bCutRepetitions;
  const char* name;
  bool bHeuristics = false;  // the passes under heuristics first
};
constexpr TEngineRun kEngineRuns[] = {{1, false, "1 thread"},
                                      {2, false, "2 threads"},
                                      {1, true, "1 thread, repetitions cut"},
                                      {2, false, "2 threads, heuristic passes first", true}};

// Restrictions of every kind: forced mates of each kind of mode (checks, threats of mate in
// one, with captures, threats searched out), a forced-mate depth of one move (its
// preliminary run and its mixture), the king at the edge, pieces kept, kings near.
std::vector<THeuristicSet> HeuristicPasses() {
  std::vector<THeuristicSet> passes;
  for (const EForcedMateMode mode : {EForcedMateMode::kCheckOnly, EForcedMateMode::kMateIn1,
                                     EForcedMateMode::kMateIn2Plus, EForcedMateMode::kMateIn3}) {
    THeuristicSet& forced = passes.emplace_back();
    forced.mask = shbit::kFindForcedMate;
    forced.forcedMateMode = mode;
  }
  THeuristicSet edge, shallow;
  shallow.mask = shbit::kFindForcedMate | shbit::kAreKingsNear;
  shallow.forcedMateMode = EForcedMateMode::kMateIn2;
  shallow.nForcedMateMoves = 1;
  shallow.bPreliminary = true;
  edge.mask = shbit::kKeepKingOnTheEdge | shbit::kDontLoseAnyFigures | shbit::kAreKingsNear |
              shbit::kDontLetPromotedFigureMove;
  edge.edgeForm = EEdgeForm::kStrict;
  passes.push_back(shallow);
  passes.push_back(heuristicplan::Relax(shallow));
  for (const THeuristicSet& set : heuristicplan::RelaxationPath(edge)) passes.push_back(set);
  return passes;
}

// The heuristic passes alone find only keys, and leave doubtful what they cannot settle.
void ExpectHeuristicPassesSound(const TChessboard& start, int nMoves,
                                const std::vector<std::string>& expected) {
  TAggregatedTemporaryChessboardRegister reg(1'000'000);
  CMateSolver solver(start, nMoves,
                     {.nMaxSolutions = 0,
                      .pRegister = &reg,
                      .pDoubtful = &reg,
                      .heuristicPasses = HeuristicPasses(),
                      .bPass2 = false});
  const TRootOutcome outcome = solver.Run();
  const std::vector<std::string> keys = KeyTexts(start, outcome.keys);
  const std::string where = fen::WriteShortFen(start) + " #" + std::to_string(nMoves);
  EXPECT_TRUE(std::includes(expected.begin(), expected.end(), keys.begin(), keys.end())) << where;
  if (keys.empty() && !expected.empty()) {
    EXPECT_EQ(int{outcome.result}, int{mate::kDoubtful}) << where;
  }
}

// Every engine run must give the reference's answer and exactly its keys. Returns whether
// White mates.
bool ExpectEngineAgrees(const TChessboard& start, int nMoves) {
  const std::vector<std::string> expected = ReferenceKeys(start, nMoves);
  for (const TEngineRun& run : kEngineRuns) {
    // The doubtful answers of the heuristic passes are kept, as a solve keeps them.
    TAggregatedTemporaryChessboardRegister reg(1'000'000);
    CMateSolver solver(
        start, nMoves,
        {.nThreads = run.nThreads,
         .nMaxSolutions = 0,
         .pRegister = &reg,
         .pDoubtful = &reg,
         .heuristicPasses = run.bHeuristics ? HeuristicPasses() : std::vector<THeuristicSet>{}});
    solver.SetCutRepetitions(run.bCutRepetitions);
    const TRootOutcome outcome = solver.Run();
    const std::string where =
        fen::WriteShortFen(start) + " #" + std::to_string(nMoves) + ", " + run.name;
    EXPECT_EQ(int{outcome.result}, int{expected.empty() ? mate::kNoMate : mate::kMate}) << where;
    EXPECT_EQ(Joined(KeyTexts(start, outcome.keys)), Joined(expected)) << where;
  }
  ExpectHeuristicPassesSound(start, nMoves, expected);
  return !expected.empty();
}

// Random legal positions: both kings and a few other pieces, Black not in check.
class CRandomPositions {
 public:
  explicit CRandomPositions(unsigned seed) : random(seed) {}

  TChessboard Next() {
    for (;;) {
      TChessboard board;
      ClearChessboard(board);
      PlaceWhiteKing(board, PlaceBlackKing(board));
      const int nWhite = Uniform(1, 3), nBlack = Uniform(0, 2);
      for (int i = 0; i < nWhite; ++i) Place(board, Pick(kWhiteMix));
      for (int i = 0; i < nBlack; ++i) Place(board, Pick(kBlackMix));
      if (TryAnalyse(board, true) && !board.IsBlackInCheck()) return board;
    }
  }

  // Kings and some rooks at home with a pawn pair ready for en passant either way, so that
  // castling rights and en passant along the line take part.
  TChessboard NextAtHome() {
    for (;;) {
      TChessboard board;
      ClearChessboard(board);
      board.squares[4] = piece::kWhiteKing;
      PlaceSomeRooks(board, 0, piece::kWhiteRook);
      if (Uniform(0, 1) == 0) {
        board.squares[60] = piece::kBlackKing;
        PlaceSomeRooks(board, 56, piece::kBlackRook);
      } else {
        PlaceBlackKing(board);
      }
      const bool bBlackDoubleStep = Uniform(0, 1) == 0;
      const int file = Uniform(1, 6), besideFile = file + (Uniform(0, 1) == 0 ? -1 : 1);
      const SquareIndex stepper = square::Make(file, bBlackDoubleStep ? 6 : 1);
      const SquareIndex taker = square::Make(besideFile, bBlackDoubleStep ? 4 : 3);
      if (board.squares[stepper] != piece::kEmpty || board.squares[taker] != piece::kEmpty)
        continue;
      board.squares[stepper] = bBlackDoubleStep ? piece::kBlackPawn : piece::kWhitePawn;
      board.squares[taker] = bBlackDoubleStep ? piece::kWhitePawn : piece::kBlackPawn;
      Place(board, Pick(kWhiteMix));
      if (TryAnalyse(board, true) && !board.IsBlackInCheck()) return board;
    }
  }

 private:
  // Weighted choices: White mostly long-range pieces so that many positions mate.
  static constexpr PieceCode kWhiteMix[] = {
      piece::kWhiteQueen, piece::kWhiteQueen,  piece::kWhiteRook,   piece::kWhiteRook,
      piece::kWhiteRook,  piece::kWhiteBishop, piece::kWhiteKnight, piece::kWhitePawn};
  static constexpr PieceCode kBlackMix[] = {piece::kBlackPawn, piece::kBlackPawn,
                                            piece::kBlackKnight, piece::kBlackBishop,
                                            piece::kBlackRook};

  int Uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
  template <std::size_t n>
  PieceCode Pick(const PieceCode (&mix)[n]) {
    return mix[Uniform(0, static_cast<int>(n) - 1)];
  }
  // On a random empty square; pawns off the first and last ranks.
  SquareIndex Place(TChessboard& board, PieceCode piece) {
    const bool bPawn = piece::TypeOf(piece) == piece::kPawn;
    for (;;) {
      const auto s = static_cast<SquareIndex>(Uniform(bPawn ? 8 : 0, bPawn ? 55 : 63));
      if (board.squares[s] != piece::kEmpty) continue;
      board.squares[s] = piece;
      return s;
    }
  }

  // Mostly on the edge, where mates are common.
  SquareIndex PlaceBlackKing(TChessboard& board) {
    if (Uniform(0, 3) == 0) return Place(board, piece::kBlackKing);
    for (;;) {
      const int along = Uniform(0, 7), edge = Uniform(0, 3);
      const SquareIndex s =
          edge < 2 ? square::Make(along, edge * 7) : square::Make((edge - 2) * 7, along);
      if (board.squares[s] != piece::kEmpty) continue;
      board.squares[s] = piece::kBlackKing;
      return s;
    }
  }
  // Each rook of the corners of a home rank, each with odds 2 to 1.
  void PlaceSomeRooks(TChessboard& board, SquareIndex firstCorner, PieceCode rook) {
    for (SquareIndex corner : {firstCorner, static_cast<SquareIndex>(firstCorner + 7)})
      if (Uniform(0, 2) > 0) board.squares[corner] = rook;
  }

  // Half the time two squares from the black king, taking flights away as mates need.
  void PlaceWhiteKing(TChessboard& board, SquareIndex black) {
    if (Uniform(0, 1) == 0) {
      Place(board, piece::kWhiteKing);
      return;
    }
    for (;;) {
      const int file = square::File(black) + Uniform(-2, 2),
                rank = square::Rank(black) + Uniform(-2, 2);
      if (file < 0 || file > 7 || rank < 0 || rank > 7) continue;
      if (std::max(std::abs(file - square::File(black)), std::abs(rank - square::Rank(black))) != 2)
        continue;
      board.squares[square::Make(file, rank)] = piece::kWhiteKing;
      return;
    }
  }

  std::mt19937 random;
};

// The tests' own generator against the perft table, on the rows of up to a hundred
// thousand positions: they take in castling, en passant and promotions already.
TEST(ReferenceMinimax, OwnGeneratorCountsThePerftTable) {
  int nChecked = 0;
  for (const auto& row : testdata::ReadTsv("perft.tsv")) {
    const std::uint64_t nExpected = std::stoull(row.at("nodes"));
    if (nExpected > 100'000) continue;
    CReferenceBoard board;
    ASSERT_TRUE(board.ReadFen(row.at("fen"))) << row.at("fen");
    EXPECT_EQ(board.Perft(std::stoi(row.at("depth"))), nExpected)
        << row.at("name") << " to depth " << row.at("depth");
    ++nChecked;
  }
  EXPECT_GE(nChecked, 15);
}

// Positions where castling or en passant decides, with the keys worked out by hand; the
// reference must find them too, or it would be no reference for the random ones.
struct TLineRuleCase {
  const char* fen;
  int nMoves;
  const char* keys;
};
constexpr TLineRuleCase kLineRuleCases[] = {
    {"3k4/2p1p3/B7/7B/8/8/8/R3K3", 1, "0-0-0 Ra1-d1"},  // castling mates
    {"8/2R2p2/8/4P3/8/8/8/R3K1k1", 2, "Rc7-c2"},        // 0-0-0 mates after any reply
    {"8/2R2p2/8/4P3/8/8/8/R3K1k1", 3, "Rc7-c2"},
    {"r3k3/8/8/8/pR6/8/1P6/4K2R", 2, "(none)"},  // 0-0-0 escapes Rb4-b7's threat
    {"r3k3/8/8/8/pR6/8/1P6/4K2R", 3, "(none)"},
    // g7-g5 is met by f5:g6 en passant, mate by the rook along the fifth rank.
    {"8/4BNpB/8/R4P1k/5K2/8/8/8", 2,
     "Be7-d8 Be7-g5 Bh7-g6 Kf4-f3 Kf4-g3 Ra5-b5 Ra5-c5 Ra5-d5 Ra5-e5"},
    // g2-g4 would mate but for h4:g3 en passant.
    {"5B2/8/5K2/7k/7p/4N3/6P1/8", 1, "(none)"},
};

TEST(ReferenceMinimax, CastlingAndEnPassantAlongTheLine) {
  for (const TLineRuleCase& row : kLineRuleCases) {
    TChessboard start;
    ClearChessboard(start);
    ASSERT_TRUE(fen::ReadFen(start, row.fen)) << row.fen;
    EXPECT_EQ(Joined(ReferenceKeys(start, row.nMoves)), row.keys) << row.fen;
    ExpectEngineAgrees(start, row.nMoves);
  }
}

// 1.Rd1 Kh3 2.Rd4 Kh2 3.Rh4# mates only by passing through the start position again: a
// return to the root must not cost a first move its place among the keys.
TEST(ReferenceMinimax, KeysThatMateOnlyThroughTheStartPositionAgain) {
  TChessboard start;
  ClearChessboard(start);
  ASSERT_TRUE(fen::ReadFen(start, "8/8/8/8/3R4/8/5K1k/8"));
  const auto keys = ReferenceKeys(start, 3);
  EXPECT_NE(std::find(keys.begin(), keys.end(), "Rd4-d1"), keys.end());
  ExpectEngineAgrees(start, 3);
}

// Twenty-six queens give White 265 moves, more than any legal game: the engine's buffers
// for moves, successors and their order must hold them all.
TEST(ReferenceMinimax, OverfullPositionFitsTheEngineBuffers) {
  TChessboard start;
  ClearChessboard(start);
  ASSERT_TRUE(fen::ReadFen(start, "QQQQQQnk/Q4Q1n/Q5QQ/Q6Q/Q6Q/Q6Q/Q6Q/KQQQQQQQ"));
  EXPECT_TRUE(ExpectEngineAgrees(start, 1));
}

// How many random positions each move count gets: deeper searches cost more.
struct TDepthShare {
  int nMoves;
  int nPositions;
  int nAtHome;
};
constexpr TDepthShare kDepthShares[] = {{1, 300, 10}, {2, 300, 20}, {3, 200, 10}};

TEST(ReferenceMinimax, EngineFindsTheSameKeysOnRandomPositions) {
  CRandomPositions positions(20240611);
  int nMates = 0, nTotal = 0;
  for (const TDepthShare& share : kDepthShares) {
    int nDepthMates = 0;
    for (int i = 0; i < share.nPositions + share.nAtHome; ++i) {
      const TChessboard start = i < share.nPositions ? positions.Next() : positions.NextAtHome();
      if (ExpectEngineAgrees(start, share.nMoves)) ++nDepthMates;
    }
    std::cout << "#" << share.nMoves << ": " << nDepthMates << " of "
              << share.nPositions + share.nAtHome << " positions mate\n";
    nMates += nDepthMates;
    nTotal += share.nPositions + share.nAtHome;
  }
  // Both answers must be common, or agreement would prove little.
  EXPECT_GE(nMates * 100, nTotal * 15);
  EXPECT_GE((nTotal - nMates) * 100, nTotal * 15);
}

}  // namespace
