#include "engine/MateSolver.h"

#include <algorithm>

CMateSolver::CMateSolver(const TChessboard& start, int nMoves, const TSettings& solveSettings)
    : root(start), settings(solveSettings), hints(settings.sortIndications) {
  root.ply = root.rootPlies = static_cast<std::uint16_t>(2 * nMoves - 1);
  root.parent = nullptr;
  context.pRegister = settings.pRegister;
  context.pDoubtful = settings.pDoubtful;
  context.heuristics = settings.heuristics;
  context.pTables = settings.pTables;
  context.pAdvice = settings.pAdvice;
  context.nAdviceLevels = settings.nAdviceLevels;
  context.pMovesLog = settings.pMovesLog;
  if (!hints.IsEmpty()) context.pHints = &hints;
  search = std::make_unique<CRootSearch>(
      context, root, WorkerCount(settings.nThreads, settings.nLevels), settings.bShareFirstMoves);
  search->SetHooks(settings.hooks);
}

int CMateSolver::WorkerCount(int nThreads, int nLevels) {
  constexpr int kMaxWorkers = 256;  // each worker owns a line and move buffers
  int nWorkers = 1;
  for (int level = 0; level < std::max(1, nLevels) && nWorkers < kMaxWorkers; ++level)
    nWorkers = std::min(kMaxWorkers, nWorkers * std::max(1, nThreads));
  return nWorkers;
}

TRootOutcome CMateSolver::Run() {
  return search->Run(settings.nMaxSolutions);
}
