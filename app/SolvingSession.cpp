#include "app/SolvingSession.h"

#include <algorithm>

#include "app/ConsoleProgress.h"
#include "app/GuiLog.h"
#include "app/Options.h"
#include "app/ProgramState.h"
#include "app/SolverRun.h"
#include "app/SolvingPlan.h"
#include "app/SolvingRegistry.h"
#include "app/SolvingReports.h"
#include "app/WaitSchedule.h"
#include "app/platform/Machine.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "engine/HeuristicPlan.h"
#include "engine/MateSolver.h"
#include "engine/ProblemSortIndications.h"
#include "engine/RegisterBinding.h"
#include "engine/RegisterKey.h"

namespace {

using Clock = std::chrono::steady_clock;

// How often the solving thread reports the progress of a pass.
constexpr std::chrono::milliseconds kProgressInterval{250};

std::int64_t MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
}

// The result of a pass that ran out of time.
void MarkTimedOut(TSolvingResult& result) {
  result.nResultCode = kTimedOutResultCode;
  result.nMove = kNoMoveField;
}

// A pass's entry in the solving registry, removed however the pass ends.
class CRegistryEntry {
 public:
  CRegistryEntry(std::string entryName, int nThreads) : name(std::move(entryName)) {
    GetSolvingRegistry().Add(name, nThreads);
  }
  ~CRegistryEntry() { GetSolvingRegistry().Remove(name); }
  CRegistryEntry(const CRegistryEntry&) = delete;
  CRegistryEntry& operator=(const CRegistryEntry&) = delete;

 private:
  const std::string name;
};

std::unique_ptr<TAggregatedTemporaryChessboardRegister> MakeTempRegister(const COptions& settings,
                                                                         CWriteFailures& failures) {
  auto tempRegister = std::make_unique<TAggregatedTemporaryChessboardRegister>(
      TChessboardRegister<bool>::MaxElementsForPercent(platform::TotalPhysicalMemoryBytes(),
                                                       settings.nMaxMemRatioForTempReg));
  tempRegister->SetLanguage(RegisterLanguageOf(settings.nLanguageId));
  if (settings.bRegisterInfoLog) tempRegister->SetRegisterLog("registerInfo.log", &failures);
  return tempRegister;
}

// The machine's defaults; the settings file keeps only whether levels are on, and a
// solve always runs at one level at least.
TThreadSettings MachineThreads(const COptions& settings) {
  return DefaultThreadSettings(platform::PhysicalCoreCount(), platform::LogicalProcessorCount(),
                               std::max<unsigned>(1, settings.nMultithreadingLevels));
}

// A problem that names its scheduler levels (SCHEDULERLEVELS) tunes its own solves.
int SchedulerLevels(const TProblem& problem, const COptions& settings) {
  return problem.nSchedulerLevels != 0 ? problem.nSchedulerLevels
                                       : std::max<int>(0, settings.nSchedulerLevels);
}

}  // namespace

CSolvingSession::CSolvingSession(const COptions& options, TSessionCallbacks sessionCallbacks,
                                 TSessionSeams sessionSeams)
    : settings(options),
      callbacks(std::move(sessionCallbacks)),
      defaultThreads(MachineThreads(options)),
      sGuiLogPath(GetProgramState().guiLogPath.string()),
      seams(std::move(sessionSeams)),
      writeFailures([this](const std::string& message) { Notify(message); }),
      tempRegister(seams.pRegister ? nullptr : MakeTempRegister(options, writeFailures)),
      tables(std::make_unique<CTablesService>(
          TablesSettingsFromOptions(options),
          [this](const std::string& message) { Notify(message); })) {}

void CSolvingSession::Notify(const std::string& message) const {
  if (callbacks.onMessage)
    callbacks.onMessage(message);
  else
    std::fprintf(stderr, "%s\n", message.c_str());
}

CSolvingSession::~CSolvingSession() {
  Stop();
  JoinThread();
}

