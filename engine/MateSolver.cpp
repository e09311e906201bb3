#include "engine/MateSolver.h"

CMateSolver::CMateSolver(const TChessboard& start, int nMoves, const TSettings& solveSettings)
    : root(start), settings(solveSettings) {
  root.ply = root.rootPlies = static_cast<std::uint16_t>(2 * nMoves - 1);
  root.parent = nullptr;
  root.line = nullptr;
  root.passNumber = settings.passNumber;
  context.pRegister = settings.pRegister;
  context.passNumber = settings.passNumber;
  search = std::make_unique<CRootSearch>(context, root, settings.nThreads);
}

TRootOutcome CMateSolver::Run() {
  return search->Run(settings.nMaxSolutions);
}
