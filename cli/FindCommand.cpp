#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "app/FenCheck.h"
#include "app/Options.h"
#include "app/ProblemSearch.h"
#include "app/SearchReport.h"
#include "cli/Commands.h"
#include "problems/Collection.h"
#include "problems/HeuristicCatalogue.h"

namespace {

struct TFindArguments {
  std::string file;
  TSearchCriteria criteria;
  std::string moves;
  std::array<std::string, kCountFields> counts;
  std::vector<std::string> heuristics;
  std::string similar;
  std::string fensFrom;
};

// The option of each counted range and what it counts, in field order. A range is N,
// FROM..TO, FROM.. or ..TO.
constexpr struct {
  const char* szName;
  const char* szHelp;
} kCountOptions[kCountFields] = {
    {"--pieces", "pieces on the board, kings included (a range)"},
    {"--white-pieces", "white pieces"},
    {"--black-pieces", "black pieces"},
    {"--figures", "figures: pieces other than pawns, kings included"},
    {"--white-figures", "white figures"},
    {"--black-figures", "black figures"},
    {"--majors", "major figures: rooks and queens"},
    {"--white-majors", "white major figures"},
    {"--black-majors", "black major figures"},
    {"--pawns", "pawns"},
    {"--white-pawns", "white pawns"},
    {"--black-pawns", "black pawns"},
};

[[noreturn]] void BadInput(const std::string& text) {
  std::cerr << text << "\n";
  throw CommandExit{2};
}

// "3..5", "3", "3..", "..5": the ends as typed, checked with the criteria.
TRangeText RangeArgument(const std::string& text) {
  const auto dots = text.find("..");
  if (dots == std::string::npos) return {text, text};
  return {text.substr(0, dots), text.substr(dots + 2)};
}

// "NAME", "NAME:alone", "NAME:others" or "NAME:partial".
THeuristicWanted HeuristicArgument(const std::string& text) {
  const auto colon = text.find(':');
  const std::string name = text.substr(0, colon);
  const int nIndex = heuristics::IndexOfName(name);
  if (nIndex < 0) BadInput("--heuristic: no heuristic is called " + name);
  const std::string use = colon == std::string::npos ? "others" : text.substr(colon + 1);
  if (use == "alone") return {nIndex, EHeuristicUse::Alone};
  if (use == "others") return {nIndex, EHeuristicUse::WithOthers};
  if (use == "partial") return {nIndex, EHeuristicUse::Partially};
  BadInput("--heuristic " + text + ": say alone, others or partial after the colon");
}

TProblemCollection ReadCollection(const std::string& file) {
  TProblemCollection collection;
  if (const auto error = collection.ReadFile(file, {.nLanguageId = Options().nLanguageId}))
    BadInput(error->Describe());
  return collection;
}

// "--fens-from": every FEN of the other file, and the problems of this one that have it.
void PrintFenCheck(const TProblemCollection& collection, const std::string& other) {
  std::ifstream in(other, std::ios::binary);
  if (!in) BadInput("Cannot read " + other);
  std::stringstream text;
  text << in.rdbuf();
  const TFenCheck check = CheckFens(collection, text.str());
  for (const TFenCheckLine& line : check.lines) std::printf("%s\n", FenCheckLineText(line).c_str());
  std::printf("%s\n", FenCheckSummary(check, other).c_str());
}

void PrintResult(const TSearchQuery& query, const TSearchResult& result) {
  for (const TSearchHit& hit : result.hits) std::printf("%s\n", HitLine(hit).c_str());
  for (const std::string& line : ResultLines(result)) std::printf("%s\n", line.c_str());
  if (const auto error = WriteSearchReports(std::filesystem::current_path(), query, result))
    std::cerr << *error << "\n";
}

// "--similar FEN" or "--similar ID": the problems whose positions are like it.
TSearchResult FindSimilar(const TProblemCollection& collection, const std::string& similar) {
  if (!similar.empty() && std::all_of(similar.begin(), similar.end(),
                                      [](unsigned char c) { return std::isdigit(c) != 0; })) {
    const TProblem* problem = collection.Find(std::stoi(similar));
    if (!problem) BadInput("--similar: no problem " + similar);
    TPlacement placement;
    std::copy(std::begin(problem->start.squares), std::end(problem->start.squares),
              placement.begin());
    return {CProblemSearch::FindSimilar(placement, collection, problem->id), true};
  }
  const auto placement = PlacementOf(similar);
  if (!placement) BadInput(std::string("--similar: ") + kImproperFenText);
  return {CProblemSearch::FindSimilar(*placement, collection), true};
}

void RunFind(TFindArguments& args) {
  for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
  TSearchCriteria& criteria = args.criteria;
  if (!args.moves.empty()) criteria.moves = RangeArgument(args.moves);
  for (int field = 0; field < kCountFields; ++field)
    if (!args.counts[field].empty()) criteria.counts[field] = RangeArgument(args.counts[field]);
  for (const std::string& text : args.heuristics)
    criteria.heuristics.push_back(HeuristicArgument(text));
  const auto checked = CheckCriteria(criteria);
  if (const auto* refusal = std::get_if<std::string>(&checked)) BadInput(*refusal);
  const TSearchQuery& query = std::get<TSearchQuery>(checked);
  const TProblemCollection collection = ReadCollection(args.file);
  if (!args.fensFrom.empty()) return PrintFenCheck(collection, args.fensFrom);
  const TSearchResult result = args.similar.empty() ? CProblemSearch(query).Run(collection)
                                                    : FindSimilar(collection, args.similar);
  PrintResult(query, result);
  if (result.hits.empty()) throw CommandExit{1};
}

}  // namespace

// "longmate find FILE.cp [criteria...]": the problems of a file that match every criterion.
void AddFindCommand(CLI::App& app) {
  auto args = std::make_shared<TFindArguments>();
  CLI::App* command = app.add_subcommand("find", "Find the problems of a file that match criteria");
  command->add_option("file", args->file, "problem file (.cp)")->required();
  TSearchCriteria& criteria = args->criteria;
  command->add_option("--text", criteria.text,
                      "text in the description, or a FEN, or a position identifier");
  command->add_flag("--case", criteria.bCaseSensitive, "the text's case matters");
  command->add_flag("--regex", criteria.bRegex, "the text is a regular expression (ECMAScript)");
  command->add_option("--mate", args->moves, "the N of #N: N, FROM..TO, FROM.. or ..TO");
  for (int field = 0; field < kCountFields; ++field)
    command->add_option(kCountOptions[field].szName, args->counts[field],
                        kCountOptions[field].szHelp);
  command->add_flag("--king-on-edge", criteria.bBlackKingOnEdge, "the black king on the edge");
  command->add_flag("--unsolved", criteria.bUnsolvedOnly, "only problems without an answer");
  command->add_option("--fen", criteria.fen, "the position (placement) of a FEN");
  command->add_option("--tag", criteria.tag, "a tag of the problem");
  command->add_option("--heuristic", args->heuristics,
                      "NAME[:alone|:others|:partial], a heuristic the problem file gives");
  command->add_flag("--relaxed", criteria.bIncludeRelaxed,
                    "heuristics a problem turns OFF count as given");
  command->add_flag("--safe-mode", criteria.bForcedSafeMode, "only problems with SAFEMODE");
  command->add_option("--similar", args->similar,
                      "list the positions like a FEN's or a problem's (by id), best first");
  command->add_option("--fens-from", args->fensFrom,
                      "tell which FEN codes of another file (any text) are in this one");
  command->callback([args] { RunFind(*args); });
}
