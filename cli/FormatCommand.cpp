#include <iostream>
#include <memory>
#include <string>

#include "app/Options.h"
#include "cli/Commands.h"
#include "problems/Collection.h"

namespace {

struct TFormatArguments {
  std::string file;
  std::string output;  // empty: the file itself; "-": standard output
  bool bVerbose = false;
};

void Format(const TFormatArguments& args) {
  // Errors follow the language setting.
  for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
  TProblemCollection collection;
  TProblemCollection::TReadOptions options{.nLanguageId = Options().nLanguageId};
  if (args.bVerbose) options.log = [](const std::string& line) { std::cerr << line; };
  if (const auto error = collection.ReadFile(args.file, options)) {
    // Writing only part of a file would lose the problems behind the error.
    std::cerr << error->Describe() << "\n";
    throw CommandExit{2};
  }
  if (args.output == "-") {
    std::cout << collection.WriteText();
    return;
  }
  const std::string target = args.output.empty() ? args.file : args.output;
  if (const auto error = collection.WriteFile(target)) {
    std::cerr << *error << "\n";
    throw CommandExit{2};
  }
  std::cout << target << ": " << collection.Size() << " problems written\n";
}

}  // namespace

// "longmate format FILE [-o OUT]": rewrites a problem file in the canonical form.
void AddFormatCommand(CLI::App& app) {
  auto args = std::make_shared<TFormatArguments>();
  CLI::App* command =
      app.add_subcommand("format", "Rewrite a problem file in the canonical form (safely)");
  command->add_option("file", args->file, "problem file (.cp)")->required();
  command->add_option("-o,--output", args->output,
                      "where to write (default: the file itself; '-' for standard output)");
  command->add_flag("--verbose", args->bVerbose, "log every problem read to stderr");
  command->callback([args] { Format(*args); });
}
