// The solution tree, proven again move by move on the tests' own board: every White move in
// it mates in the moves it claims, every Black defence is listed, the best one first.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "ReferenceMate.h"
#include "SolveControlHelpers.h"
#include "core/ChessException.h"
#include "core/MoveGeneration.h"
#include "engine/SolutionTree.h"

namespace {

using reference::CReferenceBoard;
using reference::TRefMove;

struct TTreeCount {
  int nWhiteMoves = 0;
  int nCut = 0;
};

// Walks the White move step made from board (White to move); where names the line.
void ExpectProven(const CReferenceBoard& board, const TSolutionMove& step, const std::string& where,
                  TTreeCount& count) {
  ++count.nWhiteMoves;
  TRefMove move;
  ASSERT_TRUE(reference::FindLegal(board, step.move, move)) << where;
  const CReferenceBoard next = board.After(move);
  ASSERT_GE(step.nMovesToMate, 1) << where;
  EXPECT_TRUE(reference::BlackIsMated(next, 2 * step.nMovesToMate - 2)) << where;
  if (step.bCut) {
    ++count.nCut;
    EXPECT_TRUE(step.defences.empty()) << where;
    return;
  }
  TRefMove replies[CReferenceBoard::kMaxMoves];
  ASSERT_EQ(static_cast<int>(step.defences.size()), next.LegalMoves(replies)) << where;
  int nLongest = 0;
  for (const TSolutionDefence& defence : step.defences) {
    TRefMove reply;
    ASSERT_TRUE(reference::FindLegal(next, defence.move, reply)) << where << " " << defence.text;
    EXPECT_LT(defence.answer.nMovesToMate, step.nMovesToMate) << where << " " << defence.text;
    nLongest = std::max(nLongest, defence.answer.nMovesToMate);
    ExpectProven(next.After(reply), defence.answer, where + " " + step.text + " " + defence.text,
                 count);
  }
  if (step.defences.empty()) return;
  EXPECT_TRUE(step.defences.front().bBest) << where;
  EXPECT_EQ(std::count_if(step.defences.begin(), step.defences.end(),
                          [](const TSolutionDefence& d) { return d.bBest; }),
            1)
      << where;
  // Black's best holds out longest, and the move lasts exactly as long as it.
  EXPECT_EQ(step.defences.front().answer.nMovesToMate, nLongest) << where;
  EXPECT_EQ(step.nMovesToMate, nLongest + 1) << where;
}

struct TKeyedProblem {
  std::string id;
  TChessboard start;
  int nMoves;
  TMove key;
};

std::vector<TKeyedProblem> ShortProblems(int nMaxMoves) {
  std::vector<TKeyedProblem> problems;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    const int nMoves = std::stoi(row.at("n"));
    if (nMoves > nMaxMoves || row.at("unique") != "yes") continue;
    TKeyedProblem problem{row.at("id"), solvecontrol::Position(row.at("fen")), nMoves, {}};
    problem.start.ply = problem.start.rootPlies = static_cast<std::uint16_t>(2 * nMoves - 1);
    TChessboard afterKey;
    EXPECT_NE(notation::MakeMove(problem.start, row.at("keys"), afterKey), nullptr);
    problem.key = afterKey.lastMove;
    problems.push_back(problem);
  }
  return problems;
}

TEST(SolutionTree, EveryWhiteMoveMatesInTheMovesItClaimsAndEveryDefenceIsListed) {
  int nTrees = 0;
  for (const TKeyedProblem& problem : ShortProblems(3)) {
    TChessboardRegister<bool> reg(200'000);
    SearchContext context;
    context.pRegister = &reg;
    CSolutionTreeBuilder builder(context, problem.start, problem.nMoves, 100'000);
    const TSolutionMove tree = builder.Build(problem.key);
    EXPECT_LE(tree.nMovesToMate, problem.nMoves) << problem.id;
    TTreeCount count;
    ExpectProven(CReferenceBoard::FromProblemStart(problem.start), tree, problem.id, count);
    EXPECT_EQ(count.nCut, 0) << problem.id;
    // The main variation runs down the best defences to mate.
    const auto line = MainVariation(tree);
    EXPECT_EQ(static_cast<int>(line.size()), 2 * tree.nMovesToMate - 1) << problem.id;
    EXPECT_EQ(*line.front(), tree.text) << problem.id;
    ++nTrees;
  }
  EXPECT_GE(nTrees, 10);
}

TEST(SolutionTree, ASizeLimitCutsBranchesButKeepsTheMainVariation) {
  int nCutTrees = 0;
  for (const TKeyedProblem& problem : ShortProblems(3)) {
    if (problem.nMoves != 3) continue;
    TTreeCount counts[2];
    const int nLimits[2] = {3, 100'000};
    for (int i = 0; i < 2; ++i) {
      SearchContext context;
      CSolutionTreeBuilder builder(context, problem.start, problem.nMoves, nLimits[i]);
      const TSolutionMove tree = builder.Build(problem.key);
      ExpectProven(CReferenceBoard::FromProblemStart(problem.start), tree, problem.id, counts[i]);
      EXPECT_EQ(static_cast<int>(MainVariation(tree).size()), 2 * tree.nMovesToMate - 1)
          << problem.id;
    }
    // A listed defence always comes with White's answer, so the limit is passed by the
    // answers of the node that spent it.
    EXPECT_LE(counts[0].nWhiteMoves, counts[1].nWhiteMoves) << problem.id;
    nCutTrees += counts[0].nCut > 0 ? 1 : 0;
  }
  EXPECT_GT(nCutTrees, 0);
}

TEST(SolutionTree, AMoveThatDoesNotMateInTimeIsRefused) {
  for (const TKeyedProblem& problem : ShortProblems(2)) {
    if (problem.nMoves != 2) continue;
    TMove moves[kMoveBufferSize];
    const int n = movegen::GenerateAllMoves(problem.start, moves);
    SearchContext context;
    CSolutionTreeBuilder builder(context, problem.start, problem.nMoves, 1000);
    for (int i = 0; i < n; ++i) {
      if (moves[i].SameMove(problem.key)) continue;
      EXPECT_THROW(builder.Build(moves[i]), ChessException)
          << problem.id << " " << notation::MoveToText(problem.start, moves[i]);
    }
    return;
  }
}

}  // namespace
