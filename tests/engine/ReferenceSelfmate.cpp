#include "ReferenceSelfmate.h"

namespace reference {

int SelfmatingMoves(const CReferenceBoard& board, int nMoves, std::vector<TMove>* keys) {
  TRefMove moves[CReferenceBoard::kMaxMoves];
  const int n = board.LegalMoves(moves);
  int nSelfmating = 0;
  for (int i = 0; i < n; ++i) {
    if (!BlackMustMate(board.After(moves[i]), nMoves - 1)) continue;
    ++nSelfmating;
    if (keys == nullptr) break;
    keys->push_back(CReferenceBoard::ToEngineMove(moves[i]));
  }
  return nSelfmating;
}

bool BlackMustMate(const CReferenceBoard& board, int nMovesLeft) {
  TRefMove moves[CReferenceBoard::kMaxMoves];
  const int n = board.LegalMoves(moves);
  for (int i = 0; i < n; ++i) {
    const CReferenceBoard next = board.After(moves[i]);
    const bool bMatesWhite = next.IsSideToMoveInCheck() && !next.HasLegalMove();
    if (bMatesWhite) continue;
    if (nMovesLeft == 0 || SelfmatingMoves(next, nMovesLeft, nullptr) == 0) return false;
  }
  // Without a legal move Black cannot mate: White's move mated or stalemated Black.
  return n > 0;
}

}  // namespace reference
