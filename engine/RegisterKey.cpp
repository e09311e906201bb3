#include "engine/RegisterKey.h"

#include <array>

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

bool MayCastle(const TChessboard& board) {
  return (board.squares[4] == piece::kWhiteKing &&
          (board.squares[0] == piece::kWhiteRook || board.squares[7] == piece::kWhiteRook)) ||
         (board.squares[60] == piece::kBlackKing &&
          (board.squares[56] == piece::kBlackRook || board.squares[63] == piece::kBlackRook));
}

}  // namespace

TChessboardRegisterItem Build(const TChessboard& board) {
  TChessboardRegisterItem key;
  for (int s = 0; s < 64; s += 2)
    key.bytes[s / 2] = static_cast<std::uint8_t>(kNibbles[board.squares[s]] |
                                                 (kNibbles[board.squares[s + 1]] << 4));
  // Rights are looked up only when kings and rooks stand where castling could still happen.
  if (MayCastle(board))
    key.bytes[32] = static_cast<std::uint8_t>(movegen::CastlingRights(board) | 0x10);
  return key;
}

bool HasEnPassantRight(const TChessboard& board) {
  if (board.parent == nullptr) return false;
  const TMove last = board.lastMove;
  const PieceCode moved = board.squares[last.to];
  if (piece::TypeOf(moved) != piece::kPawn) return false;
  const int distance = last.to > last.from ? last.to - last.from : last.from - last.to;
  if (distance != 16) return false;
  const PieceCode takerPawn =
      (piece::IsWhite(moved) ? piece::kBlack : piece::kWhite) | piece::kPawn;
  const int file = square::File(last.to);
  return (file > 0 && board.squares[last.to - 1] == takerPawn) ||
         (file < 7 && board.squares[last.to + 1] == takerPawn);
}

}  // namespace registerkey
