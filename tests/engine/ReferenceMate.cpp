#include "ReferenceMate.h"

namespace reference {

int MatingMoves(const CReferenceBoard& board, int nPlies, std::vector<TMove>* keys) {
  TRefMove moves[CReferenceBoard::kMaxMoves];
  const int n = board.PseudoMoves(moves);
  CReferenceBoard next;
  int nMating = 0;
  for (int i = 0; i < n; ++i) {
    next = board.After(moves[i]);
    // Only a check mates at once: the other last moves need no legality test.
    if (nPlies == 1 && !next.IsSideToMoveInCheck()) continue;
    if (!next.IsMoverKingSafe() || !BlackIsMated(next, nPlies - 1)) continue;
    ++nMating;
    if (keys == nullptr) break;
    keys->push_back(CReferenceBoard::ToEngineMove(moves[i]));
  }
  return nMating;
}

bool BlackIsMated(const CReferenceBoard& board, int nPlies) {
  const bool bInCheck = board.IsSideToMoveInCheck();
  if (nPlies == 0) return bInCheck && !board.HasLegalMove();
  TRefMove moves[CReferenceBoard::kMaxMoves];
  const int n = board.PseudoMoves(moves);
  CReferenceBoard next;
  bool bHasReply = false;
  for (int i = 0; i < n; ++i) {
    if (!board.MakeLegal(moves[i], next)) continue;
    bHasReply = true;
    if (MatingMoves(next, nPlies - 1, nullptr) == 0) return false;
  }
  return bHasReply || bInCheck;
}

bool FindLegal(const CReferenceBoard& board, TMove move, TRefMove& found) {
  TRefMove moves[CReferenceBoard::kMaxMoves];
  const int n = board.LegalMoves(moves);
  for (int i = 0; i < n; ++i) {
    if (!CReferenceBoard::ToEngineMove(moves[i]).SameMove(move)) continue;
    found = moves[i];
    return true;
  }
  return false;
}

}  // namespace reference
