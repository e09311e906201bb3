#pragma once
// The one way to solve a problem, for the console and for the window alike. Start returns at
// once: the passes run in a solving thread of their own, which reports progress and results
// through callbacks carrying plain values. The callbacks run in that thread (a window
// marshals them to its own) and must neither throw nor start or wait for a solve of the same
// session. Stop, pause and resume may be called from any thread.
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "app/OnlineTablebase.h"
#include "app/Options.h"
#include "app/SolverCommands.h"
#include "app/SolvingEvents.h"
#include "app/SolvingRequest.h"
#include "app/TablesService.h"
#include "app/ThreadSettings.h"
#include "core/WriteFailures.h"
#include "engine/HeuristicChoice.h"
#include "engine/SolvingThread.h"
#include "problems/Problem.h"
#include "registers/AggregatedTemporaryChessboardRegister.h"
#include "registers/ChessboardRegister.h"

class CMateSolver;
struct TRootOutcome;

struct TSolveOrder {
  const TProblem* pProblem = nullptr;  // must outlive the solve
  bool bFindAll = false;               // all solutions, whatever the problem asks for
  std::optional<TThreadSettings> threads = std::nullopt;  // the session's defaults when not given
  bool bMirrorSwitch = false;  // also run the mirrored pass where the problem allows
  // The heuristic passes named by hand; the problem and the position decide when not given.
  std::optional<heuristicchoice::TNamedSet> heuristics = std::nullopt;
  bool bPass2 = true;        // run the pass without heuristics
  bool bDynamicDlfu = true;  // the automatic passes may hold pieces their king has shut in
  std::optional<bool> bQuickMode = std::nullopt;  // the QuickMode setting when not given
  // The first moves the pass of the position as given searches, all when empty; a share of
  // the problem when several machines solve it together.
  std::vector<TMove> onlyFirstMoves = {};
};

inline constexpr int kNoTimeLimit = -1;

struct TWaitSettings {
  bool bQuiet = false;  // no progress line
  int nTimeLimitSeconds = kNoTimeLimit;
  std::FILE* progressStream = stderr;
  // The clock the time limit is measured by; the steady clock when not given.
  std::function<std::chrono::steady_clock::time_point()> clock = nullptr;
};

enum class EWaitOutcome { Finished, TimedOut };

// What a command on the temporary register did, and the message to show.
struct TRegisterCommandResult {
  bool bDone = false;
  std::string message;
};

// What a session's solves are built from beyond the settings; tests give failing parts.
struct TSessionSeams {
  TChessboardRegister<bool>* pRegister = nullptr;  // the session's own register when null
  TThreadStarter startThread = nullptr;            // the engine's own when null
};

class CSolvingSession {
 public:
  explicit CSolvingSession(const COptions& settings, TSessionCallbacks callbacks = {},
                           TSessionSeams seams = {});
  ~CSolvingSession();  // stops a running solve and waits for its thread
  CSolvingSession(const CSolvingSession&) = delete;
  CSolvingSession& operator=(const CSolvingSession&) = delete;

  // Checks the problem and starts its passes; returns the reason when it cannot start.
  std::optional<std::string> Start(const TSolveOrder& order);
  // Blocks until the solve ends, waking once a second for the progress line and at the
  // time limit. A solve that runs out of time is stopped; its running pass gets result code
  // 3, and the wait says it timed out unless every pass had finished all the same.
  EWaitOutcome Wait(const TWaitSettings& settings = {});

  void Stop();
  // Stops for good, as when the program is told to end: the running solve stops and no
  // further solve starts. May be called from any thread, a signal watcher's included.
  void Interrupt();
  bool IsInterrupted() const;
  void PauseAll();
  // Parks the thread of the current move, in this pass and the next; returns whether a pass
  // was running to take it.
  bool PauseOneThread();
  void Resume();
  // Returns whether the running solver took the command; refused unless the
  // EnableManualEngineControl setting is on.
  bool ApplyManualCommand(EManualCommand command);

