#include <iostream>

#include "cli/Commands.h"

int main(int argc, char** argv) {
  CLI::App app{"Longmate: a solver and manager for chess problems (direct mates)"};
  app.require_subcommand(1);
  AddPerftCommand(app);
  AddFenCommand(app);
  AddConfigCommand(app);
  AddCheckCommand(app);
  AddFormatCommand(app);
  AddSolveCommand(app);
  AddBenchCommand(app);
  AddTablesCommand(app);
  AddDiagramCommand(app);
  AddImportCommand(app);
  AddExportCommand(app);
  AddRegressCommand(app);
  AddFindCommand(app);
  AddTablebaseCommand(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e) == 0 ? 0 : 2;
  } catch (const CommandExit& e) {
    return e.status;
  } catch (const std::exception& e) {
    std::cerr << e.what() << "\n";
    return 2;
  }
  return 0;
}
