#pragma once
#include <optional>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"

// SH_ONECOLORPLAYPOSSIBLE: with bishops of opposite colours and no queen or rook, the black
// bishop can never touch a white piece that stands on the other colour, nor guard a square
// of it. White then plays on those squares only: its other moves are left out, which never
// turns a mate found into a false one.
namespace onecolour {

// The colour White keeps to in board (true: light squares), nothing when board does not fit:
// one bishop a side on opposite colours, no queen or rook, no black knight, and the chosen
// colour not the black bishop's.
std::optional<bool> PlayColour(const TChessboard& board, EOneColour form);
// after: the position White's move made. Whether the move ends on the other colour while the
// position it was made in fits.
bool WhiteMoveLeavesColour(const TChessboard& after, EOneColour form);

}  // namespace onecolour
