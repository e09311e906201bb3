#include "cli/Commands.h"

// "longmate bench ...": speed measurements, one subcommand per subsystem.
void AddBenchCommand(CLI::App& app) {
  CLI::App* bench = app.add_subcommand("bench", "Measure speed (medians of repeated runs)");
  bench->require_subcommand(1);
  AddBenchPerftCommand(*bench);
  AddBenchReadCommand(*bench);
  AddBenchSolveCommand(*bench);
  AddBenchMoremoversCommand(*bench);
  AddBenchFindCommand(*bench);
  AddBenchMemoryCommand(*bench);
  AddBenchSoakCommand(*bench);
}
