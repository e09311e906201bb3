#include <algorithm>
#include <atomic>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/AnswerCheck.h"
#include "app/FenProblem.h"
#include "app/Formatting.h"
#include "app/Options.h"
#include "app/ProgramState.h"
#include "app/SolvingReports.h"
#include "app/SolvingSession.h"
#include "app/Startup.h"
#include "app/platform/InterruptWatch.h"
#include "cli/Commands.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "problems/Collection.h"

namespace {

struct TSolveArguments {
  std::string file;
  std::vector<int> problemIds;
  std::string fen;
  int nMate = 0;
  bool bAll = false;
  int nTimeLimitSeconds = kNoTimeLimit;
  bool bQuiet = false;
  bool bMirror = false;
  std::string threads;
};

struct TTally {
  int nProblems = 0, nSolved = 0, nNotFinished = 0, nFailed = 0, nSkipped = 0;
  int nMatched = 0, nMismatched = 0;
};

enum class EProblemEnd { Solved, NotFinished, Failed };

[[noreturn]] void BadInput(const std::string& text) {
  std::cerr << text << "\n";
  throw CommandExit{2};
}

// "T" or "T^L"; fewer than 2 threads always run at one level.
std::optional<TThreadSettings> ParseThreadSettings(const std::string& text) {
  const auto ReadNumber = [](std::string_view digits, unsigned& value) {
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && end == digits.data() + digits.size() && value >= 1 &&
           value <= 64;
  };
  const std::size_t caret = text.find('^');
  TThreadSettings settings;
  if (!ReadNumber(std::string_view(text).substr(0, caret), settings.nThreads)) return std::nullopt;
  if (caret != std::string::npos &&
      !ReadNumber(std::string_view(text).substr(caret + 1), settings.nLevels))
    return std::nullopt;
  if (settings.nThreads < 2) settings.nLevels = 1;
  if (!IsAdmissibleThreadTotal(settings.nThreads, settings.nLevels)) return std::nullopt;
  return settings;
}

std::string MovesText(const std::vector<std::string>& moves) {
  std::string text;
  for (const std::string& move : moves) text += (text.empty() ? "" : " ") + move;
  return text.empty() ? "-" : text;
}

int ThreadLabelMode(ESolvingMode mode) {
  if (mode == ESolvingMode::SingleSolution) return 1;
  return mode == ESolvingMode::AllSolutions ? 2 : 0;
}

void PrintPass(const SolvingRequest& request, const std::vector<std::string>& reportLines) {
  const TSolvingResult& result = request.result;
  for (const std::string& line : reportLines) std::printf("%s\n", line.c_str());
  if (!result.sError.empty()) return;
  // A stopped pass has not looked at every first move: no keys found proves nothing.
  if (!result.bStopped || !result.keyTexts.empty())
    std::printf("%s: %s\n", result.bStopped ? "Keys found so far" : "Keys",
                MovesText(result.keyTexts).c_str());
  const auto nCount =
      std::min<std::uint64_t>(result.nPositions, std::numeric_limits<std::uint32_t>::max());
  std::printf("Time: %s, positions: %s\n", FormatElapsed(result.nElapsedMs / 1000).c_str(),
              FormatCount(static_cast<std::uint32_t>(nCount)).c_str());
}

// Prints the answer check of a finished pass and returns it.
EAnswerCheck PrintAnswerCheck(const SolvingRequest& request) {
  const EAnswerCheck check = CheckAnswer(request);
  if (check == EAnswerCheck::NotRecorded) return check;
  std::vector<std::string> recorded;
  for (TMove move : request.pProblem->answer)
    recorded.push_back(notation::MoveToText(request.pProblem->start, move));
  std::printf("Answer %s: %s\n", MovesText(recorded).c_str(),
              check == EAnswerCheck::Matched ? "matched" : "MISMATCHED");
  return check;
}

struct TProblemEnd {
  EProblemEnd end = EProblemEnd::Solved;
  EAnswerCheck check = EAnswerCheck::NotRecorded;  // over all passes, when solved
};

// Prints what each pass of the solve that just ended found.
TProblemEnd PrintPasses(const CSolvingSession& session, EWaitOutcome waited) {
  TProblemEnd outcome;
  if (waited == EWaitOutcome::TimedOut) outcome.end = EProblemEnd::NotFinished;
  for (const auto& request : session.Requests()) {
    const TSolvingResult& result = request->result;
    if (!result.bRun) {
      if (outcome.end == EProblemEnd::Solved) outcome.end = EProblemEnd::NotFinished;
      continue;
    }
    PrintPass(*request, CompletionReport(Options().nLanguageId, request->Label(), result));
    if (!result.sError.empty()) outcome.end = EProblemEnd::Failed;
    if (result.bStopped && outcome.end != EProblemEnd::Failed)
      outcome.end = EProblemEnd::NotFinished;
    if (!result.sError.empty() || result.bStopped) continue;
    const EAnswerCheck check = PrintAnswerCheck(*request);
    if (outcome.check != EAnswerCheck::Mismatched && check != EAnswerCheck::NotRecorded)
      outcome.check = check;
  }
  return outcome;
}

void Count(const TProblemEnd& outcome, TTally& tally) {
  tally.nSolved += outcome.end == EProblemEnd::Solved ? 1 : 0;
  tally.nNotFinished += outcome.end == EProblemEnd::NotFinished ? 1 : 0;
  tally.nFailed += outcome.end == EProblemEnd::Failed ? 1 : 0;
  if (outcome.end != EProblemEnd::Solved) return;
  tally.nMatched += outcome.check == EAnswerCheck::Matched ? 1 : 0;
  tally.nMismatched += outcome.check == EAnswerCheck::Mismatched ? 1 : 0;
}

// Solves one problem and prints what its passes found.
void SolveProblem(CSolvingSession& session, const TProblem& problem, const TSolveArguments& args,
                  const std::optional<TThreadSettings>& threads, TTally& tally) {
  ++tally.nProblems;
  const std::string title =
      "Problem " + std::to_string(problem.id) + " " + problem.stipulation.Text();
  if (problem.stipulation.type != TStipulation::kDirectMate) {
    std::printf("Problem %d skipped: not a direct mate\n\n", problem.id);
    ++tally.nSkipped;
    return;
  }
  if (const auto refusal =
          session.Start({.pProblem = &problem, .bFindAll = args.bAll, .threads = threads,
                         .bMirrorSwitch = args.bMirror})) {
    std::printf("%s: %s\n\n", title.c_str(), refusal->c_str());
    Count({.end = EProblemEnd::Failed}, tally);
    return;
  }
  const SolvingRequest& first = *session.Requests().front();
  std::printf("%s: %s%s\n", title.c_str(),
              ThreadCountLabel(first.threads.nThreads, ThreadLabelMode(first.solvingMode)).c_str(),
              Options().bQuickMode && first.bSafeMode ? " Safe mode ON" : "");
  std::fflush(stdout);
  const EWaitOutcome waited =
      session.Wait({.bQuiet = args.bQuiet, .nTimeLimitSeconds = args.nTimeLimitSeconds});
  Count(PrintPasses(session, waited), tally);
  if (waited == EWaitOutcome::TimedOut)
    std::printf("Time limit of %d s reached: problem %d not finished\n", args.nTimeLimitSeconds,
                problem.id);
  else if (session.IsInterrupted())
    std::printf("Stopped by the user: problem %d not finished\n", problem.id);
  std::printf("\n");
  std::fflush(stdout);
}

// The problems to solve: the FEN's, or those of the file (all, or the ids asked for).
std::vector<const TProblem*> SelectProblems(const TSolveArguments& args,
                                            TProblemCollection& collection,
                                            std::unique_ptr<TProblem>& fenProblem) {
  if (!args.fen.empty()) {
    try {
      fenProblem = DirectMateFromFen(args.fen, args.nMate);
      fen::CheckStartPosition(fenProblem->start);
    } catch (const ChessException& error) {
      BadInput(std::string(error.what()) + ": " + args.fen);
    }
    return {fenProblem.get()};
  }
  if (const auto error = collection.ReadFile(args.file, {})) BadInput(error->Describe());
  std::vector<const TProblem*> problems;
  for (int id : args.problemIds) {
    const TProblem* problem = collection.Find(id);
    if (!problem) BadInput("No problem " + std::to_string(id) + " in " + args.file);
    problems.push_back(problem);
  }
  if (args.problemIds.empty())
    for (const auto& [id, problem] : collection.Problems()) problems.push_back(problem.get());
  return problems;
}

// Start-up and shut-down around the command, as for the window.
class CProgramLifetime {
 public:
  CProgramLifetime() {
    for (const std::string& note : StartProgram(std::filesystem::current_path()))
      std::cerr << note << "\n";
  }
  ~CProgramLifetime() { ShutDownProgram(); }
  CProgramLifetime(const CProgramLifetime&) = delete;
  CProgramLifetime& operator=(const CProgramLifetime&) = delete;
};

void RunSolve(const TSolveArguments& args) {
  if (args.fen.empty() == args.file.empty()) BadInput("Give either a problem file or --fen");
  if (!args.fen.empty() && args.nMate < 1) BadInput("--fen needs --mate N (N >= 1)");
  std::optional<TThreadSettings> threads;
  if (!args.threads.empty() && !(threads = ParseThreadSettings(args.threads)))
    BadInput("Improper --threads " + args.threads + ": T or T^L, 1..64 each, at most " +
             "32766 threads in all");
  for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
  CProgramLifetime lifetime;
  ApplyLanguage(Options().nLanguageId);
  TProblemCollection collection;
  std::unique_ptr<TProblem> fenProblem;
  const std::vector<const TProblem*> problems = SelectProblems(args, collection, fenProblem);

  CSolvingSession session(
      Options(), {.askForcedThreads = [](const TThreadSettings&, const std::string& question) {
        std::cerr << question << " Yes\n";
        return true;
      }});
  // Ctrl+C and SIGTERM stop the solve cleanly: the threads end, the logs are closed.
  std::atomic<int> nSignal{0};
  const platform::CInterruptWatch interrupts([&](int n) {
    nSignal = n;
    session.Interrupt();
  });
  const auto start = std::chrono::steady_clock::now();
  TTally tally;
  for (const TProblem* problem : problems)
    if (!session.IsInterrupted()) SolveProblem(session, *problem, args, threads, tally);
  const auto nSeconds =
      std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start)
          .count();
  std::printf(
      "Solved %d of %d problems (%d not finished, %d failed, %d skipped); answers matched %d, "
      "mismatched %d; time %s\n",
      tally.nSolved, tally.nProblems, tally.nNotFinished, tally.nFailed, tally.nSkipped,
      tally.nMatched, tally.nMismatched, FormatElapsed(nSeconds).c_str());
  if (nSignal != 0) {
    std::fprintf(stderr, "Solving stopped by signal %d (%s)\n", nSignal.load(),
                 nSignal == SIGINT ? "Ctrl+C" : "terminate");
    throw CommandExit{128 + nSignal};  // as the shells report a process ended by the signal
  }
  if (tally.nNotFinished + tally.nFailed + tally.nMismatched > 0) throw CommandExit{1};
}

}  // namespace

// "longmate solve FILE.cp [--problem ID...] ..." or "longmate solve --fen FEN --mate N ...":
// solves direct mates as the window would and checks the keys against recorded answers.
void AddSolveCommand(CLI::App& app) {
  auto args = std::make_shared<TSolveArguments>();
  CLI::App* command = app.add_subcommand("solve", "Solve direct mates of a problem file or a FEN");
  command->add_option("file", args->file, "problem file (.cp)");
  command->add_option("--problem", args->problemIds, "ids of the problems to solve (default all)")
      ->delimiter(',');
  command->add_option("--fen", args->fen, "solve this position instead of a file");
  command->add_option("--mate", args->nMate, "the N of #N for --fen");
  command->add_flag("--all", args->bAll, "find all solutions, whatever the problem asks for");
  command->add_option("--time-limit", args->nTimeLimitSeconds, "seconds per problem")
      ->check(CLI::PositiveNumber);
  command->add_flag("--quiet", args->bQuiet, "no progress line on stderr");
  command->add_flag("--mirror", args->bMirror,
                    "also solve the position mirrored left to right (a check of the first pass)");
  command->add_option("--threads", args->threads, "threads and levels as T or T^L");
  command->callback([args] { RunSolve(*args); });
}
