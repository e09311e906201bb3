#include "core/BoardTransforms.h"

#include "core/CastlingRule.h"

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

// A king on its home square, or on the square that becomes its home once the files are
// mirrored, with a rook in a corner of its back rank.
bool HasCastlingPiecesAtHome(const TChessboard& board, bool bWhite) {
  const TCastlingRule* rules = castling::RulesOf(bWhite);  // short, then long
  const PieceCode* sq = board.squares;
  const SquareIndex home = rules[0].kingFrom;
  const bool bKingHome = sq[home] == rules[0].king || sq[MirrorSquare(home)] == rules[0].king;
  const bool bRookHome =
      sq[rules[0].rookFrom] == rules[0].rook || sq[rules[1].rookFrom] == rules[1].rook;
  return bKingHome && bRookHome;
}

}  // namespace

bool MirrorFiles(TChessboard& board) {
  const bool bCastlingIrrelevant =
      !HasCastlingPiecesAtHome(board, true) && !HasCastlingPiecesAtHome(board, false);
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
