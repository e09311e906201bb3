#include "core/BoardTransforms.h"

namespace transforms {
namespace {

// Builds the new placement square by square from the old one, then re-analyses it.
// The board is only changed when the analysis accepts the result (a turned board may
// put pawns on the first or last rank).
template <typename SourceOf>
void Remap(TChessboard& board, SourceOf sourceOf, bool bSwapColours) {
  TChessboard result = board;
  for (int s = 0; s < 64; ++s) {
    PieceCode code = board.squares[sourceOf(square::File(s), square::Rank(s))];
    if (bSwapColours && code != piece::kEmpty) {
      code = (piece::IsWhite(code) ? piece::kBlack : piece::kWhite) | piece::TypeOf(code);
    }
    result.squares[s] = code;
  }
  Analyse(result, true);
  board = result;
}

bool HasCastlingPiecesAtHome(const TChessboard& board, PieceCode king, PieceCode rook, int rank) {
  const bool bKingHome =
      board.squares[square::Make(4, rank)] == king || board.squares[square::Make(3, rank)] == king;
  const bool bRookHome =
      board.squares[square::Make(0, rank)] == rook || board.squares[square::Make(7, rank)] == rook;
  return bKingHome && bRookHome;
}

}  // namespace

bool MirrorFiles(TChessboard& board) {
  const bool bCastlingIrrelevant =
      !HasCastlingPiecesAtHome(board, piece::kWhiteKing, piece::kWhiteRook, 0) &&
      !HasCastlingPiecesAtHome(board, piece::kBlackKing, piece::kBlackRook, 7);
  Remap(
      board, [](int f, int r) { return square::Make(7 - f, r); }, false);
  return bCastlingIrrelevant;
}

void SwapColours(TChessboard& board) {
  Remap(
      board, [](int f, int r) { return square::Make(f, 7 - r); }, true);
}

void Rotate90(TChessboard& board) {
  // Clockwise: the square (f, r) receives what stood on (7 - r, f), so a1 goes to a8.
  Remap(
      board, [](int f, int r) { return square::Make(7 - r, f); }, false);
}

void Rotate180(TChessboard& board) {
  Remap(
      board, [](int f, int r) { return square::Make(7 - f, 7 - r); }, false);
}

SquareIndex MirrorSquare(SquareIndex s) {
  return s == square::kNone ? s : square::Make(7 - square::File(s), square::Rank(s));
}

}  // namespace transforms
