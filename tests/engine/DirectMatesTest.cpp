#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "TestData.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "engine/MateSolver.h"
#include "engine/RootSearch.h"

namespace {

struct TSolved {
  MateResult result;
  std::vector<std::string> keys;
};

// The reference data writes some captures with '-': compare moves by their squares.
std::string WithoutCaptureMark(std::string move) {
  std::replace(move.begin(), move.end(), ':', '-');
  return move;
}

TSolved SolveAll(const std::string& fenText, int nMoves, bool bWithRegister, int nThreads = 1,
                 bool bShareFirstMoves = true,
                 const std::optional<CScheduler::TSettings>& scheduler = std::nullopt,
                 std::uint64_t* pLentPositions = nullptr) {
  TChessboard root;
  ClearChessboard(root);
  EXPECT_TRUE(fen::ReadFen(root, fenText));
  root.ply = root.rootPlies = static_cast<std::uint16_t>(2 * nMoves - 1);
  TChessboardRegister<bool> reg(1'000'000);
  SearchContext context;
  if (bWithRegister) context.pRegister = &reg;
  CRootSearch search(context, root, nThreads, bShareFirstMoves);
  if (scheduler) search.EnableScheduler(*scheduler);
  const TRootOutcome outcome = search.Run(0);
  if (pLentPositions != nullptr) *pLentPositions += search.LentPositions();
  TSolved solved{outcome.result, {}};
  for (TMove key : outcome.keys)
    solved.keys.push_back(WithoutCaptureMark(notation::MoveToText(root, key)));
  std::sort(solved.keys.begin(), solved.keys.end());
  return solved;
}

std::vector<std::string> PublishedKeys(const testdata::TRow& row) {
  auto keys = testdata::Split(row.at("keys"), " ,");
  for (auto& key : keys) key = WithoutCaptureMark(key);
  std::sort(keys.begin(), keys.end());
  return keys;
}

// The quick rows of the reference set: every published key, and nothing else.
TEST(DirectMates, QuickRowsGiveExactlyThePublishedKeys) {
  int nSolved = 0;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    if (row.at("popeye_seconds").empty() || std::stod(row.at("popeye_seconds")) > 0.5) continue;
    const TSolved solved = SolveAll(row.at("fen"), std::stoi(row.at("n")), true);
    const auto expected = PublishedKeys(row);
    EXPECT_EQ(solved.keys, expected) << row.at("id");
    EXPECT_EQ(solved.result, expected.empty() ? mate::kNoMate : mate::kMate) << row.at("id");
    ++nSolved;
  }
  EXPECT_GE(nSolved, 20);
}

// Deeper rows with more threads than cores: first moves, their replies and the moves of
// deep White nodes are shared, and the keys must not change.
TEST(DirectMates, ThreadedSolvesGiveThePublishedKeys) {
  int nSolved = 0;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    if (std::stoi(row.at("n")) < 4 || row.at("popeye_seconds").empty() ||
        std::stod(row.at("popeye_seconds")) > 0.3)
      continue;
    for (bool bShare : {true, false}) {
      const TSolved solved = SolveAll(row.at("fen"), std::stoi(row.at("n")), true, 3, bShare);
      EXPECT_EQ(solved.keys, PublishedKeys(row))
          << row.at("id") << (bShare ? "" : ", moves not shared");
    }
    ++nSolved;
  }
  EXPECT_GE(nSolved, 5);
}

// The scheduler's threads take the runners-up of every node it covers at once (no delay),
// with one worker and with more: the keys must not change, and the lent time must be used.
TEST(DirectMates, ThreadedSolvesWithTheSchedulerGiveThePublishedKeys) {
  const CScheduler::TSettings lendAtOnce{
      .nMultithreadingLevels = 1, .nLevels = 6, .bCustom = true, .runnerUpDelay = {}};
  int nSolved = 0;
  std::uint64_t nLent = 0;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    if (std::stoi(row.at("n")) < 4 || row.at("popeye_seconds").empty() ||
        std::stod(row.at("popeye_seconds")) > 0.3)
      continue;
    for (const auto& [nThreads, bShare] : {std::pair{1, true}, {2, true}, {3, false}}) {
      const TSolved solved = SolveAll(row.at("fen"), std::stoi(row.at("n")), true, nThreads, bShare,
                                      lendAtOnce, &nLent);
      EXPECT_EQ(solved.keys, PublishedKeys(row)) << row.at("id") << ", " << nThreads << " threads";
    }
    ++nSolved;
  }
  EXPECT_GE(nSolved, 5);
  EXPECT_GT(nLent, 0u);
}

}  // namespace

namespace {

TEST(MateSolver, RunsThreadsToThePowerOfLevelsWorkers) {
  const struct {
    int nThreads, nLevels, nWorkers;
  } cases[] = {{1, 1, 1}, {2, 1, 2}, {4, 2, 16}, {3, 3, 27}, {64, 2, 256}, {1, 5, 1}, {2, 0, 2}};
  for (const auto& c : cases)
    EXPECT_EQ(CMateSolver::WorkerCount(c.nThreads, c.nLevels), c.nWorkers)
        << c.nThreads << "^" << c.nLevels;
}

TEST(AnswerCountMap, FindsTheEntryHoldingAMoveAndRefusesOthers) {
  CAnswerCountMap answers;
  answers.Add(3, TMove{12, 28, 0, 0});
  answers.Add(3, TMove{52, 60, piece::kQueen, 0});
  answers.Add(5, TMove{6, 21, 0, 0});
  EXPECT_EQ(answers.GetAnswerCountFromMap(TMove{12, 28, 0, 0}), 2);
  // Promotions match on the type alone, whatever colour bits they carry.
  EXPECT_EQ(answers.GetAnswerCountFromMap(TMove{52, 60, piece::kWhiteQueen, 0}), 2);
  EXPECT_EQ(answers.GetAnswerCountFromMap(TMove{6, 21, 0, 0}), 1);
  try {
    answers.GetAnswerCountFromMap(TMove{52, 60, piece::kRook, 0});
    FAIL() << "a move no entry holds must be refused";
  } catch (const ChessException& e) {
    EXPECT_STREQ(e.what(), "Error in GetAnswerCountFromMap!");
  }
}

}  // namespace
