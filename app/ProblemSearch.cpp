#include "app/ProblemSearch.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "core/ChessboardId.h"

namespace {

bool SamePlacement(const TChessboard& board, const TPlacement& placement) {
  return std::memcmp(board.squares, placement.data(), placement.size()) == 0;
}

TPlacement PlacementOfBoard(const TChessboard& board) {
  TPlacement placement;
  std::memcpy(placement.data(), board.squares, placement.size());
  return placement;
}

bool HasPlacement(const TProblem& problem, const TPlacement& placement) {
  return SamePlacement(problem.start, placement) ||
         (problem.current != &problem.start && SamePlacement(*problem.current, placement));
}

bool IsOnEdge(SquareIndex s) {
  return square::File(s) == 0 || square::File(s) == 7 || square::Rank(s) == 0 ||
         square::Rank(s) == 7;
}

bool EqualFolded(const std::string& a, const std::string& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) ==
                  std::tolower(static_cast<unsigned char>(y));
         });
}

bool ContainsFolded(const std::string& text, const std::string& foldedNeedle) {
  const auto found = std::search(
      text.begin(), text.end(), foldedNeedle.begin(), foldedNeedle.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) == static_cast<unsigned char>(y);
      });
  return found != text.end();
}

}  // namespace

std::array<int, kCountFields> CountPieces(const PieceCode* squares) {
  std::array<int, kCountFields> n{};
  for (int s = 0; s < 64; ++s) {
    const PieceCode code = squares[s];
    if (code == piece::kEmpty) continue;
    const int side = piece::IsWhite(code) ? 1 : 2;  // the white field follows the total
    const PieceCode type = piece::TypeOf(code);
    const auto Count = [&](ECountField total) {
      ++n[total];
      ++n[total + side];
    };
    Count(kPiecesTotal);
    if (type == piece::kPawn) {
      Count(kPawnsTotal);
      continue;
    }
    Count(kFiguresTotal);
    if (type == piece::kRook || type == piece::kQueen) Count(kMajorsTotal);
  }
  return n;
}

std::uint32_t HeuristicsOf(const TProblem& problem, bool bIncludeRelaxed) {
  std::uint32_t mask = 0;
  for (const auto& [nIndex, words] : problem.heuristicSettings) {
    const bool bOff = words.size() == 1 && EqualFolded(words.front(), "OFF");
    if (!bOff || bIncludeRelaxed) mask |= 1u << nIndex;
  }
  return mask;
}

CProblemSearch::CProblemSearch(TSearchQuery searchQuery) : query(std::move(searchQuery)) {
  for (const THeuristicWanted& wanted : query.criteria.heuristics)
    nWantedHeuristics |= 1u << wanted.nIndex;
}

bool CProblemSearch::Matches(const TProblem& problem) const {
  return MatchesBesidesPosition(problem) && MatchesPosition(problem) && MatchesText(problem);
}

bool CProblemSearch::MatchesBesidesPosition(const TProblem& problem) const {
  const TSearchCriteria& criteria = query.criteria;
  if (query.moves && (problem.stipulation.type == TStipulation::kMoveLine ||
                      !query.moves->Holds(problem.stipulation.Moves())))
    return false;
  if (criteria.bUnsolvedOnly && problem.HasFlag(option::kAnswerGiven)) return false;
  if (criteria.bForcedSafeMode && !problem.HasFlag(option::kSafeMode)) return false;
  if (criteria.bBlackKingOnEdge && !IsOnEdge(problem.start.BlackKing())) return false;
  if (std::any_of(query.counts.begin(), query.counts.end(), [](const auto& r) { return r; })) {
    const auto counts = CountPieces(problem.start.squares);
    for (int field = 0; field < kCountFields; ++field)
      if (query.counts[field] && !query.counts[field]->Holds(counts[field])) return false;
  }
  if (!criteria.tag.empty() &&
      std::none_of(problem.tags.begin(), problem.tags.end(),
                   [&](const std::string& tag) { return EqualFolded(tag, criteria.tag); }))
    return false;
  return criteria.heuristics.empty() || MatchesHeuristics(problem);
}

bool CProblemSearch::MatchesPosition(const TProblem& problem) const {
  return !query.fenPosition || HasPlacement(problem, *query.fenPosition);
}

bool CProblemSearch::MatchesText(const TProblem& problem) const {
  const TSearchCriteria& criteria = query.criteria;
  if (criteria.text.empty()) return true;
  if (query.textPosition && HasPlacement(problem, *query.textPosition)) return true;
  if (query.regex) {
    if (std::regex_search(problem.description, *query.regex)) return true;
  } else if (criteria.bCaseSensitive ? problem.description.find(criteria.text) != std::string::npos
                                     : ContainsFolded(problem.description, query.foldedText)) {
    return true;
  }
  if (!query.bTextMayBeId) return false;
  const TChessboardId id(problem.start);
  return id.ToAlphanum6() == criteria.text || id.ToAlphanum5() == criteria.text;
}

bool CProblemSearch::MatchesHeuristics(const TProblem& problem) const {
  const std::uint32_t used = HeuristicsOf(problem, query.criteria.bIncludeRelaxed);
  bool bPartialAsked = false, bPartialFound = false;
  for (const THeuristicWanted& wanted : query.criteria.heuristics) {
    const bool bUsed = (used >> wanted.nIndex & 1u) != 0;
    switch (wanted.use) {
      case EHeuristicUse::Alone:
        if (!bUsed || (used & ~nWantedHeuristics) != 0) return false;
        break;
      case EHeuristicUse::WithOthers:
        if (!bUsed) return false;
        break;
      case EHeuristicUse::Partially:
        bPartialAsked = true;
        bPartialFound = bPartialFound || bUsed;
        break;
    }
  }
  return !bPartialAsked || bPartialFound;
}

TSearchResult CProblemSearch::Run(const TProblemCollection& collection) const {
  TSearchResult result;
  for (const auto& [id, problem] : collection.Problems())
    if (Matches(*problem)) result.hits.push_back({problem.get()});
  if (!result.hits.empty() || !query.IsPositionSearch()) return result;
  const TPlacement& sought = query.fenPosition ? *query.fenPosition : *query.textPosition;
  for (const TSearchHit& hit : FindSimilar(sought, collection))
    if (MatchesBesidesPosition(*hit.pProblem) && (query.textPosition || MatchesText(*hit.pProblem)))
      result.hits.push_back(hit);
  result.bSimilarOnly = !result.hits.empty();
  return result;
}

std::vector<TSearchHit> CProblemSearch::FindSimilar(const TPlacement& position,
                                                    const TProblemCollection& collection,
                                                    int nExcludedId) {
  std::vector<TSearchHit> hits;
  for (const auto& [id, problem] : collection.Problems()) {
    if (id == nExcludedId) continue;
    const double similarity = PositionSimilarity(position, PlacementOfBoard(problem->start));
    if (similarity >= kSimilarityThreshold) hits.push_back({problem.get(), similarity});
  }
  std::stable_sort(hits.begin(), hits.end(), [](const TSearchHit& a, const TSearchHit& b) {
    return a.similarity > b.similarity;
  });
  return hits;
}