std::optional<std::string> CSolvingSession::Start(const TSolveOrder& order) {
  const int nLanguageId = settings.nLanguageId;
  if (bRunning.load()) return AlreadySolvingText(nLanguageId);
  if (IsInterrupted()) return SolvingStoppedText(nLanguageId);
  JoinThread();
  const TProblem& problem = *order.pProblem;
  if (problem.stipulation.type == TStipulation::kMoveLine) return OnlyMatesText(nLanguageId);
  try {
    fen::CheckStartPosition(problem.start);
  } catch (const ChessException& error) {
    return error.what();
  }
  if (order.bFindAll && GetSolvingRegistry().Contains(std::to_string(problem.id)))
    return TooManySolvesText(nLanguageId);

  TThreadSettings threads = order.threads.value_or(defaultThreads);
  const auto forced = ForcedThreadSettings(problem, threads);
  if (forced && callbacks.askForcedThreads &&
      callbacks.askForcedThreads(*forced, ForcedThreadsQuestion(nLanguageId, forced->nThreads)))
    threads = *forced;
  requests =
      PlanSolvingPasses(problem, {.solvingMode = SolvingModeOf(problem, order.bFindAll),
                                  .threads = threads,
                                  .bQuickMode = order.bQuickMode.value_or(settings.bQuickMode),
                                  .bMirrorSwitch = order.bMirrorSwitch,
                                  .heuristics = order.heuristics,
                                  .bPass2 = order.bPass2,
                                  .bDynamicDlfu = order.bDynamicDlfu});
  // The moves name squares of the position as given, not of its mirror.
  for (const auto& request : requests)
    if (request->nMirrorPass == 0) request->onlyFirstMoves = order.onlyFirstMoves;
  PrepareTablebase(problem);
  if (tempRegister) {
    const bool bReadForThis =
        registerReadFor && *registerReadFor == registerkey::Build(problem.start);
    if (settings.bClearRegisterOnStartSolving && !bReadForThis) tempRegister->Clear();
    registerReadFor.reset();
    BindRegisterToProblem(*tempRegister, problem.start);
  }
  {
    const std::lock_guard lock(controlMutex);
    if (bInterrupted) return SolvingStoppedText(nLanguageId);
    stopRequest = EStopRequest::None;
    pauseState = EPauseState::Running;
  }
  bRunning.store(true);
  solvingThread = std::thread(&CSolvingSession::RunPasses, this);
  return std::nullopt;
}

void CSolvingSession::PrepareTablebase(const TProblem& problem) {
  tablebase.reset();
  tablebaseCache.reset();
  nTablebaseLevels = TablebaseLevels(problem.nLichessLevels, settings.nLichessLevels);
  // Only a program that opened the service asks it: tests and tools never go online.
  if (nTablebaseLevels <= 0 || LiChessService() == nullptr) return;
  std::error_code error;
  tablebaseCache = std::make_unique<CLiChessCache>(
      CLiChessCache::FileOf(std::filesystem::current_path(error), problem.start),
      GetProgramState().bSecondInstance);
  tablebase = std::make_unique<COnlineTablebase>(LiChessService(), *tablebaseCache);
}

void CSolvingSession::RunPasses() {
  for (const auto& request : requests) {
    // The first pass runs and reports its end even when a stop came first, so that every
    // solve started is seen to end; the stop ends it at once.
    if (StopRequest() == EStopRequest::None || request == requests.front()) {
      RunPass(*request);
      ReportPassEnd(*request);
    } else if (StopRequest() == EStopRequest::TimeLimit) {
      MarkTimedOut(request->result);  // out of time before its turn came
    }
    request->MarkDone();
  }
  bRunning.store(false);
  if (callbacks.onSolveFinished) callbacks.onSolveFinished();
}

void CSolvingSession::RunPass(SolvingRequest& request) {
  const auto start = Clock::now();
  request.result.bRun = true;
  // The solving thread's barrier: whatever the pass throws ends it with an error report.
  try {
    const CRegistryEntry entry(request.RegistryName(),
                               CMateSolver::WorkerCount(static_cast<int>(request.threads.nThreads),
                                                        static_cast<int>(request.threads.nLevels)));
    // The moves log does not tell the passes under heuristics apart yet: it names pass 2.
    const TMovesLogSettings movesLog{
        .nProblem = request.pProblem->id, .pass = {.nPass = 2}, .pFailures = &writeFailures};
    const CMateSolver::TSettings solverSettings{
        .goal = GoalOf(*request.pProblem),
        .nThreads = static_cast<int>(request.threads.nThreads),
        .nMaxSolutions = MaxSolutions(request.solvingMode),
        .pRegister = seams.pRegister ? seams.pRegister : tempRegister.get(),
        .pDoubtful = seams.pRegister ? nullptr : tempRegister.get(),
        .pTables = tables.get(),
        .pAdvice = tablebase.get(),
        .nAdviceLevels = nTablebaseLevels,
        .nLevels = static_cast<int>(request.threads.nLevels),
        .bShareFirstMoves = settings.bLetAnalyzeTheSameMoveInTwoThreads,
        .nSchedulerLevels = SchedulerLevels(*request.pProblem, settings),
        .bCustomScheduler = settings.bCustomScheduler,
        .sortIndications = sortsource::ForSolve(
            *request.pProblem, settings.bUseMainVariantAsSortIndications, request.nMirrorPass == 1),
        .pMovesLog = settings.bLogMoves ? &movesLog : nullptr,
        .hooks = {.startThread = seams.startThread},
        .heuristicPasses = request.heuristicPasses,
        .bPass2 = request.bPass2,
        .bQuickMode = !request.bSafeMode,
        .nFirstPassMs = heuristicplan::kFirstPassMs,
        .bStopRelaxingOnFirstSolution = request.pProblem->bStopRelaxingOnFirstSolution,
        .onlyFirstMoves = request.onlyFirstMoves};
    CMateSolver solver(request.board, request.pProblem->stipulation.Moves(), solverSettings);
    Record(Supervise(solver, request, start), request);
  } catch (const std::exception& error) {
    request.result.sError = error.what();
  } catch (...) {
    request.result.sError = UnknownErrorText(settings.nLanguageId);
  }
  request.result.nElapsedMs = MillisecondsSince(start);
}

