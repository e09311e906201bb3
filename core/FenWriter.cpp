#include "core/CastlingRule.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/Notation.h"
#include "core/PieceLetters.h"

namespace fen {
namespace {

std::string CastlingField(const TChessboard& board) {
  const std::uint8_t rights = movegen::CastlingRights(board);
  std::string field;
  for (const TCastlingRule& rule : castling::kRules)
    if (rights & rule.right) field += rule.fenLetter;
  return field.empty() ? "-" : field;
}

// Only a double step that an enemy pawn beside the arrival square could take is worth naming.
std::string EnPassantField(const TChessboard& board) {
  const SquareIndex target = movegen::EnPassantTarget(board);
  return target == square::kNone ? "-" : notation::SquareToText(target);
}

}  // namespace

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
