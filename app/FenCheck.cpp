#include "app/FenCheck.h"

#include <variant>

#include "app/FenScan.h"
#include "app/ProblemSearch.h"

TFenCheck CheckFens(const TProblemCollection& collection, std::string_view text) {
  TFenCheck check;
  for (const TFenFound& fen : FindFens(text)) {
    TFenCheckLine line;
    line.nLine = fen.nLine;
    line.placement = fen.placement;
    TSearchCriteria criteria;
    criteria.fen = fen.placement;
    const auto checked = CheckCriteria(criteria);
    if (const auto* query = std::get_if<TSearchQuery>(&checked)) {
      const CProblemSearch search(*query);
      for (const auto& [id, problem] : collection.Problems())
        if (search.Matches(*problem)) line.problems.push_back(id);
    } else {
      line.bPosition = false;
    }
    check.nFound += !line.problems.empty();
    check.lines.push_back(std::move(line));
  }
  return check;
}

std::string FenCheckLineText(const TFenCheckLine& line) {
  std::string where;
  for (int id : line.problems) where += (where.empty() ? "" : ", ") + std::to_string(id);
  if (!line.bPosition)
    where = "not a position";
  else
    where = where.empty() ? "not found" : "problem " + where;
  return "line " + std::to_string(line.nLine) + ": " + line.placement + ": " + where;
}

std::string FenCheckSummary(const TFenCheck& check, const std::string& name) {
  return std::to_string(check.nFound) + " of " + std::to_string(check.lines.size()) +
         " FEN codes of " + name + " found";
}
