#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>

#include "app/MedianTiming.h"
#include "app/PublishedKeys.h"
#include "app/TablesService.h"
#include "app/TsvTable.h"
#include "cli/BenchSolverArguments.h"
#include "cli/Commands.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "engine/MateSolver.h"

namespace {

struct TBenchSolveArguments {
  std::string set = "../shared/data/directmates.tsv";
  std::string only;
  bool bAllRows = false;
  int nThreads = 1;
  int nRuns = 1;
  TBenchSolverArguments solver{.nRegisterElements = 20'000'000};
};

struct TTiming {
  double seconds = 0;  // median of the runs
  std::uint64_t nPositions = 0;
  std::vector<TMove> keys;
  std::uint32_t nRegisterPeak = 0;
};

// All solutions with a fresh register per run, so that runs do not help each other. The
// endgame tables of the working folder stay loaded from one solve to the next.
TTiming Solve(const TChessboard& start, int nMoves, int nThreads, const TBenchSolveArguments& args,
              CTablesService* tables) {
  TTiming timing;
  timing.seconds = MedianSeconds(args.nRuns, [&] {
    TChessboardRegister<bool> reg(static_cast<std::uint32_t>(args.solver.nRegisterElements));
    CMateSolver solver(start, nMoves,
                       {.nThreads = nThreads,
                        .nMaxSolutions = 0,
                        .pRegister = &reg,
                        .pTables = tables,
                        .nSchedulerLevels = args.solver.nSchedulerLevels,
                        .bCustomScheduler = args.solver.CustomScheduler()});
    const TRootOutcome outcome = solver.Run();
    timing.nPositions = outcome.nPositions;
    timing.keys = outcome.keys;
    timing.nRegisterPeak = std::max(timing.nRegisterPeak, reg.GetPeakElementsIn());
  });
  return timing;
}

bool Selected(const CTsvTable::TRow& row, const TBenchSolveArguments& args) {
  if (!args.only.empty()) return row.at("id").find(args.only) != std::string::npos;
  return args.bAllRows || !row.count("bench") || row.at("bench") == "yes";
}

double ReferenceSeconds(const CTsvTable::TRow& row) {
  const auto found = row.find("popeye_seconds");
  if (found == row.end() || found->second.empty() || found->second == "timeout") return 0;
  return std::stod(found->second);
}

std::vector<CTsvTable::TRow> SelectedRows(const TBenchSolveArguments& args) {
  const CTsvTable table = CTsvTable::Read(args.set);
  std::vector<CTsvTable::TRow> rows;
  for (const auto& row : table.Rows())
    if (Selected(row, args)) rows.push_back(row);
  if (rows.empty()) {
    std::cerr << "No row of " << args.set << " is selected"
              << (args.only.empty() ? "" : " by --only " + args.only) << "\n";
    throw CommandExit{2};
  }
  return rows;
}

void RunBenchSolve(const TBenchSolveArguments& args) {
  const std::vector<CTsvTable::TRow> rows = SelectedRows(args);
  const bool bCompare = args.nThreads > 1;
  std::printf("%-20s %3s %9s %12s %11s %9s %7s", "problem", "#", "seconds", "positions", "pos/s",
              "ref s", "ratio");
  if (bCompare) std::printf(" %9s %8s", "T thr s", "speedup");
  std::printf("\n");
  // Rows without a reference time (the reference could not solve them) are totalled apart,
  // so that the ratio compares the same problems.
  double total = 0, referenceTotal = 0, unreferencedTotal = 0, threadedTotal = 0;
  int nWrong = 0, nSlower = 0;
  std::uint32_t nPeak = 0;
  const std::unique_ptr<CTablesService> tables = LoadBenchTables(args.solver);
  for (const auto& row : rows) {
    TChessboard start;
    ClearChessboard(start);
    if (!fen::ReadFen(start, row.at("fen")))
      throw std::runtime_error("Improper FEN code: " + row.at("id"));
    const int nMoves = std::stoi(row.at("n"));
    const TTiming single = Solve(start, nMoves, 1, args, tables.get());
    const std::vector<TMove> published = ReadPublishedKeys(row.at("keys"));
    bool bRight = MatchesPublishedKeys(single.keys, published);
    const double reference = ReferenceSeconds(row);
    nSlower += reference > 0 && single.seconds > reference ? 1 : 0;
    nPeak = std::max(nPeak, single.nRegisterPeak);
    (reference > 0 ? total : unreferencedTotal) += single.seconds;
    referenceTotal += reference;
    std::printf("%-20s %3d %9.3f %12llu %11.0f %9.3f %7.3f", row.at("id").c_str(), nMoves,
                single.seconds, static_cast<unsigned long long>(single.nPositions),
                single.nPositions / single.seconds, reference,
                reference > 0 ? single.seconds / reference : 0);
    if (bCompare) {
      const TTiming threaded = Solve(start, nMoves, args.nThreads, args, tables.get());
      bRight = bRight && MatchesPublishedKeys(threaded.keys, published);
      threadedTotal += threaded.seconds;
      std::printf(" %9.3f %8.2f", threaded.seconds, single.seconds / threaded.seconds);
    }
    std::printf(
        "%s\n",
        bRight ? "" : ("  WRONG: " + notation::MovesToText(start, single.keys, " ")).c_str());
    std::fflush(stdout);
    nWrong += bRight ? 0 : 1;
  }
  std::printf(
      "total %.3f s, reference %.3f s, ratio %.3f; rows without a reference %.3f s; %d wrong, "
      "%d slower than the reference; register peak %u entries\n",
      total, referenceTotal, referenceTotal > 0 ? total / referenceTotal : 0, unreferencedTotal,
      nWrong, nSlower, nPeak);
  if (bCompare)
    std::printf("with %d threads: total %.3f s, speed-up %.2f\n", args.nThreads, threadedTotal,
                (total + unreferencedTotal) / threadedTotal);
  if (nWrong > 0) throw CommandExit{1};
}

}  // namespace

void AddBenchSolveCommand(CLI::App& bench) {
  auto args = std::make_shared<TBenchSolveArguments>();
  CLI::App* command =
      bench.add_subcommand("solve", "Solve the benchmark rows (all solutions), single-threaded");
  command->add_option("--set", args->set,
                      "Table of problems (id, fen, n, keys, bench, popeye_seconds)");
  command->add_option("--only", args->only, "Solve only the rows whose id contains this text");
  command->add_flag("--all-rows", args->bAllRows,
                    "Solve every row, not only those marked for the benchmark");
  command
      ->add_option("--threads", args->nThreads,
                   "Also solve with this many threads and print the speed-up")
      ->check(CLI::Range(1, 64));
  command->add_option("--runs", args->nRuns, "Runs per problem; the median is printed")
      ->check(CLI::Range(1, 99));
  AddBenchSolverOptions(*command, args->solver);
  command->callback([args] { RunBenchSolve(*args); });
}
