#include "core/CheckPrediction.h"

#include <bit>
#include <cassert>
#include <cstring>

#include "core/BoardTables.h"
#include "core/CastlingRule.h"
#include "core/MoveGeneration.h"

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
    case piece::kKnight:
      return df * df + dr * dr == 5;
    case piece::kPawn:
      return (df == 1 || df == -1) && dr == (bWhite ? 1 : -1);
    case piece::kKing:
      return false;
    default:
      break;
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
  if (piece::TypeOf(p) == piece::kKing && castling::RuleOfKingMove(m.from, m.to) != nullptr)
    return true;
  if (piece::TypeOf(p) == piece::kPawn && square::File(m.from) != square::File(m.to) &&
      sq[m.to] == piece::kEmpty)
    return true;
  const SquareIndex king = bWhite ? board.BlackKing() : board.WhiteKing();
  if (DirectCheck(sq, m, type, bWhite, king)) return true;
  const int d = tables::Get().direction[king][m.from];
  return d != tables::kNoDirection &&
         SliderBehind(sq, king, d, m.from, m.to, bWhite ? piece::kWhite : piece::kBlack);
}

}  // namespace attacks

namespace attacks {

CCheckFilter::CCheckFilter(const TChessboard& position) : board(position) {
  const bool bWhite = board.IsWhiteToMove();
  const PieceCode own = bWhite ? piece::kWhite : piece::kBlack;
  enemyKing = bWhite ? board.BlackKing() : board.WhiteKing();
  const auto& t = tables::Get();
  for (int i = 0; i < t.knightTargets[enemyKing].n; ++i)
    knightSquares |= 1ULL << t.knightTargets[enemyKing].squares[i];
  // A pawn of the mover checks from the squares diagonally in front of the king (seen from the
  // pawn).
  const int file = square::File(enemyKing);
  const int behind = enemyKing + (bWhite ? -8 : 8);
  if (behind >= 0 && behind < 64) {
    if (file > 0) pawnSquares |= 1ULL << (behind - 1);
    if (file < 7) pawnSquares |= 1ULL << (behind + 1);
  }
  for (int d = 0; d < 8; ++d) {
    const tables::TSquareList& ray = t.rays[enemyKing][d];
    std::uint64_t& lines = d < 4 ? straightSquares : diagonalSquares;
    int i = 0;
    for (; i < ray.n; ++i) {
      lines |= 1ULL << ray.squares[i];
      if (board.squares[ray.squares[i]] != piece::kEmpty) break;
    }
    if (i >= ray.n || !(board.squares[ray.squares[i]] & own)) continue;
    const SquareIndex screen = ray.squares[i];
    for (++i; i < ray.n; ++i) {
      const PieceCode p = board.squares[ray.squares[i]];
      if (p == piece::kEmpty) continue;
      if ((p & own) && (p & tables::DirectionBit(d))) {
        uncoverers |= 1ULL << screen;
        uncoverDirection[screen] = static_cast<std::int8_t>(d);
      }
      break;
    }
  }
}

bool CCheckFilter::MayGiveCheck(TMove m) const {
  const PieceCode p = board.squares[m.from];
  const PieceCode type = piece::TypeOf(p);
  // Promotions may open their own file behind them; castling and en passant move two pieces.
  if (m.promotion != 0 ||
      (type == piece::kKing && castling::RuleOfKingMove(m.from, m.to) != nullptr) ||
      (type == piece::kPawn && square::File(m.from) != square::File(m.to) &&
       board.squares[m.to] == piece::kEmpty))
    return attacks::MayGiveCheck(board, m);
  if (((uncoverers >> m.from) & 1) &&
      tables::Get().direction[enemyKing][m.to] != uncoverDirection[m.from])
    return true;
  const std::uint64_t to = 1ULL << m.to;
  switch (type) {
    case piece::kKnight:
      return (knightSquares & to) != 0;
    case piece::kPawn:
      return (pawnSquares & to) != 0;
    case piece::kRook:
      return (straightSquares & to) != 0;
    case piece::kBishop:
      return (diagonalSquares & to) != 0;
    case piece::kQueen:
      return ((straightSquares | diagonalSquares) & to) != 0;
    default:
      return false;
  }
}

bool CCheckFilter::IsCastlingSquare(SquareIndex from) const {
  return from == castling::KingHome(board.IsWhiteToMove());
}

bool CCheckFilter::IsQuietPawn(SquareIndex from) const {
  const bool bWhite = board.IsWhiteToMove();
  const int forward = bWhite ? 8 : -8;
  const int rank = square::Rank(from), file = square::File(from);
  // Promotions and en passant are judged by the general filter.
  if (rank + (bWhite ? 1 : -1) == square::PromotionRank(bWhite) ||
      rank == square::EnPassantRank(bWhite))
    return false;
  const int ahead = from + forward;
  std::uint64_t reach = 1ULL << ahead;
  if (rank == square::PawnStartRank(bWhite)) reach |= 1ULL << (ahead + forward);
  if (file > 0) reach |= 1ULL << (ahead - 1);
  if (file < 7) reach |= 1ULL << (ahead + 1);
  return (reach & pawnSquares) == 0;
}

int CCheckFilter::SliderChecks(SquareIndex from, int firstDirection, int lastDirection,
                               std::uint64_t targets, TMove* out) const {
  const auto& t = tables::Get();
  const PieceCode* sq = board.squares;
  const PieceCode enemy = board.IsWhiteToMove() ? piece::kBlack : piece::kWhite;
  int n = 0;
  for (int d = firstDirection; d < lastDirection; ++d) {
    if ((t.rayMask[from][d] & targets) == 0) continue;
    const tables::TSquareList& ray = t.rays[from][d];
    for (int i = 0; i < ray.n; ++i) {
      const SquareIndex to = ray.squares[i];
      const PieceCode p = sq[to];
      if ((p == piece::kEmpty || (p & enemy)) && ((targets >> to) & 1))
        out[n++] = TMove{from, to, 0, 0};
      if (p != piece::kEmpty) break;
    }
  }
  return n;
}

int CCheckFilter::GenerateCheckingMoves(TMove* out) const {
  const auto& t = tables::Get();
  const PieceCode* sq = board.squares;
  const std::uint64_t sideBits = 0x0101010101010101ULL * piece::SideMask(board.IsWhiteToMove());
  const PieceCode enemy = board.IsWhiteToMove() ? piece::kBlack : piece::kWhite;
  int n = 0;
  for (int w = 0; w < 8; ++w) {
    std::uint64_t word;
    std::memcpy(&word, sq + 8 * w, 8);
    for (std::uint64_t own = word & sideBits; own != 0; own &= own - 1) {
      const auto from = static_cast<SquareIndex>(8 * w + std::countr_zero(own) / 8);
      const PieceCode type = piece::TypeOf(sq[from]);
      // A king checks only by uncovering or castling, a pawn mostly by reaching a pawn
      // checking square: the others are skipped without generating their moves.
      if (!((uncoverers >> from) & 1) && ((type == piece::kKing && !IsCastlingSquare(from)) ||
                                          (type == piece::kPawn && IsQuietPawn(from))))
        continue;
      // Screens, pawns and castling kings are rare: generate their moves and filter them.
      if (((uncoverers >> from) & 1) || type == piece::kPawn || type == piece::kKing) {
        TMove moves[kMoveBufferSize];
        const int nMoves = movegen::GeneratePieceMoves(board, from, moves);
        for (int i = 0; i < nMoves; ++i)
          if (MayGiveCheck(moves[i])) out[n++] = moves[i];
        continue;
      }
      switch (type) {
        case piece::kKnight:
          for (std::uint64_t to = t.knightMask[from] & knightSquares; to != 0; to &= to - 1) {
            const auto target = static_cast<SquareIndex>(std::countr_zero(to));
            if (sq[target] == piece::kEmpty || (sq[target] & enemy))
              out[n++] = TMove{from, target, 0, 0};
          }
          break;
        case piece::kRook:
          n += SliderChecks(from, 0, 4, straightSquares, out + n);
          break;
        case piece::kBishop:
          n += SliderChecks(from, 4, 8, diagonalSquares, out + n);
          break;
        case piece::kQueen:
          n += SliderChecks(from, 0, 8, straightSquares | diagonalSquares, out + n);
          break;
        default:
          break;
      }
    }
  }
  assert(n <= kMoveBufferSize);
  return n;
}

}  // namespace attacks
