#pragma once
#include <vector>

// Distance to mate of every king-and-rook-against-king position, one byte each, as a
// stand-in for precalculated data when measuring the codec. Index: (side to move: 0 White,
// 1 Black) * 64^3 + white king * 64^2 + white rook * 64 + black king. Values: 255 for an
// illegal position, 0 for a draw (Black takes the rook, or stalemate), n for White to move
// and mate in n, n + 1 for Black to move and be mated after n moves (1: checkmated).
std::vector<unsigned char> KrkDistanceToMateTable();
