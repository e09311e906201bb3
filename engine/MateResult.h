#pragma once
#include <cstdint>

// The signed result of a search node.
using MateResult = std::int8_t;

namespace mate {
constexpr MateResult kMate = 1;         // the side to move here is mated (White forces mate)
constexpr MateResult kNoMate = 0;       // a defence exists, or White has no mating move
constexpr MateResult kDoubtful = -1;    // the search was cut off: neither proven nor refuted
constexpr MateResult kRepetition = -3;  // the line returned to a position already on it

// No mate as Black's move filter saw it, and the end of the forced-mate depth.
constexpr MateResult kFilteredNoMate = -2;
constexpr MateResult kForcedMateDepthEnd = -4;
}  // namespace mate
