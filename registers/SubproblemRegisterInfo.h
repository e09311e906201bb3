#pragma once
#include <cstdint>

// What the register knows of one key under one move count; the same 12 bytes follow
// the key in a solved-positions file.
template <typename TAnswer>
struct TSubproblemRegisterInfo;

template <>
struct TSubproblemRegisterInfo<bool> {
  std::uint16_t nMoves = 0;      // plies of the sub-problem; odd means White to move
  std::uint16_t marker = 0;      // kRegisterMarker in every entry the register files
  std::uint32_t heuristics = 0;  // heuristics word the answer was found under, 0 for none
  std::uint32_t answer = 0;      // only the low byte is meaningful: 1 or 0
};
static_assert(sizeof(TSubproblemRegisterInfo<bool>) == 12);

using TRegisterInfo = TSubproblemRegisterInfo<bool>;

// Written into every entry the register files, whatever a file or caller supplied.
constexpr std::uint16_t kRegisterMarker = 972;
// Lookup answer when the register knows nothing that settles the question.
constexpr std::uint8_t kRegisterUnknown = 254;
