#include "app/SolvingEvents.h"

#include <algorithm>

#include "core/Notation.h"
#include "engine/MateSolver.h"

TPassProgress PassProgress(const CMateSolver& solver, const SolvingRequest& request,
                           std::int64_t nElapsedMs, bool bQuickMode) {
  TPassProgress progress;
  progress.sLabel = request.Label();
  progress.nMirrorPass = request.nMirrorPass;
  progress.nMoves = request.pProblem->stipulation.Moves();
  progress.nThreads = request.threads.nThreads;
  progress.bSafeModeShown = bQuickMode && request.bSafeMode;
  progress.nPositions = solver.Positions();
  progress.dShareDone = solver.Progress();
  progress.nElapsedSeconds = nElapsedMs / 1000;
  const TPassInfo pass = solver.Pass();
  progress.sPass = pass.Label();
  progress.nHeuristicMask = pass.heuristics.mask;
  progress.sHeuristics = heuristicset::Describe(pass.heuristics);
  progress.nRegisterElements = solver.RegisterElements();
  progress.nDoubtfulElements = solver.DoubtfulElements();
  const std::vector<TMove>& firstMoves = solver.Root().FirstMoves();
  progress.nFirstMoves = static_cast<int>(firstMoves.size());
  if (!firstMoves.empty()) {
    progress.nCurrentMove =
        std::clamp(solver.Root().CurrentMoveIndex(), 0, progress.nFirstMoves - 1);
    progress.sCurrentMove = notation::MoveToText(request.board, firstMoves[progress.nCurrentMove]);
  }
  return progress;
}

void RecordOutcome(const TRootOutcome& outcome, bool bStopped, SolvingRequest& request) {
  TSolvingResult& result = request.result;
  result.nResultCode = outcome.result;
  result.bStopped = bStopped;
  result.keys = outcome.keys;
  for (TMove key : outcome.keys)
    result.keyTexts.push_back(notation::MoveToText(request.board, key));
  result.nSolutions = static_cast<int>(outcome.keys.size());
  if (!outcome.keys.empty())
    result.nMove = static_cast<std::uint16_t>(outcome.keys[0].from | outcome.keys[0].to << 8);
  result.nPositions = outcome.nPositions;
  result.sPass = outcome.passLabel;
  result.bPass2Skipped = outcome.bPass2Skipped;
}
