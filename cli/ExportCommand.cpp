#include <iostream>
#include <memory>
#include <string>

#include "app/Options.h"
#include "cli/Commands.h"
#include "core/SafeFile.h"
#include "problems/Collection.h"
#include "problems/ForeignFormat.h"

namespace {

struct TExportArguments {
  std::string file;
  std::string output = "-";
  std::string format;
};

void Export(const TExportArguments& args) {
  const auto format = FormatFromName(args.format);
  if (!format) {
    std::cerr << "Unknown format: " << args.format << " (popeye, epd or fen)\n";
    throw CommandExit{2};
  }
  for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
  TProblemCollection collection;
  if (const auto error = collection.ReadFile(args.file, {.nLanguageId = Options().nLanguageId})) {
    std::cerr << error->Describe() << "\n";
    throw CommandExit{2};
  }
  const TExportResult result = ExportText(collection, *format);
  for (const std::string& warning : result.warnings) std::cerr << "Warning: " << warning << "\n";
  if (args.output == "-") {
    std::cout << result.text;
    return;
  }
  if (const auto error = safefile::Save(args.output, result.text)) {
    std::cerr << *error << "\n";
    throw CommandExit{2};
  }
  std::cerr << args.output << ": " << collection.Size() << " problems read\n";
}

}  // namespace

// "longmate export FILE.cp --format popeye|epd|fen [-o OUT]".
void AddExportCommand(CLI::App& app) {
  auto args = std::make_shared<TExportArguments>();
  CLI::App* command =
      app.add_subcommand("export", "Write the problems of a .cp file in another program's format");
  command->add_option("file", args->file, "problem file (.cp)")->required();
  command->add_option("--format", args->format, "popeye, epd or fen")->required();
  command->add_option("-o,--output", args->output, "where to write (default '-': standard output)");
  command->callback([args] { Export(*args); });
}
