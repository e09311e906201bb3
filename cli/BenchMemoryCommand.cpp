#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "app/TsvTable.h"
#include "app/platform/Machine.h"
#include "app/platform/ProcessMemory.h"
#include "cli/Commands.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "engine/MateSolver.h"
#include "registers/AggregatedTemporaryChessboardRegister.h"

namespace {

struct TBenchMemoryArguments {
  std::string set = "../shared/data/directmates.tsv";
  std::string row = "mt-01525";
  std::vector<int> quotas = {4, 16, 64};  // MiB
  int nThreads = 2;
};

struct TMemoryRun {
  std::vector<TMove> keys;
  double seconds = 0;
  std::uint32_t nLimit = 0;
  std::uint32_t nPeakElements = 0;
  std::uint64_t nBaseBytes = 0;  // resident before the register was made
  std::uint64_t nPeakBytes = 0;
};

constexpr double kMiB = 1024.0 * 1024.0;

// One solve (all solutions) with a register of the given entry limit, measuring the
// process's resident memory from just before the register is made.
TMemoryRun SolveWithin(const TChessboard& start, int nMoves, int nThreads, std::uint32_t nLimit) {
  TMemoryRun run;
  platform::ReleaseFreeMemory();
  if (!platform::ResetPeakResident()) {
    std::cerr << "The peak resident memory cannot be reset on this system\n";
    throw CommandExit{1};
  }
  run.nBaseBytes = platform::ResidentBytes();
  const auto begin = std::chrono::steady_clock::now();
  {
    TAggregatedTemporaryChessboardRegister reg(nLimit);
    CMateSolver solver(start, nMoves,
                       {.nThreads = nThreads, .nMaxSolutions = 0, .pRegister = &reg});
    run.keys = solver.Run().keys;
    run.nPeakElements = reg.GetPeakElementsIn();
    run.nPeakBytes = platform::PeakResidentBytes();
  }
  run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  run.nLimit = nLimit;
  std::sort(run.keys.begin(), run.keys.end(), [](TMove a, TMove b) { return a.Code() < b.Code(); });
  return run;
}

std::string KeyTexts(const TChessboard& start, const std::vector<TMove>& keys) {
  const std::string text = notation::MovesToText(start, keys, " ");
  return text.empty() ? "-" : text;
}

void PrintRun(const char* quota, const TMemoryRun& run, const std::string& keys, bool bSame) {
  const double nHeld =
      static_cast<double>(run.nPeakBytes - std::min(run.nPeakBytes, run.nBaseBytes));
  std::printf("%9s %11u %11u %9.1f %9.1f %9.1f %8.2f  %s%s\n", quota, run.nLimit, run.nPeakElements,
              static_cast<double>(run.nBaseBytes) / kMiB,
              static_cast<double>(run.nPeakBytes) / kMiB, nHeld / kMiB, run.seconds, keys.c_str(),
              bSame ? "" : "  DIFFERENT KEYS");
}

void RunBenchMemory(const TBenchMemoryArguments& args) {
  const CTsvTable table = CTsvTable::Read(args.set);
  const auto found = std::find_if(table.Rows().begin(), table.Rows().end(),
                                  [&](const auto& row) { return row.at("id") == args.row; });
  if (found == table.Rows().end()) {
    std::cerr << "No row " << args.row << " in " << args.set << "\n";
    throw CommandExit{2};
  }
  TChessboard start;
  ClearChessboard(start);
  if (!fen::ReadFen(start, found->at("fen")))
    throw std::runtime_error("Improper FEN code: " + args.row);
  const int nMoves = std::stoi(found->at("n"));
  const std::uint64_t nMemory = platform::TotalPhysicalMemoryBytes();

  std::printf("%s #%d, %d thread(s), all solutions, no endgame tables\n", args.row.c_str(), nMoves,
              args.nThreads);
  std::printf("%9s %11s %11s %9s %9s %9s %8s  %s\n", "quota MiB", "limit", "peak entr.", "base MiB",
              "peak MiB", "held MiB", "seconds", "keys");
  const TMemoryRun free =
      SolveWithin(start, nMoves, args.nThreads, std::numeric_limits<std::uint32_t>::max());
  const std::string freeKeys = KeyTexts(start, free.keys);
  PrintRun("none", free, freeKeys, true);
  bool bAllSame = true;
  for (const int nQuota : args.quotas) {
    const std::uint32_t nLimit =
        TChessboardRegister<bool>::MaxElementsForQuota(nMemory, static_cast<std::uint64_t>(nQuota));
    const TMemoryRun run = SolveWithin(start, nMoves, args.nThreads, nLimit);
    const bool bSame = run.keys == free.keys;
    bAllSame = bAllSame && bSame;
    PrintRun(std::to_string(nQuota).c_str(), run, KeyTexts(start, run.keys), bSame);
    std::fflush(stdout);
  }
  std::printf("held: peak resident memory of the solve less what the process held before it\n");
  if (!bAllSame) throw CommandExit{1};
}

}  // namespace

void AddBenchMemoryCommand(CLI::App& bench) {
  auto args = std::make_shared<TBenchMemoryArguments>();
  CLI::App* command = bench.add_subcommand(
      "memory", "Solve one problem under several register quotas: peak resident memory and keys");
  command->add_option("--set", args->set, "Table of problems (id, fen, n)");
  command->add_option("--row", args->row, "The id of the row to solve");
  command->add_option("--quotas", args->quotas, "Register quotas in MiB")
      ->delimiter(',')
      ->check(CLI::Range(1, 1 << 20));
  command->add_option("--threads", args->nThreads, "Search threads")->check(CLI::Range(1, 64));
  command->callback([args] { RunBenchMemory(*args); });
}
