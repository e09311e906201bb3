#pragma once
// Plain minimax mate tests on the tests' own board (see ReferenceBoard.h): no register, no
// move ordering, no pruning beyond the short-cuts of "any" and "every".
#include <vector>

#include "ReferenceBoard.h"
#include "core/Move.h"

namespace reference {

// Legal White moves after which Black is mated within the plies left (board: White to
// move). With keys null the count stops at the first one.
int MatingMoves(const CReferenceBoard& board, int nPlies, std::vector<TMove>* keys);
// Black, to move with nPlies plies left, is mated within them: checkmated now, or every
// legal reply lets White mate. Stalemate is no mate.
bool BlackIsMated(const CReferenceBoard& board, int nPlies);
// The legal move of board that is move in the engine's form; false when there is none.
bool FindLegal(const CReferenceBoard& board, TMove move, TRefMove& found);

}  // namespace reference
