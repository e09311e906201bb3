#include <algorithm>
#include <atomic>
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
#include "app/LiChessHTTP.h"
#include "app/Options.h"
#include "app/PassProgressLine.h"
#include "app/ProgramState.h"
#include "app/SolutionReport.h"
#include "app/SolveTally.h"
#include "app/SolvingReports.h"
#include "app/SolvingSession.h"
#include "app/Startup.h"
#include "app/ThreadCountLabel.h"
#include "app/ThreadSettings.h"
#include "app/mpi/MpiSolver.h"
#include "app/platform/InterruptWatch.h"
#include "cli/Commands.h"
#include "cli/ProgramLifetime.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "engine/HeuristicChoice.h"
#include "engine/MateSolver.h"
#include "problems/Collection.h"

namespace {

struct TSolveArguments {
  std::string file;
  std::vector<int> problemIds;
  std::string fen;
  int nMate = 0;
  int nSelfmate = 0;  // s#N for --fen instead of #N
  bool bAll = false;
  int nTimeLimitSeconds = kNoTimeLimit;
  bool bQuiet = false;
  bool bShowPasses = false;  // the progress line of each pass instead of the seconds
  bool bMirror = false;
  std::string threads;
  std::string heuristics;  // empty: the problem's settings and the position decide
  bool bNoPass2 = false;
  bool bNoDynamicDlfu = false;
  bool bQuick = false;
  bool bSafe = false;
  bool bLogMoves = false;
  bool bTree = false;
  bool bJson = false;
  std::string readRegister;  // the temporary register file read before the solve
  std::string saveRegister;  // where the temporary register is saved after it
  bool bMpi = false;         // first moves shared over the ranks of an MPI job
};

[[noreturn]] void BadInput(const std::string& text) {
  std::cerr << text << "\n";
  throw CommandExit{2};
}

std::string MovesText(const std::vector<std::string>& moves) {
  std::string text;
  for (const std::string& move : moves) text += (text.empty() ? "" : " ") + move;
  return text.empty() ? "-" : text;
}

bool ShowsPassLines(const TSolveArguments& args) {
  return args.bShowPasses && !args.bQuiet;
}

// The pass lines overwrite one another, each ending in a carriage return: the last one, with
// the final figures, keeps its line, and the report begins on the next.
void EndPassLines(const TSolveArguments& args) {
  if (ShowsPassLines(args)) std::fputs("\n", stderr);
}

void PrintPass(const SolvingRequest& request, const std::vector<std::string>& reportLines) {
  const TSolvingResult& result = request.result;
  for (const std::string& line : reportLines) std::printf("%s\n", line.c_str());
  if (!result.sError.empty()) return;
  // A stopped pass has not looked at every first move: no keys found proves nothing.
  if (!result.bStopped || !result.keyTexts.empty())
    std::printf("%s: %s\n", result.bStopped ? "Keys found so far" : "Keys",
                MovesText(result.keyTexts).c_str());
  if (!request.heuristicPasses.empty() && !result.sPass.empty())
    std::printf("%s pass %s\n", result.keyTexts.empty() ? "Last" : "Found in",
                result.sPass.c_str());
  const auto nCount =
      std::min<std::uint64_t>(result.nPositions, std::numeric_limits<std::uint32_t>::max());
  std::printf("Time: %s, positions: %s\n", FormatElapsed(result.nElapsedMs / 1000).c_str(),
              FormatCount(static_cast<std::uint32_t>(nCount)).c_str());
}

// Prints the answer check of a finished pass.
void PrintAnswerCheck(const SolvingRequest& request) {
  const EAnswerCheck check = CheckAnswer(request);
  if (check == EAnswerCheck::NotRecorded) return;
  std::vector<std::string> recorded;
  for (TMove move : request.pProblem->answer)
    recorded.push_back(notation::MoveToText(request.pProblem->start, move));
  std::printf("Answer %s: %s\n", MovesText(recorded).c_str(),
              check == EAnswerCheck::Matched ? "matched" : "MISMATCHED");
}

// Prints what each pass of the solve that just ended found.
void PrintPasses(const std::vector<std::unique_ptr<SolvingRequest>>& requests) {
  for (const auto& request : requests) {
    const TSolvingResult& result = request->result;
    if (!result.bRun) continue;
    PrintPass(*request, CompletionReport(Options().nLanguageId, request->Label(), result));
    if (result.sError.empty() && !result.bStopped) PrintAnswerCheck(*request);
  }
}

std::optional<heuristicchoice::TNamedSet> HeuristicsArgument(const std::string& text) {
  if (text.empty()) return std::nullopt;
  return heuristicchoice::ReadNamedSet(text);
}

std::optional<bool> QuickModeArgument(const TSolveArguments& args) {
  if (args.bQuick) return true;
  if (args.bSafe) return false;
  return std::nullopt;
}

// Prints the whole solution of the keys the pass of the position as given found: as text,
// or as one line of JSON.
void PrintSolutionTrees(const std::vector<std::unique_ptr<SolvingRequest>>& requests,
                        const TProblem& problem, const TSolveArguments& args) {
  for (const auto& request : requests) {
    const TSolvingResult& result = request->result;
    if (request->nMirrorPass != 0 || !result.sError.empty() || result.keys.empty()) continue;
    if (problem.stipulation.type != TStipulation::kDirectMate) {
      std::printf("Solution tree: only of direct mates\n");
      return;
    }
    try {
      const int nMoves = problem.stipulation.Moves();
      const auto trees = BuildSolutionTrees(request->board, nMoves, result.keys);
      if (args.bJson) {
        std::printf("%s\n", SolutionTreesJson(problem.id, nMoves, trees).c_str());
        return;
      }
      for (const TSolutionMove& tree : trees)
        for (const std::string& line : SolutionTreeLines(tree)) std::printf("%s\n", line.c_str());
    } catch (const ChessException& error) {
      std::printf("Solution tree: %s\n", error.what());
    }
    return;
  }
}

// Reads the temporary register file asked for; false, after saying why, when it cannot.
bool ReadRegisterFile(CSolvingSession& session, const TProblem& problem,
                      const TSolveArguments& args) {
  if (args.readRegister.empty()) return true;
  const TRegisterCommandResult read = session.ReadTemporaryRegisterFrom(problem, args.readRegister);
  std::printf("%s\n", read.message.c_str());
  return read.bDone;
}

// Saves the temporary register where asked; false, after saying why, when it cannot.
bool SaveRegisterFile(CSolvingSession& session, const TProblem& problem,
                      const TSolveArguments& args) {
  if (args.saveRegister.empty()) return true;
  const TRegisterCommandResult saved = session.SaveTemporaryRegisterAs(problem, args.saveRegister);
  std::printf("%s\n", saved.message.c_str());
  return saved.bDone;
}

TSolveOrder OrderOf(const TProblem& problem, const TSolveArguments& args,
                    const std::optional<TThreadSettings>& threads) {
  return {.pProblem = &problem,
          .bFindAll = args.bAll,
          .threads = threads,
          .bMirrorSwitch = args.bMirror,
          .heuristics = HeuristicsArgument(args.heuristics),
          .bPass2 = !args.bNoPass2,
          .bDynamicDlfu = !args.bNoDynamicDlfu,
          .bQuickMode = QuickModeArgument(args)};
}

// The problem's title with its threads and notes, and the heuristic passes planned.
void PrintHeader(const std::string& title, const TProblem& problem, const SolvingRequest& first) {
  std::printf(
      "%s: %s%s\n", title.c_str(),
      ThreadCountLabel(first.threads.nThreads, ThreadLabelModeOf(first.solvingMode)).c_str(),
      Options().bQuickMode && first.bSafeMode ? " Safe mode ON" : "");
  for (const std::string& note : problem.Notes(Options().nLanguageId))
    std::printf("%s\n", note.c_str());
  for (std::size_t i = 0; i < first.heuristicPasses.size(); ++i)
    std::printf(
        "Pass %s: %s\n",
        TPassInfo{.nPass = 1, .nStep = static_cast<int>(i), .heuristics = first.heuristicPasses[i]}
            .Label()
            .c_str(),
        heuristicset::Describe(first.heuristicPasses[i]).c_str());
  std::fflush(stdout);
}

// The leader of an MPI job prints the problem once every rank has done its share.
void SolveProblemOverMpi(CSolvingSession& session, CMpiSolver& mpi, const TProblem& problem,
                         const TSolveArguments& args, const std::optional<TThreadSettings>& threads,
                         CSolveTally& tally) {
  std::vector<std::unique_ptr<SolvingRequest>> passes;
  passes.push_back(mpi.Solve(session, OrderOf(problem, args, threads)));
  EndPassLines(args);
  PrintHeader("Problem " + std::to_string(problem.id) + " " + problem.stipulation.Text(), problem,
              *passes.front());
  std::printf("First moves shared over %d MPI ranks\n", mpi.Ranks());
  PrintPasses(passes);
  if (args.bTree || args.bJson) PrintSolutionTrees(passes, problem, args);
  tally.Count(ProblemOutcome(passes, false));
  std::printf("\n");
  std::fflush(stdout);
}

// Solves one problem and prints what its passes found.
void SolveProblem(CSolvingSession& session, CMpiSolver* mpi, const TProblem& problem,
                  const TSolveArguments& args, const std::optional<TThreadSettings>& threads,
                  CSolveTally& tally) {
  const std::string title =
      "Problem " + std::to_string(problem.id) + " " + problem.stipulation.Text();
  if (problem.stipulation.type == TStipulation::kMoveLine) {
    std::printf("Problem %d skipped: no stipulation to solve\n\n", problem.id);
    tally.CountSkipped();
    return;
  }
  if (mpi) return SolveProblemOverMpi(session, *mpi, problem, args, threads, tally);
  if (!ReadRegisterFile(session, problem, args)) {
    std::printf("%s: not solved\n\n", title.c_str());
    tally.Count({.end = EProblemEnd::Failed});
    return;
  }
  if (const auto refusal = session.Start(OrderOf(problem, args, threads))) {
    std::printf("%s: %s\n\n", title.c_str(), refusal->c_str());
    tally.Count({.end = EProblemEnd::Failed});
    return;
  }
  PrintHeader(title, problem, *session.Requests().front());
  const EWaitOutcome waited = session.Wait(
      {.bQuiet = args.bQuiet || args.bShowPasses, .nTimeLimitSeconds = args.nTimeLimitSeconds});
  EndPassLines(args);
  PrintPasses(session.Requests());
  if (args.bTree || args.bJson) PrintSolutionTrees(session.Requests(), problem, args);
  // A register that could not be saved fails the problem: what was asked for is not there.
  const bool bSaved = SaveRegisterFile(session, problem, args);
  tally.Count(bSaved ? ProblemOutcome(session.Requests(), waited == EWaitOutcome::TimedOut)
                     : TProblemOutcome{.end = EProblemEnd::Failed});
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
      fenProblem = DirectMateFromFen(args.fen, std::max(args.nMate, args.nSelfmate));
      if (args.nSelfmate != 0) fenProblem->SetStipulation(TStipulation::Selfmate(args.nSelfmate));
      fen::CheckStartPosition(fenProblem->start);
    } catch (const ChessException& error) {
      BadInput(std::string(error.what()) + ": " + args.fen);
    }
    return {fenProblem.get()};
  }
  if (const auto error = collection.ReadFile(args.file, {.nLanguageId = Options().nLanguageId}))
    BadInput(error->Describe());
  std::vector<const TProblem*> problems;
  for (int id : args.problemIds) {
    const TProblem* problem = collection.Find(id);
    if (!problem) BadInput("No problem " + std::to_string(id) + " in " + args.file);
    if (std::find(problems.begin(), problems.end(), problem) != problems.end())
      std::cerr << "--problem names " << id << " more than once; it is solved once\n";
    else
      problems.push_back(problem);
  }
  if (args.problemIds.empty())
    for (const auto& [id, problem] : collection.Problems()) problems.push_back(problem.get());
  return problems;
}