  bool IsRunning() const { return bRunning.load(); }
  // Positions examined so far by the running pass, 0 between passes.
  std::uint64_t Positions() const;
  // Threads of the running pass that a pause holds now, 0 between passes.
  int ParkedThreads() const;
  // What each worker thread of the running pass searches now; none between passes.
  std::vector<TThreadMove> ThreadMoves() const;
  // The passes of the last solve; read them once it has ended.
  const std::vector<std::unique_ptr<SolvingRequest>>& Requests() const { return requests; }
  TThreadSettings DefaultThreads() const { return defaultThreads; }

  // The temporary register's commands. They are refused while a solve runs. A register read
  // for a problem is kept by the next solve of that problem, even when the settings ask for
  // an empty register at each start. A file that cannot be read leaves the register as it was.
  TRegisterCommandResult SaveTemporaryRegister(const TProblem& problem);
  TRegisterCommandResult SaveTemporaryRegisterAs(const TProblem& problem,
                                                 const std::filesystem::path& file);
  TRegisterCommandResult ReadTemporaryRegister(const TProblem& problem);
  TRegisterCommandResult ReadTemporaryRegisterFrom(const TProblem& problem,
                                                   const std::filesystem::path& file);
  TRegisterCommandResult ClearTemporaryRegister();
  // "TempRegisters/<placement>.ltr" in the working folder: the file of the problem's position.
  static std::filesystem::path DefaultRegisterFile(const TProblem& problem);
  // The session's own register; null when the seams gave another.
  TAggregatedTemporaryChessboardRegister* TemporaryRegister() { return tempRegister.get(); }
  // The endgame tables the solves probe, shared with the window's table commands.
  CTablesService& Tables() const { return *tables; }

 private:
  enum class EPauseState { Running, AllPaused, OnePaused };
  enum class EStopRequest { None, User, TimeLimit };

  void RunPasses();
  void RunPass(SolvingRequest& request);
  // Runs the solver and reports its progress until it ends.
  TRootOutcome Supervise(CMateSolver& solver, const SolvingRequest& request,
                         std::chrono::steady_clock::time_point start);
  TPassProgress Snapshot(const CMateSolver& solver, const SolvingRequest& request,
                         std::chrono::steady_clock::time_point start) const;
  // Files the outcome of a pass into its request.
  void Record(const TRootOutcome& outcome, SolvingRequest& request) const;
  void ReportPassEnd(const SolvingRequest& request) const;
  void RequestStop(EStopRequest request);
  EStopRequest StopRequest() const;
  // Makes the solver the target of stop and pause, passing on the requests made so far.
  void SetActiveSolver(CMateSolver* solver);
  void JoinThread();
  // Opens the tablebase answers kept for the problem when its solve asks the service.
  void PrepareTablebase(const TProblem& problem);

  const COptions settings;
  const TSessionCallbacks callbacks;
  const TThreadSettings defaultThreads;
  const std::string sGuiLogPath;  // where the engine's end is recorded; empty for none
  const TSessionSeams seams;
  // Why a register command cannot run now; nothing when it can.
  std::optional<std::string> RegisterCommandRefusal() const;
  // A notice that does not stop the solve: to the callback, else to the standard error.
  void Notify(const std::string& message) const;

  // The logs that cannot be written, each told once through Notify.
  CWriteFailures writeFailures;
  std::unique_ptr<TAggregatedTemporaryChessboardRegister> tempRegister;
  // The start position of the problem whose register was read last, until its solve starts.
  std::optional<TChessboardRegisterItem> registerReadFor;
  std::unique_ptr<CTablesService> tables;
  // The online tablebase of the problem being solved; null when its lookups are off.
  std::unique_ptr<CLiChessCache> tablebaseCache;
  std::unique_ptr<COnlineTablebase> tablebase;
  int nTablebaseLevels = 0;

  std::vector<std::unique_ptr<SolvingRequest>> requests;
  std::atomic<bool> bRunning{false};
  std::thread solvingThread;

  mutable std::mutex controlMutex;  // guards the members below
  CMateSolver* activeSolver = nullptr;
  EStopRequest stopRequest = EStopRequest::None;
  bool bInterrupted = false;
  EPauseState pauseState = EPauseState::Running;
};
