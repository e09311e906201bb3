#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "app/MedianTiming.h"
#include "cli/Commands.h"
#include "cli/GeneratedCollection.h"
#include "problems/Collection.h"

namespace {

struct TBenchReadArguments {
  int nProblems = 10'000;
  int nRuns = 5;
};

void RunBenchRead(const TBenchReadArguments& args) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                       ("longmate_bench_read_" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  const std::string source = (folder / "generated.cp").string();
  const std::string target = (folder / "written.cp").string();
  std::ofstream(source, std::ios::binary) << GeneratedCollectionText(args.nProblems);

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