// Refuses options that belong to the other kind of source: a file, or a FEN with --mate or
// --selfmate.
void CheckSource(const TSolveArguments& args) {
  if (args.fen.empty() == args.file.empty()) BadInput("Give either a problem file or --fen");
  if (args.nMate != 0 && args.nSelfmate != 0) BadInput("--mate and --selfmate exclude each other");
  if (!args.fen.empty() && args.nMate + args.nSelfmate < 1)
    BadInput("--fen needs --mate N or --selfmate N (N >= 1)");
  if (args.fen.empty() && args.nMate + args.nSelfmate != 0)
    BadInput("--mate and --selfmate go with --fen; a file's problems have their own");
  if (!args.fen.empty() && !args.problemIds.empty())
    BadInput("--problem picks problems of a file, not of --fen");
  if ((!args.readRegister.empty() || !args.saveRegister.empty()) && args.fen.empty() &&
      args.problemIds.size() != 1)
    BadInput("--read-register and --save-register go with one problem: --fen or one --problem");
  if (args.bMpi && (args.bMirror || args.nTimeLimitSeconds != kNoTimeLimit ||
                    !args.readRegister.empty() || !args.saveRegister.empty()))
    BadInput("--mpi goes without --mirror, --time-limit, --read-register and --save-register");
}

