#include "registers/TablePlacement.h"

#include <cstdlib>

#include "core/Attacks.h"
#include "core/BoardTables.h"

namespace {

constexpr PieceCode kPromotions[] = {piece::kQueen, piece::kRook, piece::kBishop, piece::kKnight};

struct TMoveSink {
  TTableMove* out;
  int n = 0;
  void Add(int pieceIndex, SquareIndex from, SquareIndex to, int captured = -1) {
    out[n++] = TTableMove{static_cast<std::uint8_t>(pieceIndex), from, to, 0,
                          static_cast<std::int8_t>(captured),    false};
  }
};

// Steps and slides of a piece other than a pawn: to empty squares, and onto enemy pieces
// other than the king when bCaptures.
void AddPieceMoves(const TTablePlacement& p, int i, bool bCaptures, TMoveSink& sink) {
  const auto& t = tables::Get();
  const SquareIndex from = p.squares[i];
  const PieceCode code = p.codes[i];
  const PieceCode enemy = piece::IsWhite(code) ? piece::kBlack : piece::kWhite;
  const auto target = [&](SquareIndex to) {
    const PieceCode there = p.board[to];
    if (there == piece::kEmpty) {
      sink.Add(i, from, to);
    } else if (bCaptures && (there & enemy) && piece::TypeOf(there) != piece::kKing) {
      sink.Add(i, from, to, p.PieceOn(to));
    }
    return there == piece::kEmpty;
  };
  const PieceCode type = piece::TypeOf(code);
  if (type == piece::kKnight || type == piece::kKing) {
    const tables::TSquareList& steps =
        type == piece::kKnight ? t.knightTargets[from] : t.whiteKingSteps[from];
    for (int k = 0; k < steps.n; ++k) target(steps.squares[k]);
    return;
  }
  for (int d = 0; d < 8; ++d) {
    if (!(type & tables::DirectionBit(d))) continue;
    const tables::TSquareList& ray = t.rays[from][d];
    for (int k = 0; k < ray.n && target(ray.squares[k]); ++k) {
    }
  }
}

void AddPawnMoves(const TTablePlacement& p, int i, TMoveSink& sink) {
  const SquareIndex from = p.squares[i];
  const bool bWhite = piece::IsWhite(p.codes[i]);
  const int step = bWhite ? 8 : -8;
  const int lastRank = bWhite ? 7 : 0;
  const int homeRank = bWhite ? 1 : 6;
  const PieceCode enemy = bWhite ? piece::kBlack : piece::kWhite;
  const auto add = [&](SquareIndex to, int captured) {
    if (square::Rank(to) != lastRank) {
      sink.Add(i, from, to, captured);
      return;
    }
    for (PieceCode type : kPromotions) {
      sink.Add(i, from, to, captured);
      sink.out[sink.n - 1].promotion = type;
    }
  };
  const auto ahead = static_cast<SquareIndex>(from + step);
  if (p.board[ahead] == piece::kEmpty) {
    add(ahead, -1);
    const auto twoAhead = static_cast<SquareIndex>(from + 2 * step);
    if (square::Rank(from) == homeRank && p.board[twoAhead] == piece::kEmpty) {
      sink.Add(i, from, twoAhead);
      sink.out[sink.n - 1].bDoubleStep = true;
    }
  }
  for (int side = -1; side <= 1; side += 2) {
    const int file = square::File(from) + side;
    if (file < 0 || file > 7) continue;
    const auto to = static_cast<SquareIndex>(ahead + side);
    const PieceCode there = p.board[to];
    if ((there & enemy) && piece::TypeOf(there) != piece::kKing) add(to, p.PieceOn(to));
  }
}

void AddPawnRetractions(const TTablePlacement& p, int i, TMoveSink& sink) {
  const SquareIndex at = p.squares[i];
  const bool bWhite = piece::IsWhite(p.codes[i]);
  const int back = bWhite ? -8 : 8;
  const int homeRank = bWhite ? 1 : 6;
  const int rank = square::Rank(at);
  const auto behind = static_cast<SquareIndex>(at + back);
  if (rank == homeRank || p.board[behind] != piece::kEmpty) return;
  sink.Add(i, behind, at);
  if (std::abs(square::Rank(behind) - homeRank) == 1 &&
      p.board[static_cast<SquareIndex>(behind + back)] == piece::kEmpty) {
    sink.Add(i, static_cast<SquareIndex>(behind + back), at);
    sink.out[sink.n - 1].bDoubleStep = true;
  }
}

}  // namespace

TTablePlacement::TTablePlacement(const TTableMaterial& material, const SquareIndex* pieceSquares)
    : n(material.Count()) {
  for (int i = 0; i < n; ++i) {
    squares[i] = pieceSquares[i];
    codes[i] = material.Piece(i);
    board[squares[i]] = codes[i];
  }
}

int TTablePlacement::PieceOn(SquareIndex s) const {
  for (int i = 0; i < n; ++i)
    if (squares[i] == s) return i;
  return -1;
}

bool TTablePlacement::IsAttacked(SquareIndex target, PieceCode byColour) const {
  // With so few pieces, asking each attacker is quicker than looking out from the target.
  for (int i = 0; i < n; ++i)
    if ((codes[i] & byColour) && squares[i] != square::kNone &&
        attacks::PieceAttacks(board, squares[i], target))
      return true;
  return false;
}

bool TTablePlacement::KingsTouch() const {
  return std::abs(square::File(squares[0]) - square::File(squares[1])) <= 1 &&
         std::abs(square::Rank(squares[0]) - square::Rank(squares[1])) <= 1;
}

int TTablePlacement::GenerateMoves(PieceCode colour, TTableMove* out) const {
  TMoveSink sink{out};
  for (int i = 0; i < n; ++i) {
    if (squares[i] == square::kNone || !(codes[i] & colour)) continue;
    if (piece::TypeOf(codes[i]) == piece::kPawn) {
      AddPawnMoves(*this, i, sink);
    } else {
      AddPieceMoves(*this, i, true, sink);
    }
  }
  return sink.n;
}

int TTablePlacement::GenerateRetractions(PieceCode colour, TTableMove* out) const {
  TMoveSink sink{out};
  for (int i = 0; i < n; ++i) {
    if (squares[i] == square::kNone || !(codes[i] & colour)) continue;
    if (piece::TypeOf(codes[i]) == piece::kPawn) {
      AddPawnRetractions(*this, i, sink);
      continue;
    }
    // A retraction runs like a move to an empty square, from the piece's square back.
    const int first = sink.n;
    AddPieceMoves(*this, i, false, sink);
    for (int k = first; k < sink.n; ++k) std::swap(sink.out[k].from, sink.out[k].to);
  }
  return sink.n;
}

void TTablePlacement::Apply(const TTableMove& move) {
  if (move.captured >= 0) squares[move.captured] = square::kNone;
  board[move.from] = piece::kEmpty;
  if (move.promotion != 0)
    codes[move.piece] =
        static_cast<PieceCode>((codes[move.piece] & ~piece::kTypeMask) | move.promotion);
  board[move.to] = codes[move.piece];
  squares[move.piece] = move.to;
}

void TTablePlacement::Retract(const TTableMove& move) {
  board[move.to] = piece::kEmpty;
  board[move.from] = codes[move.piece];
  squares[move.piece] = move.from;
}
