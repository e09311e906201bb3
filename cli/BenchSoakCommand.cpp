// "longmate bench soak": solves reference mates for a given time through the session, as the
// window does, with 1, 2 and 4 threads and a tiny and the default register quota, while random
// pause, resume and stop requests come in. Every key reported is checked against the published
// keys: a finished solve must find them all, a stopped one only some of them.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "app/FenProblem.h"
#include "app/PublishedKeys.h"
#include "app/SolvingSession.h"
#include "app/TsvTable.h"
#include "app/platform/Machine.h"
#include "app/platform/ProcessMemory.h"
#include "cli/Commands.h"
#include "core/Notation.h"

namespace {

using Clock = std::chrono::steady_clock;

struct TBenchSoakArguments {
  std::string set = "../shared/data/directmates.tsv";
  int nSeconds = 60;
  int nMaxMoves = 4;
  double dMaxReferenceSeconds = 0.5;  // rows the reference solver needed longer for are left out
  unsigned nSeed = 1;
  int nTinyQuotaMiB = 2;
};

struct TSoakProblem {
  std::string id;
  std::unique_ptr<TProblem> problem;
  std::vector<TMove> published;
};

// One configuration: a thread count and a register quota, with its own session.
struct TSoakConfiguration {
  unsigned nThreads = 1;
  bool bTiny = false;
  int nSolves = 0, nStopped = 0, nPaused = 0;
  int nKeysChecked = 0, nDisagreements = 0;
  std::uint32_t nLimit = 0, nPeakElements = 0;
  std::uint64_t nBaseBytes = 0;  // resident before the session was made
  std::uint64_t nPeakBytes = 0;
};

constexpr double kMiB = 1024.0 * 1024.0;

std::vector<TSoakProblem> ReadProblems(const TBenchSoakArguments& args) {
  std::vector<TSoakProblem> problems;
  const CTsvTable table = CTsvTable::Read(args.set);
  for (const auto& row : table.Rows()) {
    const auto seconds = row.find("popeye_seconds");
    if (row.at("n").empty() || row.at("keys").empty() || seconds == row.end() ||
        seconds->second.empty() || seconds->second == "timeout")
      continue;
    const int nMoves = std::stoi(row.at("n"));
    if (nMoves > args.nMaxMoves || std::stod(seconds->second) > args.dMaxReferenceSeconds) continue;
    auto problem = DirectMateFromFen(row.at("fen"), nMoves, static_cast<int>(problems.size()) + 1);
    problem->options |= option::kNoMirror;
    problems.push_back({row.at("id"), std::move(problem), ReadPublishedKeys(row.at("keys"))});
  }
  if (problems.empty()) {
    std::cerr << "No row of " << args.set << " is short enough for the soak\n";
    throw CommandExit{2};
  }
  return problems;
}

// Pauses, resumes and perhaps stops the running solve at random moments, until it ends.
void Disturb(CSolvingSession& session, std::mt19937& random, TSoakConfiguration& run) {
  std::uniform_int_distribution<int> millis(0, 30), action(0, 9);
  while (session.IsRunning()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(millis(random)));
    const int what = action(random);
    if (what < 3) {
      session.PauseAll();
      std::this_thread::sleep_for(std::chrono::milliseconds(millis(random)));
      session.Resume();
      ++run.nPaused;
    } else if (what == 3) {
      session.Stop();
      ++run.nStopped;
      return;
    }
  }
}

// Whether the keys agree with the published ones: all of them after a finished pass, only
// published ones after a stopped pass. Prints a disagreement.
bool CheckKeys(const TSoakProblem& soak, const SolvingRequest& request) {
  const std::vector<TMove>& found = request.result.keys;
  const bool bAgrees = request.result.bStopped || !request.result.bRun
                           ? std::ranges::all_of(found,
                                                 [&](TMove key) {
                                                   return std::ranges::find(soak.published, key) !=
                                                          soak.published.end();
                                                 })
                           : MatchesPublishedKeys(found, soak.published);
  if (!bAgrees)
    std::printf("DISAGREEMENT %s: found %s%s\n", soak.id.c_str(),
                notation::MovesToText(soak.problem->start, found, " ").c_str(),
                request.result.bStopped ? " (stopped)" : "");
  return bAgrees;
}

