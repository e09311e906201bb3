#pragma once
#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>

#include "app/TablesService.h"

// What the solving benchmarks ("bench solve", "bench moremovers") take alike: the register's
// size, the endgame tables and the scheduler.
struct TBenchSolverArguments {
  std::int64_t nRegisterElements = 0;  // signed, so that "-1" is refused
  bool bNoTables = false;
  int nSchedulerLevels = 6;  // as a user's solve by default

  // A positive level count is the user's own choice, as CustomScheduler in options.ini.
  bool CustomScheduler() const { return nSchedulerLevels > 0; }
};

// Adds --register, --no-tables and --scheduler-levels to a bench command.
void AddBenchSolverOptions(CLI::App& command, TBenchSolverArguments& args);

// The endgame tables of the working folder, read before the clock runs as a session keeps them
// from one solve to the next; none with --no-tables. Warnings go to the standard error.
std::unique_ptr<CTablesService> LoadBenchTables(const TBenchSolverArguments& args);
