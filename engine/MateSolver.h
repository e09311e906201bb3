#pragma once
#include <memory>

#include "core/Chessboard.h"
#include "engine/RootSearch.h"
#include "engine/SearchContext.h"
#include "engine/WhiteMoveHints.h"

// One solve of "White to move mates in N" from a start position: the root search with its
// threads over a shared context. Run blocks; Stop, Pause and Resume may be called from any
// thread while it runs, and the counters may be read at any time.
class CMateSolver {
 public:
  struct TSettings {
    int nThreads = 1;
    int nMaxSolutions = 1;  // 0: all solutions
    TChessboardRegister<bool>* pRegister = nullptr;
    // The doubtful answers of the selection given (see SearchContext); none when null.
    TAggregatedTemporaryChessboardRegister* pDoubtful = nullptr;
    THeuristicsKey heuristics = 0;
    CTableProbe* pTables = nullptr;
    // White moves skipped at the first levels (see SearchContext).
    CWhiteMoveAdvice* pAdvice = nullptr;
    int nAdviceLevels = 0;
    // Multithreading levels: t threads at each of L levels make up to t^L threads. The
    // engine runs that many workers and shares the work at any depth (see CRootSearch).
    int nLevels = 1;
    // Whether a thread may join the analysis of a first move another thread has taken.
    bool bShareFirstMoves = true;
    // Which White moves to try first (see CWhiteMoveHints); the keys found do not depend on it.
    TSortIndications sortIndications = {};
    // Where the threads log the moves they search; null for no log. Must outlive the solve.
    const TMovesLogSettings* pMovesLog = nullptr;
    TRootHooks hooks = {};
  };

  // t^L, the number of worker threads, within what one process sensibly runs.
  static int WorkerCount(int nThreads, int nLevels);

  // start's squares and derived fields are used; its ply is set to 2N - 1 here.
  CMateSolver(const TChessboard& start, int nMoves, const TSettings& settings);
  TRootOutcome Run();
  // Cutting repeated positions loses no mate; the exact search does better without (see
  // SearchContext).
  void SetCutRepetitions(bool bCut) { context.bCutRepetitions = bCut; }
  void Stop() { context.run.Stop(); }
  void Pause() { context.run.Pause(); }
  void Resume() {
    context.run.Resume();
    search->ResumeAllThreads();
  }
  // Pauses only the thread analysing the current first move; asked before a first move is
  // current, the thread that takes the first one.
  void PauseOneThread() { search->PauseCurrentThread(); }
  void ShiftCurrentMoveToEnd() { search->ShiftCurrentMoveToEnd(); }
  void SwapCurrentWithNext() { search->SwapCurrentWithNext(); }
  void SkipToNextMove() { search->SkipToNextMove(); }

  std::uint64_t Positions() const { return search->Positions(); }
  double Progress() const { return search->Progress(); }
  const CRootSearch& Root() const { return *search; }
  // Where the threads wait: an observer may wait here for them to park.
  CRunControl& RunControl() { return context.run; }

 private:
  TChessboard root;
  TSettings settings;
  CWhiteMoveHints hints;
  SearchContext context;
  std::unique_ptr<CRootSearch> search;
};