void JoinMpi(std::optional<CMpiSolver>& mpi) {
  try {
    mpi.emplace();
  } catch (const std::runtime_error& error) {
    BadInput(error.what());
  }
}

std::optional<TThreadSettings> ThreadsArgument(const std::string& text) {
  if (text.empty()) return std::nullopt;
  const TThreadSettingsReading reading = ReadThreadSettings(text);
  if (!reading.settings) BadInput("--threads " + reading.sRefusal);
  for (const std::string& note : reading.notes) std::cerr << "--threads " << note << "\n";
  return reading.settings;
}

void RunSolve(const TSolveArguments& args) {
  CheckSource(args);
  if (const auto named = HeuristicsArgument(args.heuristics); named && !named->sError.empty())
    BadInput("--heuristics: cannot read " + named->sError);
  if (args.bQuick && args.bSafe) BadInput("--quick and --safe exclude each other");
  const std::optional<TThreadSettings> threads = ThreadsArgument(args.threads);
  std::optional<CMpiSolver> mpi;
  if (args.bMpi) JoinMpi(mpi);
  for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
  if (args.bLogMoves) Options().bLogMoves = true;
  CProgramLifetime lifetime;
  ApplyLanguage(Options().nLanguageId);
  // Problems of up to seven pieces ask the online tablebase at their first levels.
  OpenLiChessService(LiChessSettingsFromOptions(Options()),
                     [](const std::string& message) { std::cerr << message << "\n"; });
  TProblemCollection collection;
  std::unique_ptr<TProblem> fenProblem;
  const std::vector<const TProblem*> problems = SelectProblems(args, collection, fenProblem);

  TSessionCallbacks callbacks{
      .askForcedThreads = [](const TThreadSettings&, const std::string& question) {
        std::cerr << question << " Yes\n";
        return true;
      }};
  if (ShowsPassLines(args))
    callbacks.onProgress = [](const TPassProgress& progress) {
      std::fputs(PassProgressLine(progress).c_str(), stderr);
    };
  CSolvingSession session(Options(), callbacks);
  // Ctrl+C and SIGTERM stop the solve cleanly: the threads end, the logs are closed.
  std::atomic<int> nSignal{0};
  const platform::CInterruptWatch interrupts([&](int n) {
    nSignal = n;
    session.Interrupt();
  });
  if (mpi && !mpi->IsLeader()) {
    // The other ranks of the job print nothing: they solve the first moves the leader gives.
    for (const TProblem* problem : problems) mpi->Solve(session, OrderOf(*problem, args, threads));
    return;
  }
  const auto start = std::chrono::steady_clock::now();
  CSolveTally tally;
  // The ranks of a job go through every problem together, an interrupted one included.
  for (const TProblem* problem : problems)
    if (mpi || !session.IsInterrupted())
      SolveProblem(session, mpi ? &*mpi : nullptr, *problem, args, threads, tally);
  const auto nSeconds =
      std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start)
          .count();
  std::printf("%s\n", tally.SummaryText(nSeconds).c_str());
  if (nSignal != 0) {
    std::fprintf(stderr, "Solving stopped by signal %d (%s)\n", nSignal.load(),
                 nSignal == SIGINT ? "Ctrl+C" : "terminate");
    throw CommandExit{128 + nSignal};  // as the shells report a process ended by the signal
  }
  if (tally.HasFailures()) throw CommandExit{1};
}

}  // namespace

