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
#include "app/platform/Machine.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "engine/MateSolver.h"

namespace {

using Clock = std::chrono::steady_clock;

// How often the solving thread reports the progress of a pass.
constexpr std::chrono::milliseconds kProgressInterval{250};
// The waiter of a console solve wakes this often.
constexpr std::chrono::seconds kWaitSlice{1};

std::int64_t MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
}

// The result of a pass that ran out of time.
void MarkTimedOut(TSolvingResult& result) {
  result.nResultCode = kTimedOutResultCode;
  result.nMove = kNoMoveField;
}

std::unique_ptr<TChessboardRegister<bool>> MakeTempRegister(const COptions& settings) {
  return std::make_unique<TChessboardRegister<bool>>(
      TChessboardRegister<bool>::MaxElementsForPercent(platform::TotalPhysicalMemoryBytes(),
                                                       settings.nMaxMemRatioForTempReg));
}

// The machine's defaults; the settings file keeps only whether levels are on, and a
// solve always runs at one level at least.
TThreadSettings MachineThreads(const COptions& settings) {
  return DefaultThreadSettings(platform::PhysicalCoreCount(), platform::LogicalProcessorCount(),
                               std::max<unsigned>(1, settings.nMultithreadingLevels));
}

}  // namespace

CSolvingSession::CSolvingSession(const COptions& options, TSessionCallbacks sessionCallbacks)
    : settings(options),
      callbacks(std::move(sessionCallbacks)),
      defaultThreads(MachineThreads(options)),
      sGuiLogPath(GetProgramState().guiLogPath.string()),
      tempRegister(MakeTempRegister(options)) {}

CSolvingSession::~CSolvingSession() {
  Stop();
  JoinThread();
}

std::optional<std::string> CSolvingSession::Start(const TSolveOrder& order) {
  const int nLanguageId = settings.nLanguageId;
  if (bRunning.load()) return AlreadySolvingText(nLanguageId);
  JoinThread();
  const TProblem& problem = *order.pProblem;
  if (problem.stipulation.type != TStipulation::kDirectMate)
    return OnlyDirectMatesText(nLanguageId);
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
  requests = PlanSolvingPasses(problem, {.solvingMode = SolvingModeOf(problem, order.bFindAll),
                                         .threads = threads,
                                         .bQuickMode = settings.bQuickMode,
                                         .bMirrorSwitch = order.bMirrorSwitch});
  if (settings.bClearRegisterOnStartSolving) tempRegister->Clear();
  {
    const std::lock_guard lock(controlMutex);
    bStopRequested = false;
    pauseState = EPauseState::Running;
  }
  bRunning.store(true);
  solvingThread = std::thread(&CSolvingSession::RunPasses, this);
  return std::nullopt;
}

void CSolvingSession::RunPasses() {
  for (const auto& request : requests) {
    bool bStopRequestedNow = false;
    {
      const std::lock_guard lock(controlMutex);
      bStopRequestedNow = bStopRequested;
    }
    if (!bStopRequestedNow) {
      RunPass(*request);
      ReportPassEnd(*request);
    }
    request->MarkDone();
  }
  bRunning.store(false);
  if (callbacks.onSolveFinished) callbacks.onSolveFinished();
}

void CSolvingSession::RunPass(SolvingRequest& request) {
  const auto start = Clock::now();
  request.result.bRun = true;
  SolvingRegistry& registry = GetSolvingRegistry();
  registry.Add(request.RegistryName(),
               CMateSolver::WorkerCount(static_cast<int>(request.threads.nThreads),
                                        static_cast<int>(request.threads.nLevels)));
  try {
    const CMateSolver::TSettings solverSettings{
        .nThreads = static_cast<int>(request.threads.nThreads),
        .nMaxSolutions = MaxSolutions(request.solvingMode),
        .pRegister = tempRegister.get(),
        .nLevels = static_cast<int>(request.threads.nLevels),
        .bShareFirstMoves = settings.bLetAnalyzeTheSameMoveInTwoThreads};
    CMateSolver solver(request.board, request.pProblem->stipulation.Moves(), solverSettings);
    const TRootOutcome outcome = Supervise(solver, request, start);
    RecordOutcome(outcome, solver.WasStopped(), request);
  } catch (const std::exception& error) {
    request.result.sError = error.what();
  }
  request.result.nElapsedMs = MillisecondsSince(start);
  registry.Remove(request.RegistryName());
}

TRootOutcome CSolvingSession::Supervise(CMateSolver& solver, const SolvingRequest& request,
                                        Clock::time_point start) {
  SetActiveSolver(&solver);
  try {
    CSolverRun run(solver);
    do {
      if (callbacks.onProgress) callbacks.onProgress(Snapshot(solver, request, start));
    } while (!run.WaitFor(kProgressInterval));
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
  const auto start = Clock::now();
  CConsoleProgress progress(waitSettings.progressStream);
  for (std::size_t i = 0; i < requests.size() && solvingThread.joinable();) {
    SolvingRequest& request = *requests[i];
    if (request.WaitDone(Clock::now() + kWaitSlice)) {
      ++i;
      continue;
    }
    if (!waitSettings.bQuiet) progress.Tick(request.pProblem->id, request.nMirrorPass);
    if (waitSettings.nTimeLimitSeconds != kNoTimeLimit &&
        MillisecondsSince(start) > waitSettings.nTimeLimitSeconds * std::int64_t{1000}) {
      Stop();
      JoinThread();
      MarkTimedOut(request.result);
      return EWaitOutcome::TimedOut;
    }
  }
  JoinThread();
  return EWaitOutcome::Finished;
}

void CSolvingSession::JoinThread() {
  if (solvingThread.joinable() && solvingThread.get_id() != std::this_thread::get_id())
    solvingThread.join();
}

void CSolvingSession::SetActiveSolver(CMateSolver* solver) {
  const std::lock_guard lock(controlMutex);
  activeSolver = solver;
  if (!solver) return;
  if (bStopRequested)
    solver->Stop();
  else if (pauseState == EPauseState::AllPaused)
    solver->Pause();
  else if (pauseState == EPauseState::OnePaused)
    solver->PauseOneThread();
}

void CSolvingSession::Stop() {
  const std::lock_guard lock(controlMutex);
  bStopRequested = true;
  if (activeSolver) activeSolver->Stop();
}

void CSolvingSession::PauseAll() {
  const std::lock_guard lock(controlMutex);
  pauseState = EPauseState::AllPaused;
  if (activeSolver) activeSolver->Pause();
}

bool CSolvingSession::PauseOneThread() {
  const std::lock_guard lock(controlMutex);
  pauseState = EPauseState::OnePaused;
  if (!activeSolver) return false;
  activeSolver->PauseOneThread();
  return true;
}

void CSolvingSession::Resume() {
  const std::lock_guard lock(controlMutex);
  pauseState = EPauseState::Running;
  if (activeSolver) activeSolver->Resume();
}

bool CSolvingSession::ApplyManualCommand(EManualCommand command) {
  const std::lock_guard lock(controlMutex);
  if (!settings.bEnableManualEngineControl || !activeSolver) return false;
  ::ApplyManualCommand(*activeSolver, command);
  return true;
}

std::uint64_t CSolvingSession::Positions() const {
  const std::lock_guard lock(controlMutex);
  return activeSolver ? activeSolver->Positions() : 0;
}
