#include "app/SearchReport.h"

#include <cstdio>

#include "core/SafeFile.h"
#include "problems/HeuristicCatalogue.h"

namespace {

// The middle words of each counted range's line, in field order.
constexpr const char* kCountNames[kCountFields] = {
    "pieces",        "white pieces",        "black pieces",
    "figures",       "white figures",       "black figures",
    "major figures", "white major figures", "black major figures",
    "pawns",         "white pawns",         "black pawns",
};

const char* UseMark(EHeuristicUse use) {
  switch (use) {
    case EHeuristicUse::Alone:
      return " without other heuristics";
    case EHeuristicUse::WithOthers:
      break;
    case EHeuristicUse::Partially:
      return " partially with other heuristics";
  }
  return " with other heuristics";
}

std::vector<std::string> HeuristicLines(const TSearchCriteria& criteria) {
  std::vector<std::string> lines{"Search by the following heuristics:"};
  for (const THeuristicWanted& wanted : criteria.heuristics)
    lines.push_back("\t" + std::string(heuristics::NameOfBit(1u << wanted.nIndex)) +
                    UseMark(wanted.use));
  if (criteria.bIncludeRelaxed) lines.push_back("\tIncl.relaxed heuristics");
  return lines;
}

std::optional<std::string> WriteLines(const std::filesystem::path& path,
                                      const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return safefile::Save(path.string(), text);
}

}  // namespace

std::vector<std::string> CriteriaLines(const TSearchQuery& query) {
  const TSearchCriteria& criteria = query.criteria;
  std::vector<std::string> lines;
  if (!criteria.text.empty())
    lines.push_back("Search for problems by FEN or with description containing: " + criteria.text +
                    (criteria.bCaseSensitive ? " (case sensitive)" : "") +
                    (criteria.bRegex ? " (regular expression)" : ""));
  if (query.moves)
    lines.push_back("Search by stipulation (num.of moves) : from #" +
                    std::to_string(query.moves->nFrom) + " to #" +
                    std::to_string(query.moves->nTo));
  for (int field = 0; field < kCountFields; ++field)
    if (const auto& range = query.counts[field])
      lines.push_back(std::string("Search by num.of ") + kCountNames[field] + " on board: from " +
                      std::to_string(range->nFrom) + " to " + std::to_string(range->nTo));
  if (criteria.bBlackKingOnEdge) lines.push_back("Search positions when black king on band only");
  if (criteria.bUnsolvedOnly)
    lines.push_back(
        "Search for unsolved problems only (solved problems are marked with book(s) sign in the "
        "left bottom corner)");
  if (!criteria.fen.empty()) lines.push_back("Search by FEN code: " + criteria.fen);
  if (!criteria.tag.empty())
    lines.push_back("Search for problems tagged/labelled with: " + criteria.tag);
  if (!criteria.heuristics.empty())
    for (const std::string& line : HeuristicLines(criteria)) lines.push_back(line);
  if (criteria.bForcedSafeMode) lines.push_back("Search positions with forced SafeMode only");
  return lines;
}

std::vector<std::string> ResultLines(const TSearchResult& result) {
  const std::string count = std::to_string(result.hits.size());
  if (result.hits.empty()) return {"No problem found that matches search criteria"};
  if (result.bSimilarOnly)
    return {"Only similar positions found", "Found similar problems: " + count};
  return {"Found problems that match criteria: " + count +
          " (use F3/Shift+F3 to navigate to next/previous matching problem)"};
}

std::string HitLine(const TSearchHit& hit) {
  const TProblem& problem = *hit.pProblem;
  const std::string stipulation =
      problem.stipulation.type == TStipulation::kMoveLine ? "line" : problem.stipulation.Text();
  char head[64];
  std::snprintf(head, sizeof head, "%6d  %-5s %2d  ", problem.id, stipulation.c_str(),
                problem.PieceCount());
  std::string line = head + problem.description;
  if (hit.similarity < 1.0) {
    char similarity[32];
    std::snprintf(similarity, sizeof similarity, "  (similarity %.2f)", hit.similarity);
    line += similarity;
  }
  return line;
}

std::string HeuristicsText(const TProblem& problem) {
  std::string text;
  for (const auto& [nIndex, words] : problem.heuristicSettings) {
    std::string arguments;
    for (const std::string& word : words) arguments += (arguments.empty() ? "" : " ") + word;
    text += (text.empty() ? "" : " ") + std::string(heuristics::NameOfBit(1u << nIndex)) + "(" +
            arguments + ")";
  }
  return text;
}

std::optional<std::string> WriteSearchReports(const std::filesystem::path& folder,
                                              const TSearchQuery& query,
                                              const TSearchResult& result) {
  std::vector<std::string> lines = CriteriaLines(query);
  if (result.bSimilarOnly) lines.push_back("Similar positions only");
  for (const TSearchHit& hit : result.hits) lines.push_back(HitLine(hit));
  for (const std::string& line : ResultLines(result)) lines.push_back(line);
  auto error = WriteLines(folder / kSearchProblemsLogName, lines);
  if (query.criteria.heuristics.empty()) return error;
  lines = CriteriaLines(query);
  for (const TSearchHit& hit : result.hits)
    lines.push_back(std::to_string(hit.pProblem->id) + ": " + HeuristicsText(*hit.pProblem));
  const auto heuristicsError = WriteLines(folder / kSearchHeuristicsLogName, lines);
  return error ? error : heuristicsError;
}
