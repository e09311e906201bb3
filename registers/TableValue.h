#pragma once
#include <cstdint>

// One byte per position and side to move. With White to move: the least N such that White
// mates in N moves. With Black to move: the least N such that White mates within N moves
// whatever Black plays (0 when Black is mated). Only White's mates count: draws, stalemates
// and positions that Black wins are all "no mate".
namespace tablevalue {
constexpr std::uint8_t kMaxMate = 253;
constexpr std::uint8_t kNoMate = 254;
// A placement that cannot occur with this side to move (the other king in check, kings
// side by side, two pieces on a square).
constexpr std::uint8_t kIllegal = 255;

constexpr bool IsMate(std::uint8_t value) {
  return value <= kMaxMate;
}
}  // namespace tablevalue
