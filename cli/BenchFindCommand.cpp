#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "app/MedianTiming.h"
#include "app/ProblemSearch.h"
#include "cli/Commands.h"
#include "cli/GeneratedCollection.h"
#include "core/ChessboardId.h"
#include "problems/Collection.h"

namespace {

struct TBenchFindArguments {
  int nProblems = 100'000;
  int nRuns = 5;
};

struct TBenchCase {
  std::string name;
  TSearchCriteria criteria;
  bool bSimilar = false;  // "Find similar positions" rather than a search
};

std::vector<TBenchCase> BenchCases(const TProblemCollection& collection) {
  const TProblem& first = *collection.Problems().begin()->second;
  std::vector<TBenchCase> cases;
  const auto Add = [&](const std::string& name, auto fill) {
    TSearchCriteria criteria;
    fill(criteria);
    cases.push_back({name, criteria});
  };
  Add("text", [](TSearchCriteria& c) { c.text = "NUMBER 4242"; });
  Add("text, case", [](TSearchCriteria& c) {
    c.text = "number 4242";
    c.bCaseSensitive = true;
  });
  Add("regex", [](TSearchCriteria& c) {
    c.text = "number 4[0-9]42$";
    c.bRegex = true;
  });
  Add("position id",
      [&](TSearchCriteria& c) { c.text = TChessboardId(first.start).ToAlphanum6(); });
  Add("mate range", [](TSearchCriteria& c) { c.moves = {"3", "5"}; });
  Add("counts", [](TSearchCriteria& c) {
    c.counts[kPiecesTotal] = {"4", "12"};
    c.counts[kMajorsWhite] = {"1", ""};
    c.counts[kPawnsBlack] = {"", "2"};
  });
  Add("king edge", [](TSearchCriteria& c) { c.bBlackKingOnEdge = true; });
  Add("unsolved", [](TSearchCriteria& c) { c.bUnsolvedOnly = true; });
  Add("fen", [](TSearchCriteria& c) { c.fen = "8/8/8/8/8/2k5/8/KR6"; });
  Add("fen, similar", [](TSearchCriteria& c) { c.fen = "8/8/8/8/8/2k5/8/K1R5"; });
  Add("tag", [](TSearchCriteria& c) { c.tag = "Generated"; });
  Add("all", [](TSearchCriteria& c) {
    c.text = "problem";
    c.moves = {"2", "8"};
    c.counts[kFiguresTotal] = {"3", ""};
    c.bUnsolvedOnly = true;
    c.tag = "generated";
  });
  cases.push_back({"find similar", {}, true});
  return cases;
}

void RunBenchFind(const TBenchFindArguments& args) {
  TProblemCollection collection;
  if (collection.ReadText(GeneratedCollectionText(args.nProblems), "generated.cp") ||
      collection.Size() != static_cast<std::size_t>(args.nProblems)) {
    std::printf("FAILED: the generated collection did not read whole\n");
    throw CommandExit{1};
  }
  std::printf("%-14s %9s %9s %10s\n", "criteria", "problems", "hits", "median s");
  double slowest = 0;
  for (const TBenchCase& benchCase : BenchCases(collection)) {
    const TSearchQuery query = std::get<TSearchQuery>(CheckCriteria(benchCase.criteria));
    std::size_t nHits = 0;
    const double seconds = MedianSeconds(args.nRuns, [&] {
      if (benchCase.bSimilar) {
        TPlacement placement;
        const TProblem& first = *collection.Problems().begin()->second;
        std::copy(std::begin(first.start.squares), std::end(first.start.squares),
                  placement.begin());
        nHits = CProblemSearch::FindSimilar(placement, collection, first.id).size();
      } else {
        nHits = CProblemSearch(query).Run(collection).hits.size();
      }
    });
    slowest = std::max(slowest, seconds);
    std::printf("%-14s %9zu %9zu %10.3f\n", benchCase.name.c_str(), collection.Size(), nHits,
                seconds);
  }
  std::printf("target: under 1 s for each search of 100000 problems; slowest %.3f s\n", slowest);
}

}  // namespace

void AddBenchFindCommand(CLI::App& bench) {
  auto args = std::make_shared<TBenchFindArguments>();
  CLI::App* command = bench.add_subcommand(
      "find", "Search a generated problem collection with each criterion, median of runs");
  command->add_option("--problems", args->nProblems, "Problems in the collection")
      ->check(CLI::Range(1, 1'000'000));
  command->add_option("--runs", args->nRuns, "Runs of each search")->check(CLI::Range(1, 99));
  command->callback([args] { RunBenchFind(*args); });
}
