#pragma once
#include <cstdint>

#include "core/PieceCode.h"

// A move as four bytes: from, to, promotion piece (0 for none), spare.
// Castling is the king's two-file move.
struct TMove {
  SquareIndex from = 0;
  SquareIndex to = 0;
  PieceCode promotion = 0;
  std::uint8_t spare = 0;

  static constexpr TMove FromCode(std::uint32_t code) {
    return TMove{
        static_cast<SquareIndex>(code & 0xFF), static_cast<SquareIndex>((code >> 8) & 0xFF),
        static_cast<PieceCode>((code >> 16) & 0xFF), static_cast<std::uint8_t>(code >> 24)};
  }
  constexpr std::uint32_t Code() const {
    return from | (to << 8) | (static_cast<std::uint32_t>(promotion) << 16) |
           (static_cast<std::uint32_t>(spare) << 24);
  }
  // Same move: same squares, promotion pieces agreeing in their type bits.
  constexpr bool SameMove(const TMove& other) const {
    return from == other.from && to == other.to &&
           (promotion & piece::kTypeMask) == (other.promotion & piece::kTypeMask);
  }
  constexpr bool operator==(const TMove&) const = default;
};
static_assert(sizeof(TMove) == 4);

// A buffer for the moves of one side must hold every move of a legal position.
constexpr int kMaxMoves = 218;
// Generators of over-full positions (more than 9 queens and pawns) may exceed it.
constexpr int kMoveBufferSize = 256;
