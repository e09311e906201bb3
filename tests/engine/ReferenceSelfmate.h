#pragma once
// Plain minimax selfmate tests on the tests' own board (see ReferenceBoard.h), written from
// the rules of the selfmate alone: White moves, Black replies, and White wins when a Black
// move mates White within White's moves. No register, no move ordering.
#include <vector>

#include "ReferenceBoard.h"
#include "core/Move.h"

namespace reference {

// Legal White moves of board (White to move) that force Black to mate within nMoves moves
// of each side. With keys null the count stops at the first one.
int SelfmatingMoves(const CReferenceBoard& board, int nMoves, std::vector<TMove>* keys);
// Black, to move, has a legal move and every legal move mates White or leaves White a
// selfmate within nMovesLeft further moves of each side.
bool BlackMustMate(const CReferenceBoard& board, int nMovesLeft);

}  // namespace reference
