#pragma once
// What the session hands to one board pass of a solve, and what comes back from it.
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "app/ThreadSettings.h"
#include "core/Chessboard.h"
#include "core/Move.h"
#include "engine/HeuristicSet.h"
#include "problems/Problem.h"

// How many keys a solve looks for before it stops.
enum class ESolvingMode { SingleSolution, AllSolutions, StopOnDual, StopOn3Sol };

// The engine's limit for a mode: 0 for all solutions.
int MaxSolutions(ESolvingMode mode);
// The mode a problem asks for; bForceAll (the user's "find all") overrides the problem.
ESolvingMode SolvingModeOf(const TProblem& problem, bool bForceAll);

// The result code of a solve that ran out of time, beside the mate results of the search.
inline constexpr int kTimedOutResultCode = 3;
// The move field of a solve that ran out of time; no real move has this code.
inline constexpr std::uint16_t kNoMoveField = 0xFFFF;

struct TSolvingResult {
  int nResultCode = 0;      // a mate result of the search, or kTimedOutResultCode
  std::uint16_t nMove = 0;  // the first key as from | to << 8, 0 when none
  int nSolutions = 0;
  std::string sError;                 // what the search threw, or the start-position check said
  bool bRun = false;                  // false when the pass never started (the solve was stopped)
  bool bStopped = false;              // the pass was told to stop before it finished
  std::vector<TMove> keys;            // in the order the search sorts the first moves
  std::vector<std::string> keyTexts;  // the keys in the long notation of the pass's position
  std::uint64_t nPositions = 0;
  std::int64_t nElapsedMs = 0;
  std::string sPass;           // the pass that found the first key ("1", "1b", "2"), else the last
  bool bPass2Skipped = false;  // no key, and the pass without heuristics was switched off
};

struct SolvingRequest {
  const TProblem* pProblem = nullptr;  // outlives the solve
  TChessboard board{};                 // the position of this pass, mirrored for pass 1
  ESolvingMode solvingMode = ESolvingMode::SingleSolution;
  bool bSafeMode = false;
  TThreadSettings threads;
  int nMirrorPass = 0;  // 0: the position as given, 1: mirrored left to right
  std::vector<THeuristicSet> heuristicPasses;  // 1, 1b, 1c ...; none: pass 2 alone
  bool bPass2 = true;                          // the pass without heuristics runs
  std::vector<TMove> onlyFirstMoves;           // the first moves searched, all when empty

  TSolvingResult result;  // written by the solving thread before it marks the request done

  bool FindsAll() const { return solvingMode != ESolvingMode::SingleSolution; }
  // "12" for pass 0 and "12 M1" for the mirrored pass.
  std::string Label() const;
  // The name in the solving registry: "12_0", "12_1".
  std::string RegistryName() const;

  void MarkDone();
  bool IsDone() const;
  // Waits until done or the deadline passes; returns whether done.
  bool WaitDone(std::chrono::steady_clock::time_point deadline) const;

 private:
  mutable std::mutex doneMutex;
  mutable std::condition_variable doneSignal;
  bool bDone = false;
};
