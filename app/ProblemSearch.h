#pragma once
// The search over the problems of a collection: a problem matches when it satisfies every
// criterion given. A search for a position that finds none offers the positions like it.
#include <cstdint>
#include <vector>

#include "app/PositionSimilarity.h"
#include "app/SearchCriteria.h"
#include "problems/Collection.h"

struct TSearchHit {
  const TProblem* pProblem = nullptr;
  double similarity = 1.0;  // below 1 for a similar position
};

struct TSearchResult {
  std::vector<TSearchHit> hits;  // in collection order; similar ones best first
  bool bSimilarOnly = false;     // no exact match: the hits are positions like the one sought
};

// The pieces of a position by colour and kind, as the search counts them.
std::array<int, kCountFields> CountPieces(const PieceCode* squares);
// The heuristics a problem file gives a problem (one bit per catalogue index); those it turns
// OFF count too when bIncludeRelaxed.
std::uint32_t HeuristicsOf(const TProblem& problem, bool bIncludeRelaxed);

class CProblemSearch {
 public:
  explicit CProblemSearch(TSearchQuery query);

  bool Matches(const TProblem& problem) const;
  TSearchResult Run(const TProblemCollection& collection) const;
  const TSearchQuery& Query() const { return query; }

  // The problems whose start positions are like position (kSimilarityThreshold or more),
  // best first, leaving out the problem nExcludedId (the one shown).
  static std::vector<TSearchHit> FindSimilar(const TPlacement& position,
                                             const TProblemCollection& collection,
                                             int nExcludedId = -1);

 private:
  // Every criterion but the position sought by the FEN field or a FEN text.
  bool MatchesBesidesPosition(const TProblem& problem) const;
  bool MatchesPosition(const TProblem& problem) const;
  bool MatchesText(const TProblem& problem) const;
  bool MatchesHeuristics(const TProblem& problem) const;

  TSearchQuery query;
  std::uint32_t nWantedHeuristics = 0;  // all those asked for
};
