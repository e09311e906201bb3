// The search skipping White moves an outside oracle says cannot win, at its first levels only.
#include <gtest/gtest.h>

#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "DirectMateRows.h"
#include "core/Notation.h"
#include "engine/MateSolver.h"
#include "engine/WhiteMoveAdvice.h"

namespace {

using matetest::Board;
using matetest::Texts;

// S. Loyd 1859, #2, the one key Qh5-a5.
constexpr const char* kLoyd = "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8";

class CFixedAdvice : public CWhiteMoveAdvice {
 public:
  explicit CFixedAdvice(std::vector<TMove> moves) : skipped(std::move(moves)) {}
  std::vector<TMove> MovesThatCannotWin(const TChessboard& board) override {
    const std::lock_guard lock(mutex);
    levelsAsked.insert((board.rootPlies - board.ply) / 2 + 1);
    return skipped;
  }
  std::set<int> Levels() {
    const std::lock_guard lock(mutex);
    return levelsAsked;
  }

 private:
  const std::vector<TMove> skipped;
  std::mutex mutex;
  std::set<int> levelsAsked;
};

TMove White(const char* text) {
  return notation::FullDescriptionToMove(text, true);
}

TRootOutcome Solve(const TChessboard& start, int nMoves, CWhiteMoveAdvice* advice, int nLevels,
                   int nThreads = 1) {
  CMateSolver solver(
      start, nMoves,
      {.nThreads = nThreads, .nMaxSolutions = 0, .pAdvice = advice, .nAdviceLevels = nLevels});
  return solver.Run();
}

TEST(WhiteMoveAdvice, SkipsTheMovesThatCannotWin) {
  const TChessboard start = Board(kLoyd, 3);
  const struct {
    const char* name;
    std::vector<TMove> skipped;
    std::vector<std::string> keys;
  } cases[] = {
      {"nothing known", {}, {"Qh5-a5"}},
      {"another move", {White("Qh5-h4"), White("Ne3-c2")}, {"Qh5-a5"}},
      {"the key", {White("Qh5-a5")}, {}},
  };
  for (const auto& [name, skipped, keys] : cases) {
    for (const int nThreads : {1, 2}) {
      CFixedAdvice advice(skipped);
      const TRootOutcome outcome = Solve(start, 2, &advice, 1, nThreads);
      EXPECT_EQ(Texts(start, outcome.keys), keys) << name << ", threads " << nThreads;
      EXPECT_EQ(outcome.result, keys.empty() ? mate::kNoMate : mate::kMate) << name;
    }
  }
}

TEST(WhiteMoveAdvice, IsAskedAtTheFirstLevelsOnly) {
  // As a #3 the search reaches White's second and third moves.
  const TChessboard start = Board(kLoyd, 5);
  const struct {
    int nLevels;
    std::set<int> asked;
  } cases[] = {{0, {}}, {1, {1}}, {2, {1, 2}}, {5, {1, 2}}};
  for (const auto& [nLevels, asked] : cases) {
    CFixedAdvice advice({});
    Solve(start, 3, &advice, nLevels);
    EXPECT_EQ(advice.Levels(), asked) << nLevels << " levels";
  }
}

}  // namespace