void Soak(TSoakConfiguration& run, const std::vector<TSoakProblem>& problems, Clock::time_point end,
          std::mt19937& random, const TBenchSoakArguments& args) {
  COptions options = DefaultOptions();
  options.nLichessLevels = 0;
  std::unique_ptr<TAggregatedTemporaryChessboardRegister> tiny;
  if (run.bTiny) {
    tiny = std::make_unique<TAggregatedTemporaryChessboardRegister>(
        TChessboardRegister<bool>::MaxElementsForQuota(
            platform::TotalPhysicalMemoryBytes(), static_cast<std::uint64_t>(args.nTinyQuotaMiB)));
  }
  platform::ReleaseFreeMemory();
  platform::ResetPeakResident();
  run.nBaseBytes = platform::ResidentBytes();
  {
    CSolvingSession session(options, {.onMessage = [](const std::string&) {}},
                            {.pRegister = tiny.get()});
    TChessboardRegister<bool>& reg = tiny ? *tiny : *session.TemporaryRegister();
    std::uniform_int_distribution<std::size_t> pick(0, problems.size() - 1);
    while (Clock::now() < end) {
      const TSoakProblem& soak = problems[pick(random)];
      const TSolveOrder order{.pProblem = soak.problem.get(),
                              .bFindAll = true,
                              .threads = TThreadSettings{run.nThreads, 1}};
      if (const auto refusal = session.Start(order)) {
        std::printf("DISAGREEMENT %s: not started: %s\n", soak.id.c_str(), refusal->c_str());
        ++run.nDisagreements;
        continue;
      }
      Disturb(session, random, run);
      session.Wait({.bQuiet = true});
      ++run.nSolves;
      for (const auto& request : session.Requests()) {
        run.nKeysChecked += static_cast<int>(request->result.keys.size());
        run.nDisagreements += CheckKeys(soak, *request) ? 0 : 1;
      }
    }
    run.nLimit = reg.MaxElements();
    run.nPeakElements = reg.GetPeakElementsIn();
  }
  run.nPeakBytes = platform::PeakResidentBytes();
}

void RunBenchSoak(const TBenchSoakArguments& args) {
  const std::vector<TSoakProblem> problems = ReadProblems(args);
  std::mt19937 random(args.nSeed);
  std::vector<TSoakConfiguration> runs;
  for (const bool bTiny : {true, false})
    for (const unsigned nThreads : {1u, 2u, 4u})
      runs.push_back({.nThreads = nThreads, .bTiny = bTiny});
  std::printf("%zu problems of %s (at most #%d), %d s, seed %u\n", problems.size(),
              args.set.c_str(), args.nMaxMoves, args.nSeconds, args.nSeed);
  std::printf("register quotas: tiny %d MiB, default %d %% of %.0f MiB\n", args.nTinyQuotaMiB,
              DefaultOptions().nMaxMemRatioForTempReg,
              static_cast<double>(platform::TotalPhysicalMemoryBytes()) / kMiB);
  std::printf("%7s %7s %7s %7s %7s %7s %9s %11s %11s %9s %9s\n", "threads", "quota", "solves",
              "stopped", "paused", "keys", "disagree", "limit", "peak entr.", "peak MiB",
              "held MiB");
  const auto share =
      std::chrono::milliseconds(args.nSeconds * 1000 / static_cast<int>(runs.size()));
  int nSolves = 0, nKeys = 0, nDisagreements = 0;
  for (TSoakConfiguration& run : runs) {
    Soak(run, problems, Clock::now() + share, random, args);
    std::printf(
        "%7u %7s %7d %7d %7d %7d %9d %11u %11u %9.1f %9.1f\n", run.nThreads,
        run.bTiny ? (std::to_string(args.nTinyQuotaMiB) + "MiB").c_str() : "default", run.nSolves,
        run.nStopped, run.nPaused, run.nKeysChecked, run.nDisagreements, run.nLimit,
        run.nPeakElements, static_cast<double>(run.nPeakBytes) / kMiB,
        static_cast<double>(run.nPeakBytes - std::min(run.nPeakBytes, run.nBaseBytes)) / kMiB);
    std::fflush(stdout);
    nSolves += run.nSolves;
    nKeys += run.nKeysChecked;
    nDisagreements += run.nDisagreements;
  }
  std::printf("total: %d solves, %d keys checked, %d disagreements\n", nSolves, nKeys,
              nDisagreements);
  std::printf("held: peak resident memory less what the process held before the session\n");
  if (nDisagreements > 0) throw CommandExit{1};
}

}  // namespace

void AddBenchSoakCommand(CLI::App& bench) {
  auto args = std::make_shared<TBenchSoakArguments>();
  CLI::App* command = bench.add_subcommand(
      "soak", "Solve reference mates for a time under random pause, resume and stop requests");
  command->add_option("--set", args->set, "Table of problems (id, fen, n, keys, popeye_seconds)");
  command->add_option("--seconds", args->nSeconds, "Total time, shared by the configurations")
      ->check(CLI::Range(1, 7 * 24 * 3600));
  command->add_option("--max-moves", args->nMaxMoves, "Longest mates taken")
      ->check(CLI::Range(1, 16));
  command->add_option("--max-reference-seconds", args->dMaxReferenceSeconds,
                      "Leave out rows the reference solver needed longer for");
  command->add_option("--seed", args->nSeed, "Seed of the random choices");
  command->add_option("--tiny-quota", args->nTinyQuotaMiB, "The tiny register quota in MiB")
      ->check(CLI::Range(1, 1 << 20));
  command->callback([args] { RunBenchSoak(*args); });
}
