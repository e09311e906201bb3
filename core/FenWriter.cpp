#include "core/Fen.h"
#include "core/Notation.h"
#include "core/PieceLetters.h"

namespace fen {
namespace {

struct TCastlingHome {
  PieceCode king;
  PieceCode rook;
  SquareIndex kingSquare;
  SquareIndex rookSquare;
  bool TFenExtras::*flag;
  char letter;
};

// In the order of the FEN castling field.
constexpr TCastlingHome kCastlingHomes[4] = {
    {piece::kWhiteKing, piece::kWhiteRook, 4, 7, &TFenExtras::bWhiteShort, 'K'},
    {piece::kWhiteKing, piece::kWhiteRook, 4, 0, &TFenExtras::bWhiteLong, 'Q'},
    {piece::kBlackKing, piece::kBlackRook, 60, 63, &TFenExtras::bBlackShort, 'k'},
    {piece::kBlackKing, piece::kBlackRook, 60, 56, &TFenExtras::bBlackLong, 'q'},
};

// A piece that went away and came back ended a move on its square, so this also
// tells whether the square still holds what the root had there.
bool LineMovedOnto(const TChessboard& board, SquareIndex s) {
  for (const TChessboard* p = &board; p->parent != nullptr; p = p->parent) {
    if (p->lastMove.to == s) return true;
  }
  return false;
}

std::string CastlingField(const TChessboard& board) {
  const TFenExtras available = AvailableCastlings(board);
  std::string field;
  for (const TCastlingHome& home : kCastlingHomes) {
    if (available.*home.flag) field += home.letter;
  }
  return field.empty() ? "-" : field;
}

// Only a double step that an enemy pawn beside the arrival square could take is worth naming.
std::string EnPassantField(const TChessboard& board) {
  const TMove move = board.lastMove;
  if (board.parent == nullptr || move.to > 63) return "-";
  const PieceCode pawn = board.squares[move.to];
  if (piece::TypeOf(pawn) != piece::kPawn) return "-";
  const bool bWhite = piece::IsWhite(pawn);
  const int homeRank = bWhite ? 1 : 6;
  const int arrivalRank = bWhite ? 3 : 4;
  const int file = square::File(move.to);
  if (square::File(move.from) != file || square::Rank(move.from) != homeRank ||
      square::Rank(move.to) != arrivalRank) {
    return "-";
  }
  const PieceCode enemyPawn = (bWhite ? piece::kBlack : piece::kWhite) | piece::kPawn;
  const bool bCapturable = (file > 0 && board.squares[move.to - 1] == enemyPawn) ||
                           (file < 7 && board.squares[move.to + 1] == enemyPawn);
  if (!bCapturable) return "-";
  return notation::SquareToText(square::Make(file, (homeRank + arrivalRank) / 2));
}

}  // namespace

TFenExtras AvailableCastlings(const TChessboard& board) {
  TFenExtras available;
  for (const TCastlingHome& home : kCastlingHomes) {
    available.*home.flag = board.squares[home.kingSquare] == home.king &&
                           board.squares[home.rookSquare] == home.rook &&
                           !LineMovedOnto(board, home.kingSquare) &&
                           !LineMovedOnto(board, home.rookSquare);
  }
  return available;
}

std::string WriteShortFen(const TChessboard& board) {
  std::string text;
  for (int rank = 7; rank >= 0; --rank) {
    int nEmpty = 0;
    for (int file = 0; file < 8; ++file) {
      const PieceCode code = board.squares[square::Make(file, rank)];
      if (code == piece::kEmpty) {
        ++nEmpty;
        continue;
      }
      if (nEmpty > 0) text += static_cast<char>('0' + nEmpty);
      nEmpty = 0;
      text += letters::PieceToLetter(code);
    }
    if (nEmpty > 0) text += static_cast<char>('0' + nEmpty);
    if (rank > 0) text += '/';
  }
  return text;
}

std::string WriteFullFen(const TChessboard& board) {
  return WriteShortFen(board) + (board.IsWhiteToMove() ? " w " : " b ") + CastlingField(board) +
         " " + EnPassantField(board) + " 0 1";
}

}  // namespace fen
