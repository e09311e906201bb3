#pragma once
#include <cstdint>
#include <memory>
#include <vector>

#include "core/Chessboard.h"
#include "engine/AnswerCountMap.h"
#include "engine/MateSearch.h"

// What the root search found.
struct TRootOutcome {
  MateResult result = mate::kNoMate;  // kMate when at least one key was found
  std::vector<TMove> keys;            // in the order of the sorted first moves
  CAnswerCountMap answers;
  std::uint64_t nPositions = 0;
};

// The root of a solve: White's first moves, sorted, are handed out one at a time to the
// worker threads, so an idle thread always takes the next pending move. Each worker owns
// its search and line; they share the context (register, run state).
class CRootSearch {
 public:
  CRootSearch(SearchContext& context, const TChessboard& root, int nThreads);
  // Stops after nMaxSolutions keys (0: all solutions).
  TRootOutcome Run(int nMaxSolutions);
  // Positions searched so far by every worker.
  std::uint64_t Positions() const;
  // Share of first moves taken up so far, 0..1.
  double Progress() const;
  // Index (in the sorted order) and text-ready move of the first move a worker is on.
  int CurrentMoveIndex() const { return nNextMove.load(std::memory_order_relaxed) - 1; }
  const std::vector<TMove>& FirstMoves() const { return firstMoves; }

 private:
  void Work(int worker, int nMaxSolutions);

  SearchContext& context;
  const TChessboard& root;
  std::vector<std::unique_ptr<CMateSearch>> searches;
  std::vector<TChessboard> children;  // the first moves made, in search order
  std::vector<TMove> firstMoves;
  std::vector<MateResult> results;
  std::atomic<int> nNextMove{0};
  std::atomic<int> nKeysFound{0};
};
