#pragma once
#include <cstdint>

// One byte per square: 0x40 marks White, 0x80 Black, the low five bits the type.
// The queen's bits are the union of the rook's and the bishop's.
using PieceCode = std::uint8_t;
// rank * 8 + file, a1 = 0, h8 = 63; 255 stands for no square.
using SquareIndex = std::uint8_t;

namespace piece {
constexpr PieceCode kEmpty = 0;
constexpr PieceCode kWhite = 0x40;
constexpr PieceCode kBlack = 0x80;
constexpr PieceCode kKing = 1;
constexpr PieceCode kPawn = 2;
constexpr PieceCode kBishop = 4;
constexpr PieceCode kRook = 8;
constexpr PieceCode kQueen = 12;
constexpr PieceCode kKnight = 16;
constexpr PieceCode kTypeMask = 31;

constexpr PieceCode kWhiteKing = kWhite | kKing, kBlackKing = kBlack | kKing;
constexpr PieceCode kWhitePawn = kWhite | kPawn, kBlackPawn = kBlack | kPawn;
constexpr PieceCode kWhiteBishop = kWhite | kBishop, kBlackBishop = kBlack | kBishop;
constexpr PieceCode kWhiteRook = kWhite | kRook, kBlackRook = kBlack | kRook;
constexpr PieceCode kWhiteQueen = kWhite | kQueen, kBlackQueen = kBlack | kQueen;
constexpr PieceCode kWhiteKnight = kWhite | kKnight, kBlackKnight = kBlack | kKnight;

constexpr bool IsWhite(PieceCode p) {
  return (p & kWhite) != 0;
}
constexpr bool IsBlack(PieceCode p) {
  return static_cast<std::int8_t>(p) < 0;
}
constexpr PieceCode TypeOf(PieceCode p) {
  return p & kTypeMask;
}
// Colour mask of the side to move: 0x40 for White, 0x80 for Black.
constexpr PieceCode SideMask(bool bWhiteToMove) {
  return (2 - (bWhiteToMove ? 1 : 0)) << 6;
}
}  // namespace piece

namespace square {
constexpr SquareIndex kNone = 255;
constexpr int File(SquareIndex s) {
  return s & 7;
}
constexpr int Rank(SquareIndex s) {
  return s >> 3;
}
constexpr SquareIndex Make(int file, int rank) {
  return static_cast<SquareIndex>(rank * 8 + file);
}
constexpr bool SameColour(SquareIndex a, SquareIndex b) {
  return ((File(a) + Rank(a)) & 1) == ((File(b) + Rank(b)) & 1);
}
// The squares of the back ranks that castling names.
constexpr SquareIndex kA1 = 0, kC1 = 2, kD1 = 3, kE1 = 4, kF1 = 5, kG1 = 6, kH1 = 7;
constexpr SquareIndex kA8 = 56, kC8 = 58, kD8 = 59, kE8 = 60, kF8 = 61, kG8 = 62, kH8 = 63;
// Ranks of a side (0 is rank 1): where its pieces start, where its pawns start, where its pawns
// promote, and where a pawn stands to take en passant.
constexpr int BackRank(bool bWhite) {
  return bWhite ? 0 : 7;
}
constexpr int PawnStartRank(bool bWhite) {
  return bWhite ? 1 : 6;
}
constexpr int PromotionRank(bool bWhite) {
  return bWhite ? 7 : 0;
}
constexpr int EnPassantRank(bool bWhite) {
  return bWhite ? 4 : 3;
}
}  // namespace square
