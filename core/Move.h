#pragma once
#include <cstdint>
#include <type_traits>

#include "core/PieceCode.h"

// A move as four bytes: from, to, promotion piece (0 for none), spare.
// Castling is the king's two-file move. Like a plain array, a move declared without a value
// holds garbage: the move buffers are written before they are read and are not cleared.
struct TMove {
  SquareIndex from;
  SquareIndex to;
  PieceCode promotion;
  std::uint8_t spare;

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

static_assert(std::is_trivially_default_constructible_v<TMove>);

// Room for every move that the generators of one side can write. A legal game never offers
// more than 218 moves; the positions the analysis accepts (any number of queens) may offer
// more, as QQQQQQnk/Q4Q1n/Q5QQ/Q6Q/Q6Q/Q6Q/Q6Q/KQQQQQQQ gives White 265, but never more than
// 472: every move enters a square that is empty or the enemy's, from the nearest piece in one
// of its eight directions (slides, king and pawn steps, castling) or by a knight's jump; a
// piece makes at most 27 moves (a queen), a knight 8; and promotions add at most 48 entries.
constexpr int kMoveBufferSize = 512;
// An index into a move buffer, or into the successors made from one.
using TMoveIndex = std::uint16_t;
