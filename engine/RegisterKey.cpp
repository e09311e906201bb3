#include "engine/RegisterKey.h"

#include <array>

#include "core/CastlingRule.h"
#include "core/MoveGeneration.h"

namespace registerkey {
namespace {

// 4-bit code of each piece: empty 0, then the twelve pieces.
constexpr std::array<std::uint8_t, 256> BuildNibbles() {
  std::array<std::uint8_t, 256> nibbles{};
  const PieceCode pieces[12] = {piece::kWhiteKing,   piece::kBlackKing,   piece::kWhitePawn,
                                piece::kBlackPawn,   piece::kWhiteQueen,  piece::kBlackQueen,
                                piece::kWhiteRook,   piece::kBlackRook,   piece::kWhiteBishop,
                                piece::kBlackBishop, piece::kWhiteKnight, piece::kBlackKnight};
  for (int i = 0; i < 12; ++i) nibbles[pieces[i]] = static_cast<std::uint8_t>(i + 1);
  return nibbles;
}
constexpr std::array<std::uint8_t, 256> kNibbles = BuildNibbles();

// Marks of the byte after the placement: castling rights are known (beside the rights in the
// low bits), and the key is a selfmate's.
constexpr std::uint8_t kCastlingMark = 0x10;
constexpr std::uint8_t kSelfmateMark = 0x20;

bool MayCastle(const TChessboard& board) {
  for (const TCastlingRule& rule : castling::kRules)
    if (rule.PiecesAtHome(board.squares)) return true;
  return false;
}

}  // namespace

TChessboardRegisterItem Build(const TChessboard& board) {
  TChessboardRegisterItem key;
  for (int s = 0; s < 64; s += 2)
    key.bytes[s / 2] = static_cast<std::uint8_t>(kNibbles[board.squares[s]] |
                                                 (kNibbles[board.squares[s + 1]] << 4));
  // Rights are looked up only when kings and rooks stand where castling could still happen.
  if (MayCastle(board))
    key.bytes[32] = static_cast<std::uint8_t>(movegen::CastlingRights(board) | kCastlingMark);
  return key;
}

TChessboardRegisterItem BuildSelfmate(const TChessboard& board) {
  TChessboardRegisterItem key = Build(board);
  key.bytes[32] |= kSelfmateMark;
  return key;
}

bool HasEnPassantRight(const TChessboard& board) {
  return movegen::EnPassantTarget(board) != square::kNone;
}

}  // namespace registerkey
