#include "core/ShortAlgebraic.h"

#include <vector>

#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "core/PieceLetters.h"

namespace shortalgebraic {
namespace {

bool IsCastling(const TChessboard& board, TMove move) {
  const int nFiles = square::File(move.to) - square::File(move.from);
  return piece::TypeOf(board.squares[move.from]) == piece::kKing && (nFiles == 2 || nFiles == -2);
}

bool IsCapture(const TChessboard& board, TMove move) {
  if (board.squares[move.to] != piece::kEmpty) return true;
  // A pawn changing file onto an empty square takes en passant.
  return piece::TypeOf(board.squares[move.from]) == piece::kPawn &&
         square::File(move.from) != square::File(move.to);
}

// What has to follow the piece letter so that no other piece of its type reaching the same
// square could be meant: nothing, the file, the rank, or both.
std::string Disambiguation(const TChessboard& board, TMove move, const std::vector<TMove>& legal) {
  bool bOther = false, bSameFile = false, bSameRank = false;
  for (const TMove& other : legal) {
    if (other.to != move.to || other.from == move.from) continue;
    if (board.squares[other.from] != board.squares[move.from]) continue;
    bOther = true;
    bSameFile |= square::File(other.from) == square::File(move.from);
    bSameRank |= square::Rank(other.from) == square::Rank(move.from);
  }
  const std::string from = notation::SquareToText(move.from);
  if (!bOther) return "";
  if (!bSameFile) return from.substr(0, 1);
  if (!bSameRank) return from.substr(1, 1);
  return from;
}

std::string CheckSuffix(const TChessboard& board, TMove move) {
  TChessboard child;
  if (!movemaking::MakeSuccessor(board, move, child) || !child.IsSideToMoveInCheck()) return "";
  return movemaking::HasLegalMove(child) ? "+" : "#";
}

std::string WithoutCheckSuffix(const TChessboard& board, TMove move,
                               const std::vector<TMove>& legal) {
  if (IsCastling(board, move))
    return square::File(move.to) > square::File(move.from) ? "O-O" : "O-O-O";
  const PieceCode type = piece::TypeOf(board.squares[move.from]);
  const bool bCapture = IsCapture(board, move);
  std::string text;
  if (type == piece::kPawn) {
    if (bCapture) text += notation::SquareToText(move.from).substr(0, 1) + "x";
    text += notation::SquareToText(move.to);
    if (move.promotion != piece::kEmpty)
      text += std::string("=") + letters::TypeToLetter(piece::TypeOf(move.promotion));
    return text;
  }
  text += letters::TypeToLetter(type);
  text += Disambiguation(board, move, legal);
  if (bCapture) text += "x";
  return text + notation::SquareToText(move.to);
}

// The text reduced to what identifies a move: no "x", "=", check or annotation marks, and
// castling written with letters.
std::string Normalised(std::string_view text) {
  std::string out;
  for (char c : text) {
    if (c == 'x' || c == ':' || c == '=' || c == '+' || c == '#' || c == '!' || c == '?') continue;
    out += c == '0' ? 'O' : c;
  }
  return out;
}

}  // namespace

std::string MoveToText(const TChessboard& board, TMove move) {
  return WithoutCheckSuffix(board, move, movemaking::LegalMoves(board)) + CheckSuffix(board, move);
}

std::optional<TMove> TextToMove(const TChessboard& board, std::string_view text) {
  const std::string wanted = Normalised(text);
  if (wanted.empty()) return std::nullopt;
  const std::vector<TMove> legal = movemaking::LegalMoves(board);
  std::optional<TMove> found;
  for (const TMove& move : legal) {
    if (Normalised(WithoutCheckSuffix(board, move, legal)) != wanted) continue;
    if (found) return std::nullopt;  // ambiguous as written
    found = move;
  }
  if (found) return found;
  // Some programs write more than needed ("Ng1f3", "Ng1-f3"): match the full form too.
  for (const TMove& move : legal) {
    if (IsCastling(board, move)) continue;
    const PieceCode type = piece::TypeOf(board.squares[move.from]);
    std::string full = type == piece::kPawn ? "" : std::string(1, letters::TypeToLetter(type));
    full += notation::SquareToText(move.from) + notation::SquareToText(move.to);
    if (move.promotion != piece::kEmpty)
      full += letters::TypeToLetter(piece::TypeOf(move.promotion));
    std::string candidate = wanted;
    std::erase(candidate, '-');
    if (candidate == full) return move;
  }
  return std::nullopt;
}

}  // namespace shortalgebraic
