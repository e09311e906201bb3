// Selfmates: the engine's keys against the published ones and against a plain minimax on
// the tests' own board (ReferenceSelfmate.h).
#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "DirectMateRows.h"
#include "ReferenceSelfmate.h"
#include "TestData.h"
#include "engine/HeuristicPlan.h"
#include "engine/MateSolver.h"
#include "engine/RegisterKey.h"

namespace {

using reference::CReferenceBoard;

struct TSolveRun {
  int nThreads;
  bool bCutRepetitions;
  const char* name;
  bool bHeuristicsAsked = false;  // passes under heuristics asked for, which must not run
};
constexpr TSolveRun kRuns[] = {{1, false, "1 thread"},
                               {2, false, "2 threads"},
                               {2, true, "2 threads, repetitions cut"},
                               {1, false, "1 thread, heuristics asked", true}};

std::vector<THeuristicSet> SomeHeuristicPasses() {
  THeuristicSet forced;
  forced.mask = shbit::kFindForcedMate;
  return heuristicplan::RelaxationPath(forced);
}

TRootOutcome Solve(const TChessboard& start, int nMoves, const TSolveRun& run,
                   TChessboardRegister<bool>& reg, EMateGoal goal = EMateGoal::kSelfmate) {
  CMateSolver solver(start, nMoves,
                     {.goal = goal,
                      .nThreads = run.nThreads,
                      .nMaxSolutions = 0,
                      .pRegister = &reg,
                      .heuristicPasses = run.bHeuristicsAsked ? SomeHeuristicPasses()
                                                              : std::vector<THeuristicSet>{},
                      .bPass2 = !run.bHeuristicsAsked});
  solver.SetCutRepetitions(run.bCutRepetitions);
  return solver.Run();
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const auto& text : texts) joined += (joined.empty() ? "" : " ") + text;
  return joined.empty() ? "(none)" : joined;
}

std::string SolvedKeys(const TChessboard& start, int nMoves, const TSolveRun& run,
                       EMateGoal goal = EMateGoal::kSelfmate) {
  TChessboardRegister<bool> reg(1'000'000);
  return Joined(matetest::Texts(start, Solve(start, nMoves, run, reg, goal).keys, true));
}

std::string ReferenceKeys(const TChessboard& start, int nMoves) {
  std::vector<TMove> keys;
  reference::SelfmatingMoves(CReferenceBoard::FromProblemStart(start), nMoves, &keys);
  return Joined(matetest::Texts(start, keys, true));
}

std::vector<testdata::TRow> SelfmateRows(double maxSeconds) {
  std::vector<testdata::TRow> rows;
  for (const auto& row : testdata::ReadTsv("selfmates.tsv"))
    if (std::stod(row.at("popeye_seconds")) <= maxSeconds) rows.push_back(row);
  return rows;
}

TChessboard Start(const testdata::TRow& row) {
  return matetest::Board(row.at("fen"), 255);
}

int MenOn(const TChessboard& board) {
  int n = 0;
  for (const PieceCode man : board.squares) n += man != piece::kEmpty ? 1 : 0;
  return n;
}

// Every row that a quick solver solves within a fifth of a second: exactly the published
// keys, with one thread and two, and whatever heuristics are asked for.
TEST(Selfmates, QuickRowsGiveExactlyThePublishedKeys) {
  int nSolved = 0;
  for (const auto& row : SelfmateRows(0.2)) {
    const TChessboard start = Start(row);
    for (const TSolveRun& run : kRuns)
      EXPECT_EQ(SolvedKeys(start, matetest::Moves(row), run), Joined(matetest::PublishedKeys(row)))
          << row.at("id") << ", " << run.name;
    ++nSolved;
  }
  EXPECT_GE(nSolved, 12);
}

// The rows a quick solver needs longer for, with two threads only: they take seconds here.
TEST(Selfmates, SlowerRowsGiveThePublishedKeysWithTwoThreads) {
  int nSolved = 0;
  for (const auto& row : testdata::ReadTsv("selfmates.tsv")) {
    if (std::stod(row.at("popeye_seconds")) <= 0.2) continue;
    EXPECT_EQ(SolvedKeys(Start(row), matetest::Moves(row), kRuns[1]),
              Joined(matetest::PublishedKeys(row)))
        << row.at("id");
    ++nSolved;
  }
  EXPECT_GE(nSolved, 1);
}

