#pragma once
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"
#include "engine/RootSearch.h"
#include "engine/SearchContext.h"
#include "engine/WhiteMoveHints.h"

// Which pass of a solve runs: the passes under heuristics are 1, 1b, 1c ... (nStep 0, 1,
// 2 ...), the pass without heuristics is 2.
struct TPassInfo {
  int nPass = 2;
  int nStep = 0;
  THeuristicSet heuristics;
  // "1", "1b", "1c" ... or "2".
  std::string Label() const;
};

// One solve of "White to move mates in N" (or forces Black to mate, see MateGoal.h) from a
// start position: the root search with its threads over a shared context, pass by pass.
// The passes under heuristics come first, each less restricted than the one before; a key
// any of them finds is proven, so a solve for fewer keys than all ends with the first pass
// that finds enough. The pass without heuristics settles what they left open. Run blocks;
// Stop, Pause and Resume may be called from any thread while it runs, and the counters may
// be read at any time.
class CMateSolver {
 public:
  struct TSettings {
    // A selfmate runs the pass without heuristics alone, without tables or advice.
    EMateGoal goal = EMateGoal::kDirectMate;
    int nThreads = 1;
    int nMaxSolutions = 1;  // 0: all solutions
    TChessboardRegister<bool>* pRegister = nullptr;
    // Where the passes under heuristics file and find the doubtful answers of their selection
    // (see SearchContext); none when null. A solve without such passes consults the answers
    // of doubtfulSelection.
    TAggregatedTemporaryChessboardRegister* pDoubtful = nullptr;
    THeuristicsKey doubtfulSelection = 0;
    CTableProbe* pTables = nullptr;
    // White moves skipped at the first levels (see SearchContext).
    CWhiteMoveAdvice* pAdvice = nullptr;
    int nAdviceLevels = 0;
    // Multithreading levels: t threads at each of L levels make up to t^L threads. The
    // engine runs that many workers and shares the work at any depth (see CRootSearch).
    int nLevels = 1;
    // Whether a thread may join the analysis of a first move another thread has taken.
    bool bShareFirstMoves = true;
    // White moves after the multithreading levels whose nodes lend time to their runners-up
    // (see CScheduler), 0 for none, and whether deeper nodes with a long way to go do too.
    int nSchedulerLevels = 0;
    bool bCustomScheduler = false;
    // Which White moves to try first (see CWhiteMoveHints); the keys found do not depend on it.
    TSortIndications sortIndications = {};
    // Where the threads log the moves they search; null for no log. Must outlive the solve.
    const TMovesLogSettings* pMovesLog = nullptr;
    TRootHooks hooks = {};
    // The passes under heuristics, in order; none leaves the pass without heuristics alone.
    std::vector<THeuristicSet> heuristicPasses = {};
    bool bPass2 = true;  // false skips the pass without heuristics
    // Whether the pass without heuristics cuts lines that repeat a position (quick mode).
    bool bQuickMode = false;
    // The time of each pass under heuristics in the first round of turns (see
    // CPassSchedule); 0: every pass runs once, to its end.
    int nFirstPassMs = 0;
    // Once a pass under heuristics found a key, go on with the pass without them.
    bool bStopRelaxingOnFirstSolution = false;
    // The first moves searched; all when empty (see CRootSearch).
    std::vector<TMove> onlyFirstMoves = {};
  };

  // t^L, the number of worker threads, within what one process sensibly runs.
  static int WorkerCount(int nThreads, int nLevels);

  // start's squares and derived fields are used; its ply is set here (2N - 1 for a mate in N).
  CMateSolver(const TChessboard& start, int nMoves, const TSettings& settings);
  TRootOutcome Run();
  // Cutting repeated positions loses no mate; the exact search does better without (see
  // SearchContext).
  void SetCutRepetitions(bool bCut) { context.bCutRepetitions = bRepetitionCutAsked = bCut; }
  void Stop() { context.run.Stop(); }
  void Pause() { context.run.Pause(); }
  void Resume() {
    context.run.Resume();
    Current().ResumeAllThreads();
  }
  // Pauses only the thread analysing the current first move; asked before a first move is
  // current, the thread that takes the first one.
  void PauseOneThread() { Current().PauseCurrentThread(); }
  void ShiftCurrentMoveToEnd() { Current().ShiftCurrentMoveToEnd(); }
  void SwapCurrentWithNext() { Current().SwapCurrentWithNext(); }
  void SkipToNextMove() { Current().SkipToNextMove(); }

  // Positions of every pass so far.
  std::uint64_t Positions() const;
  double Progress() const { return Current().Progress(); }
  // The root search of the running pass (the last one once the solve has ended).
  const CRootSearch& Root() const { return Current(); }
  // The start position, with the ply the solve searches from.
  const TChessboard& RootBoard() const { return root; }
  TPassInfo Pass() const;
  // Entries of the register, and the doubtful answers filed in it (0 without a register).
  std::uint32_t RegisterElements() const {
    return settings.pRegister != nullptr ? settings.pRegister->GetElementsIn() : 0;
  }
  std::uint32_t DoubtfulElements() const {
    return settings.pDoubtful != nullptr ? settings.pDoubtful->GetDoubtfulElementsIn() : 0;
  }
  // Why the last doubtful node was doubtful (see SearchContext).
  std::uint32_t DoubtfulReason() const { return context.doubtfulReason.load(); }
  // Where the threads wait: an observer may wait here for them to park.
  CRunControl& RunControl() { return context.run; }

 private:
  CRootSearch& Current() const { return *current.load(); }
  // Runs the current pass within the time (0: to its end).
  TRootOutcome RunPass(std::chrono::milliseconds time);
  // The pass of turn nIndex of the schedule.
  TPassInfo PassOfTurn(int nIndex) const;
  // Readies the context and a root search for the pass.
  void BeginPass(const TPassInfo& pass);
  bool bRepetitionCutAsked = false;

  TChessboard root;
  TSettings settings;
  TMovesLogSettings movesLog;  // the solve's, with the pass that runs
  CWhiteMoveHints hints;
  SearchContext context;
  // Every turn's root search, kept while the solver lives so that readers in other threads
  // never see one go (an ended one gives back its buffers).
  std::vector<std::unique_ptr<CRootSearch>> searches;
  std::atomic<CRootSearch*> current{nullptr};
  mutable std::mutex passMutex;
  TPassInfo pass;  // under passMutex
};