// "longmate solve FILE.cp [--problem ID...] ..." or "longmate solve --fen FEN --mate N ..."
// (--selfmate N for s#N): solves direct mates and selfmates as the window would and checks
// the keys against recorded answers.
void AddSolveCommand(CLI::App& app) {
  auto args = std::make_shared<TSolveArguments>();
  CLI::App* command =
      app.add_subcommand("solve", "Solve direct mates and selfmates of a problem file or a FEN");
  command->add_option("file", args->file, "problem file (.cp)");
  command->add_option("--problem", args->problemIds, "ids of the problems to solve (default all)")
      ->delimiter(',');
  command->add_option("--fen", args->fen, "solve this position instead of a file");
  command->add_option("--mate", args->nMate, "the N of #N for --fen")
      ->check(CLI::Range(1, TStipulation::kMaxMoves));
  command->add_option("--selfmate", args->nSelfmate, "the N of s#N for --fen")
      ->check(CLI::Range(1, TStipulation::kMaxMoves));
  command->add_flag("--all", args->bAll, "find all solutions, whatever the problem asks for");
  command->add_option("--time-limit", args->nTimeLimitSeconds, "seconds per problem")
      ->check(CLI::Range(1, std::numeric_limits<int>::max()));
  command->add_flag("--quiet", args->bQuiet, "no progress line on stderr");
  command->add_flag("--show-passes", args->bShowPasses,
                    "progress of each pass on stderr: pass, first move, share done, positions, "
                    "heuristics (SH:) and register (TR:)");
  command->add_flag("--mirror", args->bMirror,
                    "also solve the position mirrored left to right (a check of the first pass)");
  command->add_option("--threads", args->threads, "threads and levels as T or T^L");
  command->add_option("--heuristics", args->heuristics,
                      "heuristic set to start from: auto, none, or names such as "
                      "SH_FINDFORCEDMATE(#1),SH_KEEPKINGONTHEEDGE(strict)");
  command->add_flag("--no-pass2", args->bNoPass2, "skip the pass without heuristics");
  command->add_flag("--no-dynamic-dlfu", args->bNoDynamicDlfu,
                    "never set SH_DONTLETFIGUREUNBLOCK during the analysis");
  command->add_flag("--quick", args->bQuick, "quick mode, whatever the settings say");
  command->add_flag("--safe", args->bSafe, "safe mode, whatever the settings say");
  command->add_flag("--log-moves", args->bLogMoves,
                    "write the searched tree to MovesLogger_problem<N>_thread<T>.log files");
  command->add_flag("--tree", args->bTree,
                    "print the main variation and the whole solution of the keys found");
  command->add_flag("--json", args->bJson, "print the whole solution as one line of JSON");
  command->add_option("--read-register", args->readRegister,
                      "start from the temporary register saved in this file");
  command->add_option("--save-register", args->saveRegister,
                      "save the temporary register to this file after the solve");
  command->add_flag("--mpi", args->bMpi,
                    "share the first moves over the ranks of an MPI job: mpirun -n K longmate "
                    "solve FILE --mpi");
  command->callback([args] { RunSolve(*args); });
}
