#include "core/Chessboard.h"

#include <cstring>
#include <initializer_list>

#include "core/Attacks.h"
#include "core/ChessException.h"
#include "core/WhiteMaterial.h"

namespace {

void ComputeCheckValues(TChessboard& board) {
  board.whiteKingCheck = static_cast<std::int8_t>(
      attacks::CheckValue(board.squares, board.WhiteKing(), piece::kBlack));
  board.blackKingCheck = static_cast<std::int8_t>(
      attacks::CheckValue(board.squares, board.BlackKing(), piece::kWhite));
}

}  // namespace

void ClearChessboard(TChessboard& board) {
  board = TChessboard{};
  board.ply = kNoStipulationPly;
  board.rootPlies = kNoStipulationPly;
  board.whiteKingCheck = board.blackKingCheck = kNotInCheck;
}

int Analyse(TChessboard& board, bool bReset) {
  std::memset(board.nPieces, 0, sizeof board.nPieces);
  int nWhiteKings = 0, nBlackKings = 0;
  for (int s = 0; s < 64; ++s) {
    const PieceCode p = board.squares[s];
    if (p == piece::kEmpty) continue;
    if (p == piece::kWhiteKing || p == piece::kBlackKing) {
      const bool bWhite = p == piece::kWhiteKing;
      (bWhite ? board.whiteKingFile : board.blackKingFile) =
          static_cast<std::uint8_t>(square::File(s));
      (bWhite ? board.whiteKingRank : board.blackKingRank) =
          static_cast<std::uint8_t>(square::Rank(s));
      ++(bWhite ? nWhiteKings : nBlackKings);
      continue;
    }
    if (piece::TypeOf(p) == piece::kPawn &&
        (square::Rank(s) == square::BackRank(true) || square::Rank(s) == square::BackRank(false)))
      throw ChessException("Pawns cannot occupy 1st nor 8th line of the chessboard.");
    const int index = PieceCountSlot(piece::TypeOf(p), piece::IsBlack(p));
    if (index >= 0) ++board.nPieces[index];
  }
  ScanWhiteMaterial(board);
  if (nWhiteKings != 1 || nBlackKings != 1) throw ChessException("Illegal number of kings.");
  ComputeCheckValues(board);
  if (board.IsWhiteInCheck() && board.IsBlackInCheck())
    throw ChessException("Both kings attacked.");
  if (bReset) board.searchFlags = 0;
  return 0;
}

bool TryAnalyse(TChessboard& board, bool bReset) noexcept {
  try {
    Analyse(board, bReset);
    return true;
  } catch (const ChessException&) {
    return false;
  }
}

bool IsSane(const TChessboard& board) {
  for (std::uint8_t n : board.nPieces)
    if (n > 64) return false;
  if (board.whiteKingFile >= 8 || board.whiteKingRank >= 8 || board.blackKingFile >= 8 ||
      board.blackKingRank >= 8)
    return false;
  for (std::int8_t check : {board.whiteKingCheck, board.blackKingCheck}) {
    const auto value = static_cast<std::uint8_t>(check);
    if (value >= 65 && value != 255) return false;
  }
  return board.bSimpleWhiteMaterial <= 1;
}

bool RecomputeChecks(TChessboard& board) {
  ComputeCheckValues(board);
  return !(board.IsWhiteInCheck() && board.IsBlackInCheck());
}

bool IsConsistent(const TChessboard& board) {
  TChessboard fresh = board;
  if (!TryAnalyse(fresh, false)) return false;
  const auto same = [](const auto& a, const auto& b) { return std::memcmp(&a, &b, sizeof a) == 0; };
  const bool bSlots =
      !board.bSimpleWhiteMaterial || (same(board.whiteRookSquares, fresh.whiteRookSquares) &&
                                      same(board.whiteBishopSquares, fresh.whiteBishopSquares) &&
                                      same(board.whiteKnightSquares, fresh.whiteKnightSquares) &&
                                      board.whiteQueenSquare == fresh.whiteQueenSquare);
  return board.WhiteKing() == fresh.WhiteKing() && board.BlackKing() == fresh.BlackKing() &&
         board.whiteKingCheck == fresh.whiteKingCheck &&
         board.blackKingCheck == fresh.blackKingCheck && same(board.nPieces, fresh.nPieces) &&
         board.bSimpleWhiteMaterial == fresh.bSimpleWhiteMaterial && bSlots;
}
