#include "engine/MateSolver.h"

#include <algorithm>
#include <chrono>

#include "engine/PassSchedule.h"
#include "engine/PassTimer.h"

std::string TPassInfo::Label() const {
  std::string label = std::to_string(nPass);
  if (nPass == 1 && nStep > 0) label += static_cast<char>('a' + nStep);
  return label;
}

CMateSolver::CMateSolver(const TChessboard& start, int nMoves, const TSettings& solveSettings)
    : root(start), settings(solveSettings), hints(settings.sortIndications) {
  if (settings.goal == EMateGoal::kSelfmate) {
    // The heuristics, the tables and the advice all judge direct mates.
    settings.heuristicPasses.clear();
    settings.bPass2 = true;
    settings.pDoubtful = nullptr;
    settings.pTables = nullptr;
    settings.pAdvice = nullptr;
  }
  context.goal = settings.goal;
  root.ply = root.rootPlies = mategoal::RootPlies(settings.goal, nMoves);
  root.parent = nullptr;
  context.pRegister = settings.pRegister;
  context.pTables = settings.pTables;
  context.pAdvice = settings.pAdvice;
  context.nAdviceLevels = settings.nAdviceLevels;
  if (settings.pMovesLog != nullptr) {
    movesLog = *settings.pMovesLog;
    context.pMovesLog = &movesLog;
  }
  if (!hints.IsEmpty()) context.pHints = &hints;
  BeginPass(settings.heuristicPasses.empty()
                ? TPassInfo{}
                : TPassInfo{.nPass = 1, .heuristics = settings.heuristicPasses.front()});
}

int CMateSolver::WorkerCount(int nThreads, int nLevels) {
  constexpr int kMaxWorkers = 256;  // each worker owns a line and move buffers
  int nWorkers = 1;
  for (int level = 0; level < std::max(1, nLevels) && nWorkers < kMaxWorkers; ++level)
    nWorkers = std::min(kMaxWorkers, nWorkers * std::max(1, nThreads));
  return nWorkers;
}

void CMateSolver::BeginPass(const TPassInfo& next) {
  {
    const std::lock_guard lock(passMutex);
    pass = next;
  }
  context.nPass = next.nPass;
  // The loggers of the pass's root search copy what names the pass in their lines.
  movesLog.pass = {.nPass = next.nPass,
                   .nRelaxationStep = next.nStep,
                   .heuristics = next.heuristics.mask,
                   .heurParams = next.heuristics.Params(),
                   .description = heuristicset::Describe(next.heuristics)};
  context.heuristics = THeuristicContext(next.heuristics, root);
  // A pass under heuristics files and finds the doubtful answers of its own selection; the
  // pass without them searches such positions out, unless the caller chose a selection itself.
  const bool bHeuristicPass = next.nPass == 1;
  const bool bCallersSelection = !bHeuristicPass && settings.heuristicPasses.empty();
  context.pDoubtful = bHeuristicPass || bCallersSelection ? settings.pDoubtful : nullptr;
  context.doubtfulSelection =
      bHeuristicPass ? MakeHeuristicsKey(next.heuristics.mask, next.heuristics.Params())
                     : settings.doubtfulSelection;
  // Under heuristics a repeated position ends its line at once; the pass without them cuts
  // only in quick mode or when asked.
  context.bCutRepetitions = next.nPass == 1 || settings.bQuickMode || bRepetitionCutAsked;
  auto search =
      std::make_unique<CRootSearch>(context, root, WorkerCount(settings.nThreads, settings.nLevels),
                                    settings.bShareFirstMoves, settings.onlyFirstMoves);
  search->SetHooks(settings.hooks);
  // The forced-mate runs look for short lines in the best-sorted moves: no time to lend.
  if (settings.nSchedulerLevels > 0 && !next.heuristics.Has(shbit::kFindForcedMate))
    search->EnableScheduler({.nMultithreadingLevels = std::max(1, settings.nLevels),
                             .nLevels = settings.nSchedulerLevels,
                             .bCustom = settings.bCustomScheduler});
  current.store(search.get());
  const std::lock_guard lock(passMutex);
  searches.push_back(std::move(search));
}

TRootOutcome CMateSolver::RunPass(std::chrono::milliseconds time) {
  context.bPassTimeUp = false;
  if (time.count() <= 0) return Current().Run(settings.nMaxSolutions);
  const CPassTimer timer(time, [this] {
    context.bPassTimeUp = true;
    context.run.WakeParked();
    context.run.Notify();
  });
  return Current().Run(settings.nMaxSolutions);
}

TPassInfo CMateSolver::PassOfTurn(int nIndex) const {
  if (nIndex >= static_cast<int>(settings.heuristicPasses.size())) return TPassInfo{};
  return {.nPass = 1, .nStep = nIndex, .heuristics = settings.heuristicPasses[nIndex]};
}

TRootOutcome CMateSolver::Run() {
  CPassSchedule schedule(static_cast<int>(settings.heuristicPasses.size()), settings.bPass2,
                         settings.nFirstPassMs);
  TRootOutcome outcome;
  // Per pass, what its last turn left of the first moves.
  std::vector<std::vector<TFirstMoveRecord>> records(settings.heuristicPasses.size() + 1);
  bool bFirstTurn = true;
  while (const auto turn = schedule.Next()) {
    if (!bFirstTurn) BeginPass(PassOfTurn(turn->nIndex));
    bFirstTurn = false;
    Current().ResumeFrom(records[turn->nIndex]);
    TRootOutcome passOutcome = RunPass(turn->time);
    records[turn->nIndex] = Current().Records();
    Current().ReleaseBuffers();
    // Every key found is proven: the keys of earlier passes stand beside the new ones.
    for (const TMove key : outcome.keys)
      if (std::find(passOutcome.keys.begin(), passOutcome.keys.end(), key) ==
          passOutcome.keys.end()) {
        passOutcome.keys.push_back(key);
        passOutcome.answers.Add(mategoal::Moves(context.goal, root.ply), key);
      }
    if (!passOutcome.keys.empty()) passOutcome.result = mate::kMate;
    passOutcome.passLabel = outcome.keys.empty() ? Pass().Label() : outcome.passLabel;
    outcome = std::move(passOutcome);
    const bool bEnough = settings.nMaxSolutions > 0 &&
                         static_cast<int>(outcome.keys.size()) >= settings.nMaxSolutions;
    const bool bTimeUp = context.bPassTimeUp.load() && !context.run.IsStopping();
    // The time of a turn is its own: what its end cut short is left to the next turns, or
    // not needed when the turn found enough keys.
    if (bTimeUp) outcome.bInterrupted = false;
    if (outcome.bInterrupted || outcome.nErrorCode != 0 || bEnough) break;
    schedule.Ended(turn->nIndex, !bTimeUp);
    if (settings.bStopRelaxingOnFirstSolution && !outcome.keys.empty())
      schedule.CloseHeuristicPasses();
  }
  outcome.bPass2Skipped = !settings.bPass2 && outcome.result != mate::kMate;
  outcome.nPositions = Positions();
  return outcome;
}

std::uint64_t CMateSolver::Positions() const {
  std::uint64_t n = 0;
  // Passes begin in the thread that runs the solve; the ones a reader sees are complete.
  const std::lock_guard lock(passMutex);
  for (const auto& search : searches) n += search->Positions();
  return n;
}

TPassInfo CMateSolver::Pass() const {
  const std::lock_guard lock(passMutex);
  return pass;
}
