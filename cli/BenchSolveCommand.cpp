#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>

#include "app/TsvTable.h"
#include "cli/Commands.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "engine/MateSolver.h"

namespace {

struct TBenchSolveArguments {
  std::string set = "../shared/data/directmates.tsv";
  bool bAllRows = false;
  int nThreads = 1;
  std::string only;
  std::uint32_t nRegisterElements = 20'000'000;
};

std::string SortedKeys(std::vector<std::string> keys) {
  for (auto& key : keys) std::replace(key.begin(), key.end(), ':', '-');
  std::sort(keys.begin(), keys.end());
  std::string text;
  for (const auto& key : keys) text += (text.empty() ? "" : " ") + key;
  return text;
}

void RunBenchSolve(const TBenchSolveArguments& args) {
  const CTsvTable table = CTsvTable::Read(args.set);
  std::printf("%-18s %3s %9s %12s %11s %9s %7s\n", "problem", "#", "seconds", "positions", "pos/s",
              "ref s", "ratio");
  double total = 0, referenceTotal = 0;
  int nWrong = 0, nSlower = 0;
  std::uint32_t nPeak = 0;
  for (const auto& row : table.Rows()) {
    if (!args.only.empty() && row.at("id").find(args.only) == std::string::npos) continue;
    if (args.only.empty() && !args.bAllRows && row.count("bench") && row.at("bench") != "yes") continue;
    TChessboard start;
    ClearChessboard(start);
    if (!fen::ReadFen(start, row.at("fen"))) throw std::runtime_error("Improper FEN code: " + row.at("id"));
    TChessboardRegister<bool> reg(args.nRegisterElements);
    CMateSolver solver(start, std::stoi(row.at("n")),
                       {.nThreads = args.nThreads, .nMaxSolutions = 0, .pRegister = &reg});
    const auto begin = std::chrono::steady_clock::now();
    const TRootOutcome outcome = solver.Run();
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    std::vector<std::string> keys;
    for (TMove key : outcome.keys) keys.push_back(notation::MoveToText(start, key));
    std::vector<std::string> published;
    std::string field = row.at("keys");
    for (size_t at = 0; at < field.size();) {
      const size_t end = std::min(field.find_first_of(" ,", at), field.size());
      if (end > at) published.push_back(field.substr(at, end - at));
      at = end + 1;
    }
    const bool bRight = SortedKeys(keys) == SortedKeys(published);
    const double reference = row.count("popeye_seconds") && !row.at("popeye_seconds").empty() &&
                                     row.at("popeye_seconds") != "timeout"
                                 ? std::stod(row.at("popeye_seconds"))
                                 : 0;
    nWrong += bRight ? 0 : 1;
    nSlower += reference > 0 && seconds > reference ? 1 : 0;
    nPeak = std::max(nPeak, reg.GetPeakElementsIn());
    total += seconds;
    referenceTotal += reference;
    std::printf("%-18s %3s %9.3f %12llu %11.0f %9.3f %7.3f%s\n", row.at("id").c_str(), row.at("n").c_str(),
                seconds, static_cast<unsigned long long>(outcome.nPositions), outcome.nPositions / seconds,
                reference, reference > 0 ? seconds / reference : 0, bRight ? "" : ("  WRONG: " + SortedKeys(keys)).c_str());
    std::fflush(stdout);
  }
  std::printf("total %.3f s, reference %.3f s, ratio %.3f; %d wrong, %d slower than the reference; register peak %u\n",
              total, referenceTotal, referenceTotal > 0 ? total / referenceTotal : 0, nWrong, nSlower, nPeak);
  if (nWrong > 0) throw CommandExit{1};
}

}  // namespace

void AddBenchSolveCommand(CLI::App& bench) {
  auto args = std::make_shared<TBenchSolveArguments>();
  CLI::App* command = bench.add_subcommand("solve", "Solve the benchmark rows (all solutions)");
  command->add_option("--set", args->set, "Table of problems (id, fen, n, keys, bench, popeye_seconds)");
  command->add_flag("--all-rows", args->bAllRows, "Solve every row, not only those marked for the benchmark");
  command->add_option("--only", args->only, "Solve only the rows whose id contains this text");
  command->add_option("--threads", args->nThreads, "Threads")->check(CLI::Range(1, 64));
  command->callback([args] { RunBenchSolve(*args); });
}
