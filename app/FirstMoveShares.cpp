#include "app/FirstMoveShares.h"

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"

CFirstMoveShares::CFirstMoveShares(const TChessboard& start, int nKeys) : nKeysWanted(nKeys) {
  // White to move with a ply left: the moves made are checked for legality only.
  TChessboard root = start;
  root.ply = root.rootPlies = 1;
  root.parent = nullptr;
  TMove generated[kMoveBufferSize];
  const int n = movegen::GenerateAllMoves(root, generated);
  for (int i = 0; i < n; ++i) {
    TChessboard child;
    if (movemaking::MakeSuccessor(root, generated[i], child)) moves.push_back(generated[i]);
  }
  results.resize(moves.size());
}

std::optional<int> CFirstMoveShares::Take() {
  if (bAbandoned || nNext > LastNeeded()) return std::nullopt;
  ++nOut;
  return nNext++;
}

void CFirstMoveShares::Settle(int index, const TShareResult& result) {
  results[index] = result;
  --nOut;
  if (result.bStopped || !result.sError.empty()) bAbandoned = true;
}

bool CFirstMoveShares::Finished() const {
  return nOut == 0 && (bAbandoned || nNext > LastNeeded());
}

int CFirstMoveShares::LastNeeded() const {
  int nKeys = 0;
  for (int i = 0; i < Size(); ++i)
    if (results[i] && results[i]->bKey && ++nKeys == nKeysWanted) return i;
  return Size() - 1;
}

TSharesOutcome CFirstMoveShares::Outcome() const {
  TSharesOutcome outcome;
  const int nLast = LastNeeded();
  for (int i = 0; i < Size(); ++i) {
    if (!results[i]) continue;
    const TShareResult& result = *results[i];
    outcome.nPositions += result.nPositions;
    outcome.bStopped = outcome.bStopped || result.bStopped;
    if (outcome.sError.empty()) outcome.sError = result.sError;
    if (result.bKey && i <= nLast) outcome.keys.push_back(moves[i]);
  }
  if (!outcome.keys.empty()) outcome.result = mate::kMate;
  return outcome;
}
