#include "core/CheckPrediction.h"

#include "core/BoardTables.h"

namespace attacks {
namespace {

// Walks from king along direction d; true when the first piece met (ignoring `vacated`,
// stopping at `blocker`) is a slider of colour that moves along d.
bool SliderBehind(const PieceCode* sq, SquareIndex king, int d, SquareIndex vacated,
                  SquareIndex blocker, PieceCode colour) {
  const tables::TSquareList& ray = tables::Get().rays[king][d];
  for (int i = 0; i < ray.n; ++i) {
    const SquareIndex s = ray.squares[i];
    if (s == blocker) return false;
    if (s == vacated || sq[s] == piece::kEmpty) continue;
    return (sq[s] & colour) && (sq[s] & tables::DirectionBit(d));
  }
  return false;
}

bool DirectCheck(const PieceCode* sq, TMove m, PieceCode type, bool bWhite, SquareIndex king) {
  const int df = square::File(king) - square::File(m.to);
  const int dr = square::Rank(king) - square::Rank(m.to);
  switch (type) {
    case piece::kKnight: return df * df + dr * dr == 5;
    case piece::kPawn: return (df == 1 || df == -1) && dr == (bWhite ? 1 : -1);
    case piece::kKing: return false;
    default: break;
  }
  const int d = tables::Get().direction[m.to][king];
  if (d == tables::kNoDirection || !(type & tables::DirectionBit(d))) return false;
  const tables::TSquareList& ray = tables::Get().rays[m.to][d];
  for (int i = 0; i < ray.n && ray.squares[i] != king; ++i)
    if (ray.squares[i] != m.from && sq[ray.squares[i]] != piece::kEmpty) return false;
  return true;
}

}  // namespace

bool MayGiveCheck(const TChessboard& board, TMove m) {
  const PieceCode* sq = board.squares;
  const PieceCode p = sq[m.from];
  const PieceCode type = m.promotion ? piece::TypeOf(m.promotion) : piece::TypeOf(p);
  const bool bWhite = piece::IsWhite(p);
  const int fileStep = square::File(m.to) - square::File(m.from);
  if (piece::TypeOf(p) == piece::kKing && (fileStep == 2 || fileStep == -2)) return true;
  if (piece::TypeOf(p) == piece::kPawn && fileStep != 0 && sq[m.to] == piece::kEmpty) return true;
  const SquareIndex king = bWhite ? board.BlackKing() : board.WhiteKing();
  if (DirectCheck(sq, m, type, bWhite, king)) return true;
  const int d = tables::Get().direction[king][m.from];
  return d != tables::kNoDirection &&
         SliderBehind(sq, king, d, m.from, m.to, bWhite ? piece::kWhite : piece::kBlack);
}

}  // namespace attacks
