#include "engine/OneColourPlay.h"

#include <cstdlib>
#include <vector>

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"

namespace onecolour {
namespace {

bool IsLight(SquareIndex s) {
  return (square::File(s) + square::Rank(s)) % 2 != 0;
}

std::optional<bool> KeptColour(const TChessboard& board, EOneColour form) {
  if (IsReduced(board)) return (board.searchFlags & kLightFlag) != 0;
  return PlayColour(board, form);
}

SquareIndex BlackBishop(const TChessboard& board) {
  for (SquareIndex s = 0; s < 64; ++s)
    if (board.squares[s] == piece::kBlackBishop) return s;
  return square::kNone;
}

bool AllWhiteOn(const TChessboard& board, bool bLight) {
  for (SquareIndex s = 0; s < 64; ++s)
    if (piece::IsWhite(board.squares[s]) && IsLight(s) != bLight) return false;
  return true;
}

bool HasLegalMoveFrom(const TChessboard& board, SquareIndex from) {
  TMove moves[kMoveBufferSize];
  const int n = movegen::GeneratePieceMoves(board, from, moves);
  TChessboard child;
  for (int i = 0; i < n; ++i)
    if (movemaking::MakeSuccessor(board, moves[i], child)) return true;
  return false;
}

bool IsDoubleStep(const TChessboard& board, TMove move) {
  return piece::TypeOf(board.squares[move.from]) == piece::kPawn &&
         std::abs(move.to - move.from) == 16;
}

}  // namespace

std::optional<bool> PlayColour(const TChessboard& board, EOneColour form) {
  const std::uint8_t* n = board.nPieces;
  if (n[kWhiteQueens] + n[kBlackQueens] + n[kWhiteRooks] + n[kBlackRooks] + n[kBlackKnights] != 0 ||
      n[kWhiteBishops] != 1 || n[kBlackBishops] != 1)
    return std::nullopt;
  bool bWhiteLight = false, bBlackLight = false;
  for (SquareIndex s = 0; s < 64; ++s) {
    if (board.squares[s] == piece::kWhiteBishop) bWhiteLight = IsLight(s);
    if (board.squares[s] == piece::kBlackBishop) bBlackLight = IsLight(s);
  }
  if (bWhiteLight == bBlackLight) return std::nullopt;
  const bool bLight =
      form == EOneColour::kBishopColour ? bWhiteLight : form == EOneColour::kLightSquares;
  if (bLight == bBlackLight) return std::nullopt;
  return bLight;
}

bool WhiteMoveLeavesColour(const TChessboard& after, EOneColour form) {
  const TChessboard& before = *after.parent;
  const std::optional<bool> bLight = KeptColour(before, form);
  if (!bLight) return false;
  const TMove move = after.lastMove;
  if (IsLight(move.to) != *bLight) return true;
  // A double step crosses a square of the other colour, which the real bishop may block.
  return IsReduced(before) && (IsDoubleStep(before, move) ||
                               (piece::TypeOf(after.squares[move.to]) & piece::kRook) != 0);
}

bool MayPass(const TChessboard& board, EOneColour form) {
  if (board.ply == 0 || board.IsBlackInCheck()) return false;
  if (IsReduced(board)) return true;
  const std::optional<bool> bLight = PlayColour(board, form);
  return bLight && AllWhiteOn(board, *bLight) && HasLegalMoveFrom(board, BlackBishop(board));
}

bool IsBishopMove(const TChessboard& board, TMove move) {
  return board.squares[move.from] == piece::kBlackBishop;
}

void MakePass(const TChessboard& board, TChessboard& child, EOneColour form) {
  const bool bLight = KeptColour(board, form).value_or(false);
  child = board;
  child.parent = &board;
  child.lastMove = TMove{};
  child.ply = static_cast<std::uint16_t>(board.ply - 1);
  if (const SquareIndex bishop = BlackBishop(child); bishop != square::kNone) {
    child.squares[bishop] = piece::kEmpty;
    --child.nPieces[kBlackBishops];
  }
  child.searchFlags |= kReducedFlag | (bLight ? kLightFlag : 0);
}

bool MayBeRealStalemate(const TChessboard& board) {
  const bool bBishopLight = (board.searchFlags & kLightFlag) == 0;
  std::optional<SquareIndex> common;
  for (const TMove& move : movemaking::LegalMoves(board)) {
    // The one square of the move that a bishop could stand on: where it ends, or the square
    // a double step crosses (the two differ in colour). A capture cannot be blocked.
    if (board.squares[move.to] != piece::kEmpty) return false;
    SquareIndex need = move.to;
    if (IsDoubleStep(board, move) && IsLight(need) != bBishopLight)
      need = static_cast<SquareIndex>((move.from + move.to) / 2);
    if (IsLight(need) != bBishopLight || (common && *common != need)) return false;
    common = need;
  }
  return true;
}

}  // namespace onecolour
