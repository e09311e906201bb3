#include <atomic>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/LiChessHTTP.h"
#include "app/Options.h"
#include "app/RegressionLog.h"
#include "app/RegressionRunner.h"
#include "app/SolvingReports.h"
#include "app/SolvingSession.h"
#include "app/Startup.h"
#include "app/ThreadSettings.h"
#include "app/platform/InterruptWatch.h"
#include "cli/Commands.h"
#include "cli/ProgramLifetime.h"
#include "problems/Collection.h"

namespace {

struct TRegressArguments {
  std::string file;
  std::vector<int> problemIds;
  bool bQuick = false;
  bool bMirror = false;
  bool bQuiet = false;
  std::string threads;
};

[[noreturn]] void BadInput(const std::string& text) {
  std::cerr << text << "\n";
  throw CommandExit{2};
}

// The problems of the file in order, or those asked for.
std::vector<TProblem*> SelectProblems(TProblemCollection& collection,
                                      const TRegressArguments& args) {
  std::vector<TProblem*> problems;
  for (int id : args.problemIds) {
    TProblem* problem = collection.Find(id);
    if (!problem) BadInput("No problem " + std::to_string(id) + " in " + args.file);
    problems.push_back(problem);
  }
  if (args.problemIds.empty())
    for (const auto& [id, problem] : collection.Problems()) problems.push_back(problem.get());
  return problems;
}

void RunRegress(const TRegressArguments& args) {
  std::optional<TThreadSettings> threads;
  if (!args.threads.empty()) {
    const TThreadSettingsReading reading = ReadThreadSettings(args.threads);
    if (!reading.settings) BadInput("--threads " + reading.sRefusal);
    threads = reading.settings;
  }
  for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
  TProblemCollection collection;
  if (const auto error = collection.ReadFile(args.file, {.nLanguageId = Options().nLanguageId}))
    BadInput(error->Describe());
  std::vector<TProblem*> problems = SelectProblems(collection, args);

  CProgramLifetime lifetime;
  ApplyLanguage(Options().nLanguageId);
  // The problems that require the online tablebase get it, as a solve does.
  OpenLiChessService(LiChessSettingsFromOptions(Options()),
                     [](const std::string& message) { std::cerr << message << "\n"; });
  CSolvingSession session(Options());
  const CRegressionLog log(std::filesystem::current_path());
  CRegressionRunner runner(session, Options(), log, CRegressionRunner::LocalResources(Options()),
                           [](const std::string& text) {
                             std::fputs(text.c_str(), stdout);
                             std::fflush(stdout);
                           });
  // Ctrl+C ends the run after the problem being solved; a second one ends the program.
  std::atomic<int> nSignal{0};
  const platform::CInterruptWatch interrupts([&nSignal](int n) {
    nSignal = n;
    std::fprintf(stderr, "Stopping after the problem being solved (again to end at once)\n");
    CRegressionRunner::RequestStop();
  });
  std::printf("Test results will be written to file %s\n", CRegressionLog::kFileName);
  const TRegressionTally tally = runner.Run(problems, {.bQuick = args.bQuick,
                                                       .bMirrorSwitch = args.bMirror,
                                                       .threads = threads,
                                                       .wait = {.bQuiet = args.bQuiet}});
  std::printf("%s\n", EngineEndText(Options().nLanguageId, args.file, tally.bStopped).c_str());
  std::printf("Passed %d, failed %d, skipped %d\n", tally.nPassed, tally.nFailed, tally.nSkipped);
  if (nSignal != 0) throw CommandExit{128 + nSignal};
  if (!tally.AllPassed()) throw CommandExit{1};
}

}  // namespace

// "longmate regress FILE.cp [--quick]": solves every problem of a file and checks each
// result against the file, writing RegressionTest.log in the working folder.
void AddRegressCommand(CLI::App& app) {
  auto args = std::make_shared<TRegressArguments>();
  CLI::App* command = app.add_subcommand(
      "regress", "Solve every problem of a file and check the results (RegressionTest.log)");
  command->add_option("file", args->file, "problem file (.cp)")->required();
  command->add_option("--problem", args->problemIds, "ids of the problems to test (default all)")
      ->delimiter(',');
  command->add_flag("--quick", args->bQuick, "stop every solve after 64 seconds");
  command->add_flag("--mirror", args->bMirror, "also solve the position mirrored left to right");
  command->add_flag("--quiet", args->bQuiet, "no progress line on stderr");
  command->add_option("--threads", args->threads, "threads and levels as T or T^L");
  command->callback([args] { RunRegress(*args); });
}
