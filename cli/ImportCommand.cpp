#include <iostream>
#include <memory>
#include <string>

#include "app/DatabaseLinks.h"
#include "cli/Commands.h"
#include "problems/Collection.h"
#include "problems/ForeignFormat.h"

namespace {

struct TImportArguments {
  std::string file;
  std::string output;
  std::string format;  // empty: from the file's extension
  int nDefaultMoves = 0;
};

EProblemFormat ChosenFormat(const std::string& name, const std::string& file) {
  const auto format = name.empty() ? FormatFromFileName(file) : FormatFromName(name);
  if (format) return *format;
  std::cerr << (name.empty() ? "Cannot tell the format of " + file + ": give --format"
                             : "Unknown format: " + name + " (popeye, epd or fen)")
            << "\n";
  throw CommandExit{2};
}

void Import(const TImportArguments& args) {
  TProblemCollection collection;
  const TImportOptions options{.nDefaultMoves = args.nDefaultMoves};
  if (const auto error =
          ImportFile(args.file, ChosenFormat(args.format, args.file), options, collection)) {
    // Nothing is written: a partial collection would pass for the whole file.
    std::cerr << error->Describe() << "\n";
    throw CommandExit{2};
  }
  for (const auto& [nId, problem] : collection.Problems()) TidyImportedProblem(*problem);
  if (args.output == "-") {
    std::cout << collection.WriteText();
    return;
  }
  if (const auto error = collection.WriteFile(args.output)) {
    std::cerr << *error << "\n";
    throw CommandExit{2};
  }
  std::cout << args.output << ": " << collection.Size() << " problems written\n";
}

}  // namespace

// "longmate import FILE -o OUT.cp": problems of another program's format into a collection.
void AddImportCommand(CLI::App& app) {
  auto args = std::make_shared<TImportArguments>();
  CLI::App* command = app.add_subcommand(
      "import", "Read problems in another program's format (popeye, epd, fen) into a .cp file");
  command->add_option("file", args->file, "the file to read")->required();
  command
      ->add_option("-o,--output", args->output, "the .cp file to write ('-' for standard output)")
      ->required();
  command->add_option("--format", args->format,
                      "popeye, epd or fen (default: from the extension: .pop/.txt, .epd, .fen)");
  command
      ->add_option("--mate", args->nDefaultMoves,
                   "the move count of positions given without one (FEN lists, EPD without dm)")
      ->check(CLI::Range(1, TStipulation::kMaxMoves));
  command->callback([args] { Import(*args); });
}
