#include "core/MoveMaking.h"

#include <cassert>
#include <utility>

#include "core/AttackerSets.h"
#include "core/Attacks.h"
#include "core/BoardTables.h"
#include "core/CastlingRule.h"
#include "core/MoveGeneration.h"
#include "core/WhiteMaterial.h"

namespace movemaking {
namespace {

bool IsCastling(const TChessboard& board, TMove m) {
  return piece::TypeOf(board.squares[m.from]) == piece::kKing &&
         castling::RuleOfKingMove(m.from, m.to) != nullptr;
}

// Adds delta to the count of a piece type (kings are not counted).
void AdjustCount(TChessboard& b, PieceCode type, bool bBlack, int delta) {
  const int slot = PieceCountSlot(type, bBlack);
  if (slot >= 0) b.nPieces[slot] = static_cast<std::uint8_t>(b.nPieces[slot] + delta);
}

// The first piece met from `from` along direction d, or kNone.
SquareIndex FirstPieceOnRay(const PieceCode* sq, SquareIndex from, int d) {
  const tables::TSquareList& ray = tables::Get().rays[from][d];
  for (int i = 0; i < ray.n; ++i)
    if (sq[ray.squares[i]] != piece::kEmpty) return ray.squares[i];
  return square::kNone;
}

// A slider of colour on the line from king through `through` attacks the king.
SquareIndex DiscoveredAttacker(const PieceCode* sq, SquareIndex king, SquareIndex through,
                               PieceCode colour) {
  const int d = tables::Get().direction[king][through];
  if (d == tables::kNoDirection) return square::kNone;
  const SquareIndex s = FirstPieceOnRay(sq, king, d);
  if (s == square::kNone) return square::kNone;
  const PieceCode p = sq[s];
  return ((p & colour) && (p & tables::DirectionBit(d))) ? s : square::kNone;
}

// Keeps the white slots in square order after a white piece moved without capture or promotion.
void MoveWhiteSlot(TChessboard& b, PieceCode type, SquareIndex from, SquareIndex to) {
  SquareIndex* slots = type == piece::kRook     ? b.whiteRookSquares
                       : type == piece::kBishop ? b.whiteBishopSquares
                       : type == piece::kKnight ? b.whiteKnightSquares
                                                : &b.whiteQueenSquare;
  if (slots == &b.whiteQueenSquare) {
    b.whiteQueenSquare = to;
    return;
  }
  if (slots[0] == from)
    slots[0] = to;
  else if (slots[1] == from)
    slots[1] = to;
  if (slots[1] != square::kNone && slots[1] < slots[0]) std::swap(slots[0], slots[1]);
}

// Moves the piece(s) and keeps counts and white material current.
// Returns true for a move whose effect on checks needs a full recomputation (castling, en passant).
bool ApplyMove(TChessboard& b, TMove m, bool bWhite) {
  PieceCode* sq = b.squares;
  const PieceCode p = sq[m.from];
  const PieceCode captured = sq[m.to];
  const PieceCode type = piece::TypeOf(p);
  const PieceCode colour = bWhite ? piece::kWhite : piece::kBlack;
  bool bSpecial = false, bWhiteMaterialChanged = false;
  sq[m.from] = piece::kEmpty;
  sq[m.to] = p;
  if (captured != piece::kEmpty) {
    AdjustCount(b, piece::TypeOf(captured), bWhite, -1);
    bWhiteMaterialChanged = !bWhite && piece::TypeOf(captured) != piece::kPawn;
  }
  if (type == piece::kKing) {
    if (const TCastlingRule* rule = castling::RuleOfKingMove(m.from, m.to)) {
      assert(rule->king == p && sq[rule->rookFrom] == rule->rook);
      sq[rule->rookFrom] = piece::kEmpty;
      sq[rule->rookTo] = rule->rook;
      bSpecial = true;
      bWhiteMaterialChanged = bWhite;
    }
    (bWhite ? b.whiteKingFile : b.blackKingFile) = static_cast<std::uint8_t>(square::File(m.to));
    (bWhite ? b.whiteKingRank : b.blackKingRank) = static_cast<std::uint8_t>(square::Rank(m.to));
  } else if (type == piece::kPawn) {
    if (m.promotion != 0) {
      const PieceCode promoted = piece::TypeOf(m.promotion);
      sq[m.to] = colour | promoted;
      AdjustCount(b, piece::kPawn, !bWhite, -1);
      AdjustCount(b, promoted, !bWhite, +1);
      bWhiteMaterialChanged = bWhiteMaterialChanged || bWhite;
    } else if (captured == piece::kEmpty && square::File(m.from) != square::File(m.to)) {
      const SquareIndex taken = bWhite ? m.to - 8 : m.to + 8;
      sq[taken] = piece::kEmpty;
      AdjustCount(b, piece::kPawn, bWhite, -1);
      bSpecial = true;
    }
  } else if (bWhite && b.bSimpleWhiteMaterial && !bWhiteMaterialChanged) {
    MoveWhiteSlot(b, type, m.from, m.to);
  }
  if (bWhiteMaterialChanged) ScanWhiteMaterial(b);
  return bSpecial;
}

int MakeMoveOf(TChessboard& b, TMove m, bool bWhite) {
  // Trial moves at ply 0 (is the side to move mated?) are made too, into scratch copies.
  assert(m.from < 64 && m.to < 64 && b.IsWhiteToMove() == bWhite);
  assert((b.squares[m.from] & piece::SideMask(bWhite)) != 0);
  assert((b.squares[m.to] & piece::SideMask(bWhite)) == 0);
  // Else the enemy king could be taken: such a position has no moves to make.
  assert(!(bWhite ? b.IsBlackInCheck() : b.IsWhiteInCheck()));
  const std::int8_t moverCheckBefore = bWhite ? b.whiteKingCheck : b.blackKingCheck;
  const bool bKingMove = piece::TypeOf(b.squares[m.from]) == piece::kKing;
  const bool bSpecial = ApplyMove(b, m, bWhite);
  const PieceCode* sq = b.squares;
  const PieceCode enemy = bWhite ? piece::kBlack : piece::kWhite;
  const PieceCode own = bWhite ? piece::kWhite : piece::kBlack;
  const SquareIndex ownKing = bWhite ? b.WhiteKing() : b.BlackKing();
  const SquareIndex enemyKing = bWhite ? b.BlackKing() : b.WhiteKing();
  // The mover's king: a full test only when the king moved, was in check, or a pawn vanished
  // en passant; otherwise only a line through the vacated square can have opened.
  bool bIllegal;
  if (bKingMove || bSpecial || moverCheckBefore != kNotInCheck)
    bIllegal = attacks::IsAttacked(sq, ownKing, enemy);
  else
    bIllegal = DiscoveredAttacker(sq, ownKing, m.from, enemy) != square::kNone;
  if (bIllegal) return 0;
  int enemyCheck;
  if (bSpecial) {
    enemyCheck = attacks::CheckValue(sq, enemyKing, own);
  } else {
    const bool bDirect = !bKingMove && attacks::PieceAttacks(sq, m.to, enemyKing);
    const SquareIndex discovered = DiscoveredAttacker(sq, enemyKing, m.from, own);
    const bool bDiscovered = discovered != square::kNone && discovered != m.to;
    enemyCheck = bDirect && bDiscovered ? kDoubleCheck
                 : bDirect              ? m.to
                 : bDiscovered          ? discovered
                                        : kNotInCheck;
  }
  (bWhite ? b.whiteKingCheck : b.blackKingCheck) = kNotInCheck;
  (bWhite ? b.blackKingCheck : b.whiteKingCheck) = static_cast<std::int8_t>(enemyCheck);
  b.lastMove = m;
  --b.ply;
  assert(IsConsistent(b));
  return 1;
}

}  // namespace

int MakeWhiteMove(TChessboard& child, TMove move) {
  return MakeMoveOf(child, move, true);
}
int MakeBlackMove(TChessboard& child, TMove move) {
  return MakeMoveOf(child, move, false);
}

bool MakeSuccessor(const TChessboard& board, TMove move, TChessboard& child) {
  if (board.ply == 0) return false;
  child = board;
  child.parent = &board;
  const int made = board.IsWhiteToMove() ? MakeWhiteMove(child, move) : MakeBlackMove(child, move);
  return made > 0;
}

bool IsMoveValid(const TChessboard& board, std::uint32_t moveCode, TChessboard& successor) {
  const TMove move = TMove::FromCode(moveCode);
  if (move.from >= 64 || move.to >= 64 || board.ply == 0) return false;
  // A position whose side not to move is in check is over: its king could be taken.
  if (board.IsWhiteToMove() ? board.IsBlackInCheck() : board.IsWhiteInCheck()) return false;
  TMove generated;
  return movegen::FindPieceMove(board, move, &generated) &&
         MakeSuccessor(board, generated, successor);
}

namespace {

// A king step is legal when the target is not attacked once the king has left its square
// (a slider's ray then runs on through it).
bool HasLegalKingStep(const TChessboard& board, bool bWhite) {
  const SquareIndex king = bWhite ? board.WhiteKing() : board.BlackKing();
  const auto& t = tables::Get();
  const tables::TSquareList& steps = bWhite ? t.whiteKingSteps[king] : t.blackKingSteps[king];
  const PieceCode own = bWhite ? piece::kWhite : piece::kBlack;
  TAttackerSets enemy(board.squares, bWhite ? piece::kBlack : piece::kWhite);
  enemy.Lift(king);
  for (int i = 0; i < steps.n; ++i)
    if (!(board.squares[steps.squares[i]] & own) && !enemy.Attacks(steps.squares[i])) return true;
  return false;
}

}  // namespace

std::vector<TMove> LegalMoves(const TChessboard& board) {
  TMove moves[kMoveBufferSize];
  const int n = board.IsSideToMoveInCheck() ? movegen::GenerateEvasions(board, moves)
                                            : movegen::GenerateAllMoves(board, moves);
  const bool bWhite = board.IsWhiteToMove();
  std::vector<TMove> legal;
  TChessboard scratch;
  for (int i = 0; i < n; ++i) {
    scratch = board;
    scratch.parent = &board;
    if ((bWhite ? MakeWhiteMove(scratch, moves[i]) : MakeBlackMove(scratch, moves[i])) > 0)
      legal.push_back(moves[i]);
  }
  return legal;
}

bool HasLegalMove(const TChessboard& board) {
  // Works at ply 0 too (mate detection at the horizon): trial moves go to a scratch copy.
  const bool bWhite = board.IsWhiteToMove();
  if (HasLegalKingStep(board, bWhite)) return true;
  if ((bWhite ? board.whiteKingCheck : board.blackKingCheck) == kDoubleCheck) return false;
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateEvasions(board, moves);
  const SquareIndex king = bWhite ? board.WhiteKing() : board.BlackKing();
  TChessboard scratch;
  for (int i = 0; i < n; ++i) {
    if (moves[i].from == king && !IsCastling(board, moves[i])) continue;  // steps were tried above
    scratch = board;
    scratch.parent = &board;
    if ((bWhite ? MakeWhiteMove(scratch, moves[i]) : MakeBlackMove(scratch, moves[i])) > 0)
      return true;
  }
  return false;
}

}  // namespace movemaking
