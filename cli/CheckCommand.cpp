#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/DatabaseLinks.h"
#include "app/Options.h"
#include "cli/Commands.h"
#include "problems/Collection.h"

namespace {

struct TCheckArguments {
  std::vector<std::string> files;
  bool bVerbose = false;
  bool bLinks = false;
};

// One line per problem: id, stipulation, pieces, description; then its notes, indented, and
// when asked the database references of its description with their addresses.
void PrintProblem(const TProblem& problem, const std::vector<std::string>& notes,
                  const TLinkHosts* hosts) {
  const std::string stipulation =
      problem.stipulation.type == TStipulation::kMoveLine ? "line" : problem.stipulation.Text();
  std::printf("%6d  %-5s %2d  %s\n", problem.id, stipulation.c_str(), problem.PieceCount(),
              problem.description.c_str());
  for (const std::string& note : notes) std::printf("        %s\n", note.c_str());
  if (hosts == nullptr) return;
  for (const TDatabaseLink& link : FindDatabaseLinks(problem.description, *hosts))
    std::printf("        %s  %s\n", problem.description.substr(link.nBegin, link.nLength).c_str(),
                link.address.c_str());
}

bool CheckFile(const std::string& file, const TCheckArguments& args, int nLanguageId) {
  TProblemCollection collection;
  std::map<int, std::vector<std::string>> notes;
  TProblemCollection::TReadOptions options{
      .note = [&notes](const TProblem& p,
                       const std::vector<std::string>& found) { notes[p.id] = found; },
      .nLanguageId = nLanguageId};
  if (args.bVerbose) options.log = [](const std::string& line) { std::cerr << line; };
  const auto error = collection.ReadFile(file, options);
  const TLinkHosts hosts = LinkHostsFromOptions(Options());
  for (const auto& [id, problem] : collection.Problems())
    PrintProblem(*problem, notes[id], args.bLinks ? &hosts : nullptr);
  std::printf("%s: %zu problems read\n", file.c_str(), collection.Size());
  std::fflush(stdout);
  if (error) std::cerr << error->Describe() << "\n";
  return !error;
}

}  // namespace

// "longmate check FILE...": reads problem files and lists their problems or the first error.
void AddCheckCommand(CLI::App& app) {
  auto args = std::make_shared<TCheckArguments>();
  CLI::App* command = app.add_subcommand("check", "Read problem files and list their problems");
  command->add_option("files", args->files, "problem files (.cp)")->required();
  command->add_flag("--verbose", args->bVerbose, "log every problem read to stderr");
  command->add_flag("--links", args->bLinks,
                    "list the database references of each description with their addresses");
  command->callback([args] {
    // Errors and notes follow the language setting.
    for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
    bool bAllGood = true;
    for (const std::string& file : args->files)
      bAllGood = CheckFile(file, *args, Options().nLanguageId) && bAllGood;
    if (!bAllGood) throw CommandExit{1};
  });
}
