#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "app/MedianTiming.h"
#include "cli/Commands.h"
#include "problems/Collection.h"

namespace {

struct TBenchReadArguments {
  int nProblems = 10'000;
  int nRuns = 5;
};

// Positions with varied material, so that reading exercises the whole FEN reader.
const char* const kPositions[] = {
    "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8",
    "8/8/8/8/8/2k5/8/KR6",
    "r3k2r/pppq1ppp/2n2n2/3pp3/3PP3/2N2N2/PPPQ1PPP/R3K2R",
    "7k/5K2/6Q1/8/8/8/8/8",
    "1n2k3/2P5/8/8/8/8/5PPP/4K2R",
    "8/1p6/1P6/K1k5/8/8/8/8",
};

// A collection text of n problems with options, directives, descriptions and answers.
std::string GenerateText(int nProblems) {
  std::string text = "UTF-8\n\n";
  for (int id = 1; id <= nProblems; ++id) {
    const int moves = 2 + id % 7;
    text += std::to_string(id) + " #" + std::to_string(moves) +
            (id % 3 == 0 ? " NoMirror AllSolutions THREADS 4" : "") + "\n";
    if (id % 5 == 0) text += "//#TAGS\n//#generated\n//@SortIndications: 1. Qd1-d7+, ~Rh5\n";
    text += "{\n\tDescription: Generated problem number " + std::to_string(id) +
            "\n\tFEN: " + kPositions[id % std::size(kPositions)] + "\n";
    if (id % 2 == 0) text += "\tAnswer: a1-a2, b1-b3\n";
    text += "}\n";
  }
  return text;
}

void RunBenchRead(const TBenchReadArguments& args) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                       ("longmate_bench_read_" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  const std::string source = (folder / "generated.cp").string();
  const std::string target = (folder / "written.cp").string();
  std::ofstream(source, std::ios::binary) << GenerateText(args.nProblems);

  TProblemCollection collection;
  bool bFailed = false;
  const double readSeconds = MedianSeconds(args.nRuns, [&] {
    collection.Clear();
    bFailed = collection.ReadFile(source, {}).has_value() || bFailed;
  });
  const double writeSeconds = MedianSeconds(
      args.nRuns, [&] { bFailed = collection.WriteFile(target).has_value() || bFailed; });
  const auto bytes = std::filesystem::file_size(target);
  std::filesystem::remove_all(folder);

  std::printf("%-6s %9s %10s %10s %12s\n", "step", "problems", "MB", "median s", "problems/s");
  std::printf("%-6s %9zu %10.2f %10.3f %12.0f\n", "read", collection.Size(), bytes / 1e6,
              readSeconds, collection.Size() / readSeconds);
  std::printf("%-6s %9zu %10.2f %10.3f %12.0f\n", "write", collection.Size(), bytes / 1e6,
              writeSeconds, collection.Size() / writeSeconds);
  std::printf("target: under 1 s each for 10000 problems\n");
  if (bFailed || collection.Size() != static_cast<std::size_t>(args.nProblems)) {
    std::printf("FAILED: the generated collection did not read or write back whole\n");
    throw CommandExit{1};
  }
}

}  // namespace

void AddBenchReadCommand(CLI::App& bench) {
  auto args = std::make_shared<TBenchReadArguments>();
  CLI::App* command =
      bench.add_subcommand("read", "Read and write a generated problem collection, median of runs");
  command->add_option("--problems", args->nProblems, "Problems in the collection")
      ->check(CLI::Range(1, 1'000'000));
  command->add_option("--runs", args->nRuns, "Runs of each step")->check(CLI::Range(1, 99));
  command->callback([args] { RunBenchRead(*args); });
}
