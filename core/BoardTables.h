#pragma once
#include <cstdint>

#include "core/PieceCode.h"

// Precomputed geometry of the 8x8 board, shared by the generators and attack tests.
namespace tables {

// Ray directions in generation order: rook rays first, then bishop rays.
enum Direction : int { kUp, kDown, kRight, kLeft, kUpRight, kUpLeft, kDownRight, kDownLeft };
constexpr int kNoDirection = -1;
// The piece-type bit that moves along a direction (rook 8 for straight lines, bishop 4 for
// diagonals).
constexpr PieceCode DirectionBit(int direction) {
  return direction < 4 ? piece::kRook : piece::kBishop;
}

struct TSquareList {
  std::uint8_t n;
  SquareIndex squares[8];
};

// Rays whose squares ascend from their origin (the nearest piece on them is the lowest bit).
constexpr bool IsAscending(int direction) {
  return direction == kUp || direction == kRight || direction == kUpRight || direction == kUpLeft;
}

struct TBoardTables {
  TSquareList rays[64][8];         // squares along each direction, nearest first
  TSquareList knightTargets[64];   // in the knight generator's order
  TSquareList whiteKingSteps[64];  // in White's king-step order
  TSquareList blackKingSteps[64];  // in Black's king-step order
  std::int8_t direction[64][64];   // direction from the first square to the second, or -1
  std::uint64_t rayMask[64][8];    // the squares of each ray as a set
  std::uint64_t knightMask[64];    // the knight's targets as a set
  std::uint64_t kingMask[64];      // the king's steps as a set
};

// Built before main runs; nothing reads it during static initialisation.
extern const TBoardTables gBoardTables;
inline const TBoardTables& Get() {
  return gBoardTables;
}

}  // namespace tables