void CSolvingSession::Record(const TRootOutcome& outcome, SolvingRequest& request) const {
  RecordOutcome(outcome, outcome.bInterrupted && outcome.nErrorCode == 0, request);
  if (outcome.nErrorCode == kThreadStartFailed)
    request.result.sError = ThreadStartFailedText(settings.nLanguageId);
  const std::lock_guard lock(controlMutex);
  if (outcome.bInterrupted && stopRequest == EStopRequest::TimeLimit) MarkTimedOut(request.result);
}

TRootOutcome CSolvingSession::Supervise(CMateSolver& solver, const SolvingRequest& request,
                                        Clock::time_point start) {
  SetActiveSolver(&solver);
  try {
    CSolverRun run(solver);
    // One snapshot more once the pass is done, with its final figures: a quick pass would
    // otherwise leave its first one, of no positions, on show.
    for (bool bDone = false;;) {
      if (callbacks.onProgress) callbacks.onProgress(Snapshot(solver, request, start));
      if (bDone) break;
      bDone = run.WaitFor(kProgressInterval);
    }
    TRootOutcome outcome = run.TakeOutcome();
    SetActiveSolver(nullptr);
    return outcome;
  } catch (...) {
    SetActiveSolver(nullptr);
    throw;
  }
}

TPassProgress CSolvingSession::Snapshot(const CMateSolver& solver, const SolvingRequest& request,
                                        Clock::time_point start) const {
  TPassProgress progress =
      PassProgress(solver, request, MillisecondsSince(start), settings.bQuickMode);
  const std::lock_guard lock(controlMutex);
  progress.bPaused = pauseState != EPauseState::Running;
  return progress;
}

void CSolvingSession::ReportPassEnd(const SolvingRequest& request) const {
  const std::string label = request.Label();
  if (!sGuiLogPath.empty())
    AppendTimedLogLine(sGuiLogPath,
                       EngineEndText(settings.nLanguageId, label, request.result.bStopped));
  if (!callbacks.onPassFinished) return;
  callbacks.onPassFinished({label, request.nMirrorPass, request.result,
                            CompletionReport(settings.nLanguageId, label, request.result)});
}

EWaitOutcome CSolvingSession::Wait(const TWaitSettings& waitSettings) {
  const auto Now = [&waitSettings] {
    return waitSettings.clock ? waitSettings.clock() : Clock::now();
  };
  std::optional<Clock::duration> limit;
  if (waitSettings.nTimeLimitSeconds != kNoTimeLimit)
    limit = std::chrono::seconds(waitSettings.nTimeLimitSeconds);
  CWaitSchedule schedule(Now(), limit);
  CConsoleProgress progress(waitSettings.progressStream);
  for (std::size_t i = 0; i < requests.size() && solvingThread.joinable();) {
    SolvingRequest& request = *requests[i];
    // The clock given may not be the steady one: only the time left is taken from it.
    if (request.WaitDone(Clock::now() + (schedule.NextWake() - Now()))) {
      ++i;
      continue;
    }
    const auto now = Now();
    if (schedule.IsTimeUp(now)) {
      RequestStop(EStopRequest::TimeLimit);
      JoinThread();
      const bool bAllFinished = std::all_of(requests.begin(), requests.end(), [](const auto& r) {
        return r->result.bRun && !r->result.bStopped;
      });
      return bAllFinished ? EWaitOutcome::Finished : EWaitOutcome::TimedOut;
    }
    if (schedule.TakeTick(now) && !waitSettings.bQuiet)
      progress.Tick(request.pProblem->id, request.nMirrorPass);
  }
  JoinThread();
  return EWaitOutcome::Finished;
}

void CSolvingSession::JoinThread() {
  if (solvingThread.joinable() && solvingThread.get_id() != std::this_thread::get_id())
    solvingThread.join();
}
