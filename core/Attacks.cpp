#include "core/Attacks.h"

#include "core/AttackerSets.h"
#include "core/BoardTables.h"
#include "core/Chessboard.h"

namespace attacks {
namespace {

// Calls onAttacker(square) for each piece of byColour attacking target; stops when it returns
// false.
template <typename F>
void ForEachAttacker(const PieceCode* squares, SquareIndex target, PieceCode byColour,
                     F onAttacker) {
  const auto& t = tables::Get();
  const tables::TSquareList& knights = t.knightTargets[target];
  for (int i = 0; i < knights.n; ++i)
    if (squares[knights.squares[i]] == (byColour | piece::kKnight) &&
        !onAttacker(knights.squares[i]))
      return;
  const int file = square::File(target);
  // A white pawn attacks upwards, so it stands below the target; a black pawn above it.
  const int pawnRankStep = byColour == piece::kWhite ? -8 : 8;
  const int pawnBase = target + pawnRankStep;
  if (pawnBase >= 0 && pawnBase < 64) {
    if (file > 0 && squares[pawnBase - 1] == (byColour | piece::kPawn) && !onAttacker(pawnBase - 1))
      return;
    if (file < 7 && squares[pawnBase + 1] == (byColour | piece::kPawn) && !onAttacker(pawnBase + 1))
      return;
  }
  for (int d = 0; d < 8; ++d) {
    const tables::TSquareList& ray = t.rays[target][d];
    for (int i = 0; i < ray.n; ++i) {
      const PieceCode p = squares[ray.squares[i]];
      if (p == piece::kEmpty) continue;
      const bool bSlider = (p & byColour) && (p & tables::DirectionBit(d));
      const bool bAdjacentKing = i == 0 && p == (byColour | piece::kKing);
      if ((bSlider || bAdjacentKing) && !onAttacker(ray.squares[i])) return;
      break;
    }
  }
}

}  // namespace

bool IsAttacked(const PieceCode* squares, SquareIndex target, PieceCode byColour) {
  return TAttackerSets(squares, byColour).Attacks(target);
}

int CheckValue(const PieceCode* squares, SquareIndex target, PieceCode byColour) {
  int value = kNotInCheck;
  ForEachAttacker(squares, target, byColour, [&](SquareIndex from) {
    value = value == kNotInCheck ? from : kDoubleCheck;
    return value != kDoubleCheck;
  });
  return value;
}

bool PieceAttacks(const PieceCode* squares, SquareIndex from, SquareIndex target) {
  const PieceCode p = squares[from];
  const auto& t = tables::Get();
  switch (piece::TypeOf(p)) {
    case piece::kKnight: {
      const int df = square::File(from) - square::File(target);
      const int dr = square::Rank(from) - square::Rank(target);
      return df * df + dr * dr == 5;
    }
    case piece::kPawn: {
      const int dr = square::Rank(target) - square::Rank(from);
      const int df = square::File(target) - square::File(from);
      return (df == 1 || df == -1) && dr == (piece::IsWhite(p) ? 1 : -1);
    }
    case piece::kKing: {
      const int df = square::File(from) - square::File(target);
      const int dr = square::Rank(from) - square::Rank(target);
      return from != target && df >= -1 && df <= 1 && dr >= -1 && dr <= 1;
    }
    default:
      break;
  }
  const int d = t.direction[from][target];
  if (d == tables::kNoDirection || !(p & tables::DirectionBit(d))) return false;
  const tables::TSquareList& ray = t.rays[from][d];
  for (int i = 0; i < ray.n; ++i) {
    if (ray.squares[i] == target) return true;
    if (squares[ray.squares[i]] != piece::kEmpty) return false;
  }
  return false;
}

}  // namespace attacks
