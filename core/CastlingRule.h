#pragma once
#include <cstdint>

#include "core/PieceCode.h"

// One of the four castlings: the king's two-file move from its home square and the rook's
// jump from its corner over the king. Rights are never stored: a castling is available when
// king and rook stand at home and have stood there since the start of the line.
struct TCastlingRule {
  PieceCode king, rook;
  SquareIndex kingFrom, kingTo, rookFrom, rookTo;
  std::uint8_t right;  // its bit in a set of castling rights
  char fenLetter;      // its letter in a FEN castling field

  // The squares strictly between king and rook must be empty.
  int Step() const { return kingTo > kingFrom ? 1 : -1; }
  // The square the king crosses (the rook's target): it must not be attacked.
  SquareIndex Crossed() const { return rookTo; }
  bool PiecesAtHome(const PieceCode* squares) const {
    return squares[kingFrom] == king && squares[rookFrom] == rook;
  }
};

namespace castling {

constexpr std::uint8_t kWhiteShort = 1, kWhiteLong = 2, kBlackShort = 4, kBlackLong = 8;

// In the order of a FEN castling field: K, Q, k, q.
inline constexpr TCastlingRule kRules[4] = {
    {piece::kWhiteKing, piece::kWhiteRook, square::kE1, square::kG1, square::kH1, square::kF1,
     kWhiteShort, 'K'},
    {piece::kWhiteKing, piece::kWhiteRook, square::kE1, square::kC1, square::kA1, square::kD1,
     kWhiteLong, 'Q'},
    {piece::kBlackKing, piece::kBlackRook, square::kE8, square::kG8, square::kH8, square::kF8,
     kBlackShort, 'k'},
    {piece::kBlackKing, piece::kBlackRook, square::kE8, square::kC8, square::kA8, square::kD8,
     kBlackLong, 'q'},
};

// The king's home square of a side.
constexpr SquareIndex KingHome(bool bWhite) {
  return bWhite ? square::kE1 : square::kE8;
}

// The squares where kings and rooks start: a move from or onto one of them may end a castling.
constexpr std::uint64_t kHomeSquares = (1ULL << square::kA1) | (1ULL << square::kE1) |
                                       (1ULL << square::kH1) | (1ULL << square::kA8) |
                                       (1ULL << square::kE8) | (1ULL << square::kH8);

// The rule whose king move goes from `from` to `to`, or null.
constexpr const TCastlingRule* RuleOfKingMove(SquareIndex from, SquareIndex to) {
  for (const TCastlingRule& rule : kRules)
    if (rule.kingFrom == from && rule.kingTo == to) return &rule;
  return nullptr;
}

// The rules of one side: short first, then long.
constexpr const TCastlingRule* RulesOf(bool bWhite) {
  return bWhite ? &kRules[0] : &kRules[2];
}

}  // namespace castling
