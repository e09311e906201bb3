#pragma once
#include <array>
#include <cstdint>

#include "core/Chessboard.h"

// Where a lone white queen can mate when every other piece stays where it stands: the black
// king's own pieces and the white ones carve "cul-de-sacs", the only squares on which the
// queen, helped by nothing that moves, gives mate.
namespace queenmate {

constexpr std::uint8_t kUnreachable = 255;

// For each square, the black king's steps from it to the nearest such mating square, going
// round its own pieces; kUnreachable everywhere when the position has not exactly one white
// queen or no mating square.
std::array<std::uint8_t, 64> MateSquareDistances(const TChessboard& start);

// Whether the position has the pattern: one white queen and no white rook, and mating
// squares for the queen that the black king can reach within the moves.
bool SingleQueenPattern(const TChessboard& start, int nMoves);

}  // namespace queenmate
