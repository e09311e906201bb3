#include "core/BoardTransforms.h"

#include "core/CastlingRule.h"

namespace transforms {
namespace {

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

SquareIndex MapSquare(ETransform transform, SquareIndex s) {
  if (s == square::kNone) return s;
  const int f = square::File(s), r = square::Rank(s);
  switch (transform) {
    case ETransform::kMirrorFiles:
      return square::Make(7 - f, r);
    case ETransform::kSwapColours:
      return square::Make(f, 7 - r);
    case ETransform::kRotate90:
      return square::Make(r, 7 - f);
    case ETransform::kRotate180:
      return square::Make(7 - f, 7 - r);
  }
  return s;
}

void MapPieces(ETransform transform, const PieceCode* from, PieceCode* to) {
  for (int s = 0; s < 64; ++s) {
    PieceCode code = from[s];
    if (transform == ETransform::kSwapColours && code != piece::kEmpty)
      code = (piece::IsWhite(code) ? piece::kBlack : piece::kWhite) | piece::TypeOf(code);
    to[MapSquare(transform, static_cast<SquareIndex>(s))] = code;
  }
}

void Apply(ETransform transform, TChessboard& board) {
  TChessboard result = board;
  MapPieces(transform, board.squares, result.squares);
  // The board changes only when the analysis accepts the result.
  Analyse(result, true);
  board = result;
}

bool MirrorFiles(TChessboard& board) {
  const bool bCastlingIrrelevant =
      !HasCastlingPiecesAtHome(board, true) && !HasCastlingPiecesAtHome(board, false);
  Apply(ETransform::kMirrorFiles, board);
  return bCastlingIrrelevant;
}

SquareIndex MirrorSquare(SquareIndex s) {
  return MapSquare(ETransform::kMirrorFiles, s);
}

}  // namespace transforms