// A direct mate and a selfmate of the same position share a register without mixing their
// answers: each solve gives what it gives with a register of its own.
TEST(Selfmates, RegisterKeepsSelfmatesApartFromDirectMates) {
  TChessboardRegister<bool> shared(1'000'000);
  for (const auto& row : SelfmateRows(0.2)) {
    const TChessboard start = Start(row);
    const int nMoves = matetest::Moves(row);
    for (const EMateGoal goal : {EMateGoal::kDirectMate, EMateGoal::kSelfmate,
                                 EMateGoal::kDirectMate, EMateGoal::kSelfmate}) {
      const int nGoalMoves = goal == EMateGoal::kSelfmate ? nMoves : nMoves + 1;
      const TRootOutcome outcome = Solve(start, nGoalMoves, kRuns[0], shared, goal);
      EXPECT_EQ(Joined(matetest::Texts(start, outcome.keys, true)),
                SolvedKeys(start, nGoalMoves, kRuns[0], goal))
          << row.at("id") << (goal == EMateGoal::kSelfmate ? " s#" : " #") << nGoalMoves;
    }
  }
  EXPECT_GT(shared.GetElementsIn(), 0u);
  TChessboard castling = matetest::Board("r3k3/8/8/8/8/8/8/R3K2R", 3);
  for (const TChessboard& board : {Start(SelfmateRows(0.2).front()), castling})
    EXPECT_FALSE(registerkey::Build(board) == registerkey::BuildSelfmate(board));
}

// Positions near the published selfmates: one of their men moved to a random square.
// Many still selfmate, which random boards seldom do.
class CNearbyPositions {
 public:
  CNearbyPositions(std::vector<std::string> fens, unsigned seed)
      : starts(std::move(fens)), random(seed) {}

  TChessboard Next() {
    for (;;) {
      TChessboard board =
          matetest::Board(starts[Uniform(0, static_cast<int>(starts.size()) - 1)], 255);
      MoveSomeMan(board);
      if (TryAnalyse(board, true) && !board.IsBlackInCheck()) return board;
    }
  }

 private:
  int Uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
  void MoveSomeMan(TChessboard& board) {
    for (;;) {
      const int from = Uniform(0, 63), to = Uniform(0, 63);
      const PieceCode man = board.squares[from];
      if (man == piece::kEmpty || board.squares[to] != piece::kEmpty) continue;
      if (piece::TypeOf(man) == piece::kPawn && (to < 8 || to > 55)) continue;
      board.squares[to] = man;
      board.squares[from] = piece::kEmpty;
      return;
    }
  }

  std::vector<std::string> starts;
  std::mt19937 random;
};

// The engine with one thread and two against the plain minimax, at one, two and three moves.
TEST(Selfmates, EngineAgreesWithThePlainMinimaxNearPublishedSelfmates) {
  std::vector<std::string> fens;
  for (const auto& row : SelfmateRows(0.02))
    if (MenOn(Start(row)) <= 8) fens.push_back(row.at("fen"));
  ASSERT_GE(fens.size(), 6u);
  CNearbyPositions positions(fens, 20261125);
  const struct { int nMoves, nPositions; } shares[] = {{1, 150}, {2, 100}, {3, 15}};
  int nSelfmates = 0, nTotal = 0;
  for (const auto& share : shares) {
    for (int i = 0; i < share.nPositions; ++i) {
      const TChessboard start = positions.Next();
      const std::string expected = ReferenceKeys(start, share.nMoves);
      for (const TSolveRun& run : {kRuns[0], kRuns[1]})
        EXPECT_EQ(SolvedKeys(start, share.nMoves, run), expected)
            << fen::WriteShortFen(start) << " s#" << share.nMoves << ", " << run.name;
      nSelfmates += expected != "(none)" ? 1 : 0;
    }
    nTotal += share.nPositions;
  }
  std::cout << nSelfmates << " of " << nTotal << " positions selfmate\n";
  // Both answers must be common, or agreement would prove little.
  EXPECT_GE(nSelfmates * 100, nTotal * 10);
  EXPECT_GE((nTotal - nSelfmates) * 100, nTotal * 10);
}

}  // namespace
