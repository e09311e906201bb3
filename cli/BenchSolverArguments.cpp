#include "cli/BenchSolverArguments.h"

#include <cstdio>
#include <limits>
#include <string>

#include "app/Options.h"

void AddBenchSolverOptions(CLI::App& command, TBenchSolverArguments& args) {
  command.add_option("--register", args.nRegisterElements, "Register entries (0: none)")
      ->check(CLI::Range(std::int64_t{0}, std::int64_t{std::numeric_limits<std::uint32_t>::max()}));
  command.add_flag("--no-tables", args.bNoTables,
                   "Solve without the endgame tables of the working folder (Precalc)");
  command
      .add_option("--scheduler-levels", args.nSchedulerLevels,
                  "Levels whose White nodes lend time to their runners-up (0: no scheduler)")
      ->check(CLI::Range(0, 9));
}

std::unique_ptr<CTablesService> LoadBenchTables(const TBenchSolverArguments& args) {
  if (args.bNoTables) return nullptr;
  const auto warn = [](const std::string& message) {
    std::fprintf(stderr, "%s\n", message.c_str());
  };
  for (const std::string& warning : ReadOptions()) warn(warning);
  auto tables = std::make_unique<CTablesService>(TablesSettingsFromOptions(Options()), warn);
  std::fprintf(stderr, "%zu endgame tables loaded\n", tables->LoadAll());
  return tables;
}
