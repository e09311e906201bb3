#pragma once
#include <CLI/CLI.hpp>

// Each command lives in its own file and registers itself on the application.
// A command's callback throws CommandExit to end the program with a status.
struct CommandExit {
  int status;
};

void AddPerftCommand(CLI::App& app);
void AddFenCommand(CLI::App& app);
void AddConfigCommand(CLI::App& app);
void AddCheckCommand(CLI::App& app);
void AddFormatCommand(CLI::App& app);
void AddSolveCommand(CLI::App& app);
void AddBenchCommand(CLI::App& app);
void AddTablesCommand(CLI::App& app);
void AddDiagramCommand(CLI::App& app);
void AddImportCommand(CLI::App& app);
void AddExportCommand(CLI::App& app);
void AddRegressCommand(CLI::App& app);
void AddFindCommand(CLI::App& app);
void AddTablebaseCommand(CLI::App& app);
// Subcommands of "bench".
void AddBenchPerftCommand(CLI::App& bench);
void AddBenchSolveCommand(CLI::App& bench);
void AddBenchMoremoversCommand(CLI::App& bench);
void AddBenchReadCommand(CLI::App& bench);
void AddBenchFindCommand(CLI::App& bench);
void AddBenchMemoryCommand(CLI::App& bench);
void AddBenchSoakCommand(CLI::App& bench);
