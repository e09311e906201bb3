#include <chrono>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

#include "app/PublishedKeys.h"
#include "app/SolverRun.h"
#include "app/TablesService.h"
#include "app/TsvTable.h"
#include "cli/BenchSolverArguments.h"
#include "cli/Commands.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "engine/HeuristicChoice.h"
#include "engine/HeuristicPlan.h"
#include "engine/MateSolver.h"
#include "registers/AggregatedTemporaryChessboardRegister.h"

namespace {

struct TBenchMoremoversArguments {
  std::string set = "../shared/data/moremovers.tsv";
  std::string only;
  int nSeconds = 300;
  int nThreads = 2;
  std::string heuristics = "auto";
  bool bNoPass2 = false;
  bool bNoDynamicDlfu = false;
  TBenchSolverArguments solver{.nRegisterElements = 4'000'000};
};

struct TRowResult {
  std::string pass = "-";  // the pass that found the key
  double seconds = 0;
  std::uint64_t nPositions = 0;
  std::string verdict;  // "published", "COOKED ...", "no key", "time"
  bool bPublished = false;
};

TRowResult SolveRow(const CTsvTable::TRow& row, const TBenchMoremoversArguments& args,
                    const heuristicchoice::TNamedSet& named, CTablesService* tables) {
  TChessboard start;
  ClearChessboard(start);
  if (!fen::ReadFen(start, row.at("fen")))
    throw std::runtime_error("Improper FEN code: " + row.at("id"));
  const int nMoves = std::stoi(row.at("n"));
  // As a user's solve: the doubtful answers of the heuristic passes kept for their next turns,
  // and quick mode where the position allows it.
  TAggregatedTemporaryChessboardRegister reg(
      static_cast<std::uint32_t>(args.solver.nRegisterElements));
  CMateSolver solver(start, nMoves,
                     {.nThreads = args.nThreads,
                      .nMaxSolutions = 1,
                      .pRegister = &reg,
                      .pDoubtful = &reg,
                      .pTables = tables,
                      .nSchedulerLevels = args.solver.nSchedulerLevels,
                      .bCustomScheduler = args.solver.CustomScheduler(),
                      .heuristicPasses = heuristicchoice::PassesFor(start, nMoves, {}, named,
                                                                    !args.bNoDynamicDlfu),
                      .bPass2 = !args.bNoPass2,
                      .bQuickMode = !heuristicchoice::ForcesSafeMode(start),
                      .nFirstPassMs = heuristicplan::kFirstPassMs});
  const auto begin = std::chrono::steady_clock::now();
  TRowResult result;
  TRootOutcome outcome;
  {
    CSolverRun run(solver);
    if (!run.WaitFor(std::chrono::seconds(args.nSeconds))) solver.Stop();
    outcome = run.TakeOutcome();
  }
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  result.nPositions = outcome.nPositions;
  if (outcome.keys.empty()) {
    result.verdict = outcome.bInterrupted ? "time" : "no key";
    return result;
  }
  result.pass = outcome.passLabel;
  result.bPublished = MatchesPublishedKeys({outcome.keys[0]}, ReadPublishedKeys(row.at("keys")));
  result.verdict =
      result.bPublished ? "published" : "COOKED by " + notation::MoveToText(start, outcome.keys[0]);
  return result;
}

void RunBenchMoremovers(const TBenchMoremoversArguments& args) {
  const heuristicchoice::TNamedSet named = heuristicchoice::ReadNamedSet(args.heuristics);
  if (!named.sError.empty()) {
    std::cerr << "--heuristics: cannot read " << named.sError << "\n";
    throw CommandExit{2};
  }
  const std::unique_ptr<CTablesService> tables = LoadBenchTables(args.solver);
  std::printf("%-12s %3s %5s %8s %12s  %s\n", "problem", "#", "pass", "seconds", "positions",
              "key");
  int nRows = 0, nPublished = 0;
  std::string solved;
  const CTsvTable table = CTsvTable::Read(args.set);
  for (const auto& row : table.Rows()) {
    if (!args.only.empty() && row.at("id").find(args.only) == std::string::npos) continue;
    const TRowResult result = SolveRow(row, args, named, tables.get());
    ++nRows;
    if (result.bPublished) {
      ++nPublished;
      solved += (solved.empty() ? "" : " ") + row.at("id");
    }
    std::printf("%-12s %3s %5s %8.1f %12llu  %s\n", row.at("id").c_str(), row.at("n").c_str(),
                result.pass.c_str(), result.seconds,
                static_cast<unsigned long long>(result.nPositions), result.verdict.c_str());
    std::fflush(stdout);
  }
  std::printf("published key for %d of %d rows within %d s each (%d threads, heuristics %s%s)\n",
              nPublished, nRows, args.nSeconds, args.nThreads, args.heuristics.c_str(),
              args.bNoPass2 ? ", no pass 2" : "");
  std::printf("rows: %s\n", solved.c_str());
}

}  // namespace

void AddBenchMoremoversCommand(CLI::App& bench) {
  auto args = std::make_shared<TBenchMoremoversArguments>();
  CLI::App* command = bench.add_subcommand(
      "moremovers", "Solve long direct mates for one key each, within a time limit per row");
  command->add_option("--set", args->set, "Table of problems (id, fen, n, keys)");
  command->add_option("--only", args->only, "Solve only the rows whose id contains this text");
  command->add_option("--time-limit", args->nSeconds, "Seconds per row")
      ->check(CLI::Range(1, 24 * 3600));
  command->add_option("--threads", args->nThreads, "Threads")->check(CLI::Range(1, 64));
  command->add_option("--heuristics", args->heuristics,
                      "auto (the position decides), none, or names of the catalogue");
  command->add_flag("--no-pass2", args->bNoPass2, "Skip the pass without heuristics");
  command->add_flag("--no-dynamic-dlfu", args->bNoDynamicDlfu,
                    "Never set SH_DONTLETFIGUREUNBLOCK during the analysis");
  AddBenchSolverOptions(*command, args->solver);
  command->callback([args] { RunBenchMoremovers(*args); });
}
