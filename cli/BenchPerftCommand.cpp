#include <cstdio>
#include <limits>
#include <map>
#include <memory>

#include "app/MedianTiming.h"
#include "app/TsvTable.h"
#include "cli/Commands.h"
#include "core/Perft.h"

namespace {

struct TBenchPerftArguments {
  std::string file = "../shared/data/perft.tsv";
  std::int64_t nMaxNodes = 120'000'000;  // signed, so that "-5" is refused instead of wrapped
  int nRuns = 5;
};

struct TPerftCase {
  std::string name, fen;
  int depth;
  std::uint64_t nExpected;
};

// The deepest row of each position whose count stays within the node budget.
std::vector<TPerftCase> SelectCases(const CTsvTable& table, std::int64_t nMaxNodes) {
  std::map<std::string, TPerftCase> deepest;
  std::vector<std::string> order;
  for (const auto& row : table.Rows()) {
    const TPerftCase c{row.at("name"), row.at("fen"), std::stoi(row.at("depth")),
                       std::stoull(row.at("nodes"))};
    if (c.nExpected > static_cast<std::uint64_t>(nMaxNodes)) continue;
    if (!deepest.count(c.name)) order.push_back(c.name);
    if (!deepest.count(c.name) || deepest[c.name].depth < c.depth) deepest[c.name] = c;
  }
  std::vector<TPerftCase> cases;
  for (const auto& name : order) cases.push_back(deepest[name]);
  return cases;
}

void RunBenchPerft(const TBenchPerftArguments& args) {
  const auto cases = SelectCases(CTsvTable::Read(args.file), args.nMaxNodes);
  if (cases.empty()) {
    std::fprintf(stderr, "No position of %s counts %lld nodes or fewer\n", args.file.c_str(),
                 static_cast<long long>(args.nMaxNodes));
    throw CommandExit{2};
  }
  std::printf("%-10s %5s %12s %10s %12s\n", "position", "depth", "nodes", "median s", "nodes/s");
  std::uint64_t nTotalNodes = 0;
  double totalSeconds = 0;
  bool bAllMatch = true;
  for (const auto& c : cases) {
    const perft::CPerftPosition position(c.fen, c.depth);
    std::uint64_t nodes = 0;
    const double median =
        MedianSeconds(args.nRuns, [&] { nodes = perft::Perft(position.Root(), c.depth); });
    const bool bMatch = nodes == c.nExpected;
    bAllMatch = bAllMatch && bMatch;
    std::printf("%-10s %5d %12llu %10.3f %12.0f%s\n", c.name.c_str(), c.depth,
                static_cast<unsigned long long>(nodes), median, nodes / median,
                bMatch ? "" : "  WRONG COUNT");
    nTotalNodes += nodes;
    totalSeconds += median;
  }
  std::printf("%-10s %5s %12llu %10.3f %12.0f\n", "total", "",
              static_cast<unsigned long long>(nTotalNodes), totalSeconds,
              nTotalNodes / totalSeconds);
  if (!bAllMatch) throw CommandExit{1};
}

}  // namespace

void AddBenchPerftCommand(CLI::App& bench) {
  auto args = std::make_shared<TBenchPerftArguments>();
  CLI::App* command = bench.add_subcommand("perft", "Perft suite, single thread, median of runs");
  command->add_option("--file", args->file, "Perft table (name, fen, depth, nodes)");
  command->add_option("--max-nodes", args->nMaxNodes, "Largest node count to run")
      ->check(CLI::Range(std::int64_t{1}, std::numeric_limits<std::int64_t>::max()));
  command->add_option("--runs", args->nRuns, "Runs per position")->check(CLI::Range(1, 99));
  command->callback([args] { RunBenchPerft(*args); });
}
