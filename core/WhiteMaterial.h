#pragma once
#include "core/Chessboard.h"

// The white piece slots and the simple-material flag, recomputed from the squares.
// Internal to the core: the analysis and the move makers keep them current with it.
void ScanWhiteMaterial(TChessboard& board);
