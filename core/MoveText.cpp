#include <cstdlib>

#include "core/Notation.h"
#include "core/PieceLetters.h"

namespace notation {

std::string SquareToText(SquareIndex s) {
  return {static_cast<char>('a' + square::File(s)), static_cast<char>('1' + square::Rank(s))};
}

std::string MoveToText(TMove move, PieceCode movingType, bool bCapture) {
  if (move.from == move.to) return "-";
  if (move.from > 63 || move.to > 63) return "";
  std::string text = SquareToText(move.from) + (bCapture ? ':' : '-') + SquareToText(move.to);
  if (move.promotion != piece::kEmpty) {
    const PieceCode promoted = piece::TypeOf(move.promotion);
    return text + (promoted == piece::kPawn ? ' ' : letters::TypeToLetter(promoted));
  }
  const PieceCode type = piece::TypeOf(movingType);
  if (type == piece::kKing && std::abs(square::File(move.to) - square::File(move.from)) >= 2) {
    return square::File(move.to) == square::File(square::kG1) ? "0-0" : "0-0-0";
  }
  if (type != piece::kPawn) text.insert(text.begin(), letters::TypeToLetter(type));
  return text;
}

std::string MoveToText(const TChessboard& board, TMove move) {
  if (move.from > 63 || move.to > 63) return MoveToText(move, piece::kEmpty, false);
  const PieceCode mover = board.squares[move.from];
  // A pawn's diagonal step onto an empty square takes en passant.
  const bool bCapture =
      board.squares[move.to] != piece::kEmpty ||
      (piece::TypeOf(mover) == piece::kPawn && square::File(move.from) != square::File(move.to));
  return MoveToText(move, mover, bCapture);
}

std::string MovesToText(const TChessboard& board, const std::vector<TMove>& moves,
                        const char* separator) {
  std::string text;
  for (const TMove move : moves) {
    if (!text.empty()) text += separator;
    text += MoveToText(board, move);
  }
  return text;
}

}  // namespace notation
