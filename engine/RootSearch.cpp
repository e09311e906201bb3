#include "engine/RootSearch.h"

#include <algorithm>
#include <thread>

CRootSearch::CRootSearch(SearchContext& searchContext, const TChessboard& rootBoard, int nThreads)
    : context(searchContext), root(rootBoard) {
  for (int i = 0; i < std::max(1, nThreads); ++i)
    searches.push_back(std::make_unique<CMateSearch>(context, root.ply));
  TChessboard* made;
  const std::uint8_t* order;
  const int n = searches[0]->OrderedWhiteChildren(root, made, order);
  for (int i = 0; i < n; ++i) children.push_back(made[order[i]]);
  for (const TChessboard& child : children) firstMoves.push_back(child.lastMove);
  results.assign(n, mate::kNoMate);
}

TRootOutcome CRootSearch::Run(int nMaxSolutions) {
  std::vector<std::thread> threads;
  for (size_t w = 1; w < searches.size(); ++w) threads.emplace_back([this, w, nMaxSolutions] { Work(static_cast<int>(w), nMaxSolutions); });
  Work(0, nMaxSolutions);
  for (auto& t : threads) t.join();

  TRootOutcome outcome;
  bool bDoubtful = false;
  for (size_t i = 0; i < firstMoves.size(); ++i) {
    if (results[i] == mate::kMate) {
      outcome.keys.push_back(firstMoves[i]);
      outcome.answers.Add((root.ply + 1) / 2, firstMoves[i]);
    }
    // A repetition can only lead back to the root itself, where it settles as in any node.
    if (results[i] == mate::kDoubtful || (results[i] == mate::kRepetition && context.passNumber == 1))
      bDoubtful = true;
  }
  outcome.result = !outcome.keys.empty() ? mate::kMate : bDoubtful ? mate::kDoubtful : mate::kNoMate;
  outcome.nPositions = Positions();
  return outcome;
}

void CRootSearch::Work(int worker, int nMaxSolutions) {
  CMateSearch& search = *searches[worker];
  for (;;) {
    if (context.IsStopping()) return;
    const int i = nNextMove.fetch_add(1);
    if (i >= static_cast<int>(firstMoves.size())) return;
    const MateResult result = search.BlackNode(children[i]);
    if (context.IsStopping() && result != mate::kMate) {
      results[i] = mate::kDoubtful;
      return;
    }
    results[i] = result;
    if (result == mate::kMate && nMaxSolutions > 0 && nKeysFound.fetch_add(1) + 1 >= nMaxSolutions)
      context.bAbandon.store(true, std::memory_order_relaxed);
  }
}

std::uint64_t CRootSearch::Positions() const {
  std::uint64_t n = 0;
  for (const auto& search : searches) n += search->Positions();
  return n;
}

double CRootSearch::Progress() const {
  if (firstMoves.empty()) return 1.0;
  const int taken = std::min<int>(nNextMove.load(std::memory_order_relaxed), firstMoves.size());
  return static_cast<double>(taken) / firstMoves.size();
}
