#include "core/MoveGeneration.h"

#include <bit>
#include <cassert>
#include <cstring>
#include <initializer_list>

#include "core/Attacks.h"
#include "core/BoardTables.h"

static_assert(std::endian::native == std::endian::little,
              "square scanning reads bytes in board order");

namespace movegen {
namespace {

using tables::TSquareList;

constexpr PieceCode kPromotionOrder[4] = {piece::kQueen, piece::kRook, piece::kBishop,
                                          piece::kKnight};

inline TMove Move(int from, int to, PieceCode promotion = 0) {
  return TMove{static_cast<SquareIndex>(from), static_cast<SquareIndex>(to), promotion, 0};
}

int SliderMoves(const PieceCode* sq, SquareIndex from, int firstDirection, int lastDirection,
                PieceCode enemy, TMove* out) {
  const auto& t = tables::Get();
  int n = 0;
  for (int d = firstDirection; d < lastDirection; ++d) {
    const TSquareList& ray = t.rays[from][d];
    for (int i = 0; i < ray.n; ++i) {
      const PieceCode p = sq[ray.squares[i]];
      if (p == piece::kEmpty) {
        out[n++] = Move(from, ray.squares[i]);
        continue;
      }
      if (p & enemy) out[n++] = Move(from, ray.squares[i]);
      break;
    }
  }
  return n;
}

int StepMoves(const PieceCode* sq, SquareIndex from, const TSquareList& targets, PieceCode enemy,
              TMove* out) {
  int n = 0;
  for (int i = 0; i < targets.n; ++i) {
    const PieceCode p = sq[targets.squares[i]];
    if (p == piece::kEmpty || (p & enemy)) out[n++] = Move(from, targets.squares[i]);
  }
  return n;
}

int AddPawnMove(int from, int to, bool bPromotion, TMove* out) {
  if (!bPromotion) {
    out[0] = Move(from, to);
    return 1;
  }
  for (int i = 0; i < 4; ++i) out[i] = Move(from, to, kPromotionOrder[i]);
  return 4;
}

// forward is +8 for White and -8 for Black; the rest follows from it.
int PawnMoves(const TChessboard& board, SquareIndex from, int forward, TMove* out) {
  const PieceCode* sq = board.squares;
  const bool bWhite = forward > 0;
  // The analysis keeps pawns off both back ranks, so a step ahead stays on the board.
  assert(square::Rank(from) != square::BackRank(true) &&
         square::Rank(from) != square::BackRank(false));
  const PieceCode enemy = bWhite ? piece::kBlack : piece::kWhite;
  const int file = square::File(from), rank = square::Rank(from);
  const bool bPromotion = rank + (bWhite ? 1 : -1) == square::PromotionRank(bWhite);
  int n = 0;
  const int ahead = from + forward;
  if (sq[ahead] == piece::kEmpty) {
    n += AddPawnMove(from, ahead, bPromotion, out + n);
    if (rank == square::PawnStartRank(bWhite) && sq[ahead + forward] == piece::kEmpty)
      out[n++] = Move(from, ahead + forward);
  }
  if (file > 0 && (sq[ahead - 1] & enemy)) n += AddPawnMove(from, ahead - 1, bPromotion, out + n);
  if (file < 7 && (sq[ahead + 1] & enemy)) n += AddPawnMove(from, ahead + 1, bPromotion, out + n);
  if (rank == square::EnPassantRank(bWhite) && board.parent != nullptr) {
    const PieceCode enemyPawn = enemy | piece::kPawn;
    const TMove last = board.lastMove;
    for (int side : {-1, 1}) {
      if ((side < 0 && file == 0) || (side > 0 && file == 7)) continue;
      const int beside = from + side;
      if (sq[beside] == enemyPawn && last.to == beside && last.from == beside + 2 * forward)
        out[n++] = Move(from, beside + forward);
    }
  }
  return n;
}

int KingMoves(const TChessboard& board, SquareIndex from, bool bWhite, TMove* out) {
  const auto& t = tables::Get();
  const TSquareList& steps = bWhite ? t.whiteKingSteps[from] : t.blackKingSteps[from];
  int n = StepMoves(board.squares, from, steps, bWhite ? piece::kBlack : piece::kWhite, out);
  if (from == castling::KingHome(bWhite)) {
    const TCastlingRule* rules = castling::RulesOf(bWhite);
    for (int i = 0; i < 2; ++i)
      if (CanCastle(board, rules[i])) out[n++] = Move(from, rules[i].kingTo);
  }
  return n;
}

}  // namespace

int GeneratePieceMoves(const TChessboard& board, SquareIndex from, TMove* out) {
  assert(from < 64);
  const PieceCode* sq = board.squares;
  const auto& t = tables::Get();
  const PieceCode p = sq[from];
  if (board.IsWhiteToMove() ? !piece::IsWhite(p) : !piece::IsBlack(p)) return 0;
  const PieceCode enemy = piece::IsWhite(p) ? piece::kBlack : piece::kWhite;
  switch (piece::TypeOf(p)) {
    case piece::kRook:
      return SliderMoves(sq, from, 0, 4, enemy, out);
    case piece::kBishop:
      return SliderMoves(sq, from, 4, 8, enemy, out);
    case piece::kQueen:
      return SliderMoves(sq, from, 0, 8, enemy, out);
    case piece::kKnight:
      return StepMoves(sq, from, t.knightTargets[from], enemy, out);
    case piece::kPawn:
      return PawnMoves(board, from, piece::IsWhite(p) ? 8 : -8, out);
    case piece::kKing:
      return KingMoves(board, from, piece::IsWhite(p), out);
    default:
      return 0;
  }
}

bool FindPieceMove(const TChessboard& board, TMove move, TMove* found) {
  TMove moves[kMoveBufferSize];
  const int n = GeneratePieceMoves(board, move.from, moves);
  for (int i = 0; i < n; ++i) {
    if (moves[i].SameMove(move)) {
      *found = moves[i];
      return true;
    }
  }
  return false;
}

int GenerateAllMoves(const TChessboard& board, TMove* out) {
  const std::uint64_t sideBits = 0x0101010101010101ULL * piece::SideMask(board.IsWhiteToMove());
  int n = 0;
  for (int w = 0; w < 8; ++w) {
    std::uint64_t word;
    std::memcpy(&word, board.squares + 8 * w, 8);
    for (std::uint64_t own = word & sideBits; own != 0; own &= own - 1) {
      const int s = 8 * w + std::countr_zero(own) / 8;
      n += GeneratePieceMoves(board, static_cast<SquareIndex>(s), out + n);
    }
  }
  assert(n <= kMoveBufferSize);
  return n;
}

int GenerateEvasions(const TChessboard& board, TMove* out) {
  const bool bWhite = board.IsWhiteToMove();
  const int check = bWhite ? board.whiteKingCheck : board.blackKingCheck;
  const SquareIndex king = bWhite ? board.WhiteKing() : board.BlackKing();
  const int nAll = GenerateAllMoves(board, out);
  if (check == kNotInCheck) return nAll;
  // A single check is met by the king, by taking the checker or by blocking its line.
  std::uint64_t allowedTargets = 0;
  if (check != kDoubleCheck) {
    allowedTargets |= 1ULL << check;
    const int d = tables::Get().direction[king][check];
    if (d != tables::kNoDirection && piece::TypeOf(board.squares[check]) != piece::kKing) {
      const TSquareList& ray = tables::Get().rays[king][d];
      for (int i = 0; i < ray.n && ray.squares[i] != check; ++i)
        allowedTargets |= 1ULL << ray.squares[i];
    }
  }
  int n = 0;
  for (int i = 0; i < nAll; ++i) {
    const TMove m = out[i];
    const bool bEnPassant = piece::TypeOf(board.squares[m.from]) == piece::kPawn &&
                            square::File(m.from) != square::File(m.to) &&
                            board.squares[m.to] == piece::kEmpty;
    if (m.from == king || ((allowedTargets >> m.to) & 1) || (bEnPassant && check != kDoubleCheck))
      out[n++] = m;
  }
  return n;
}

namespace {

// King and rook stand at home now, stood there at the root, and no move since ended there.
bool HasCastlingRight(const TChessboard& board, const TCastlingRule& rule) {
  if (!rule.PiecesAtHome(board.squares)) return false;
  const TChessboard* p = &board;
  for (; p->parent != nullptr; p = p->parent)
    if (p->lastMove.to == rule.kingFrom || p->lastMove.to == rule.rookFrom) return false;
  return rule.PiecesAtHome(p->squares);
}

}  // namespace

bool CanCastle(const TChessboard& board, const TCastlingRule& rule) {
  const PieceCode* sq = board.squares;
  if (sq[rule.kingFrom] != rule.king) return false;
  for (int s = rule.kingFrom + rule.Step(); s != rule.rookFrom; s += rule.Step())
    if (sq[s] != piece::kEmpty) return false;
  const bool bWhite = piece::IsWhite(rule.king);
  if (bWhite ? board.IsWhiteInCheck() : board.IsBlackInCheck()) return false;
  const PieceCode enemy = bWhite ? piece::kBlack : piece::kWhite;
  if (attacks::IsAttacked(sq, rule.Crossed(), enemy) || attacks::IsAttacked(sq, rule.kingTo, enemy))
    return false;
  return HasCastlingRight(board, rule);
}

std::uint8_t CastlingRights(const TChessboard& board) {
  std::uint8_t rights = 0;
  for (const TCastlingRule& rule : castling::kRules)
    if (HasCastlingRight(board, rule)) rights |= rule.right;
  return rights;
}

SquareIndex EnPassantTarget(const TChessboard& board) {
  if (board.parent == nullptr) return square::kNone;
  const TMove last = board.lastMove;
  const PieceCode moved = board.squares[last.to];
  // Only a pawn's double step covers two ranks in one move.
  if (piece::TypeOf(moved) != piece::kPawn ||
      (last.to > last.from ? last.to - last.from : last.from - last.to) != 16)
    return square::kNone;
  const PieceCode taker = (piece::IsWhite(moved) ? piece::kBlack : piece::kWhite) | piece::kPawn;
  const int file = square::File(last.to);
  if ((file > 0 && board.squares[last.to - 1] == taker) ||
      (file < 7 && board.squares[last.to + 1] == taker))
    return static_cast<SquareIndex>((last.from + last.to) / 2);
  return square::kNone;
}

}  // namespace movegen
