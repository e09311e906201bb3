#include "engine/HeuristicRules.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/Attacks.h"
#include "core/CheckPrediction.h"
#include "core/MoveMaking.h"

THeuristicContext::THeuristicContext(const THeuristicSet& heuristics, const TChessboard& root)
    : set(heuristics), pattern(heuristics, root) {
  std::memcpy(rootSquares, root.squares, sizeof rootSquares);
  std::memcpy(nRootPieces, root.nPieces, sizeof nRootPieces);
}

namespace heuristicrules {
namespace {

// 0 on the edge line, 1 on the line next to it, and so on inwards.
int Ring(SquareIndex s) {
  const int file = square::File(s), rank = square::Rank(s);
  return std::min({file, 7 - file, rank, 7 - rank});
}

bool OnMainDiagonal(SquareIndex s, bool bRising) {
  return bRising ? square::File(s) == square::Rank(s) : square::File(s) + square::Rank(s) == 7;
}

int CornerDistance(SquareIndex s) {
  const int file = square::File(s), rank = square::Rank(s);
  return std::max(std::min(file, 7 - file), std::min(rank, 7 - rank));
}

bool IsKingMove(const TChessboard& after) {
  return piece::TypeOf(after.squares[after.lastMove.to]) == piece::kKing;
}

TBreak KingBreaks(const TChessboard& after, const THeuristicContext& context) {
  const THeuristicSet& set = context.set;
  const TChessboard& before = *after.parent;
  const SquareIndex from = after.lastMove.from, to = after.lastMove.to;
  if (set.Has(shbit::kDontLetKingMove)) {
    const TChessboard* previous = before.parent;  // made by Black's previous move
    const bool bStepsBack = set.bKingMoveExceptions && previous != nullptr &&
                            previous->parent != nullptr && previous->lastMove.from == to &&
                            previous->lastMove.to == from;
    if (!bStepsBack) return {shbit::kDontLetKingMove};
  }
  if (set.Has(shbit::kKeepKingOnTheEdge)) {
    const int nAllowed = set.edgeForm == EEdgeForm::kLoose ? 1 : 0;
    const bool bExcused = set.edgeForm == EEdgeForm::kAlmostStrict && before.IsBlackInCheck();
    if (Ring(to) > nAllowed && !bExcused)
      return {shbit::kKeepKingOnTheEdge, set.edgeForm != EEdgeForm::kAllStrict};
  }
  if (set.Has(shbit::kKeepKingWithinExtEdge) && Ring(from) <= 1 && Ring(to) > 1)
    return {shbit::kKeepKingWithinExtEdge};
  if (set.Has(shbit::kKeepKingNearCorner)) {
    const int distance = CornerDistance(to) + (set.bCornerInKingMoves ? 0 : 1);
    if (distance > set.nCornerDistance) return {shbit::kKeepKingNearCorner};
  }
  return {};
}

// A black piece of a kind Black has more of than at the start counts as promoted.
bool IsPromotedKind(const TChessboard& after, PieceCode moved, const THeuristicContext& context) {
  const int slot = PieceCountSlot(piece::TypeOf(moved), true);
  return slot >= 0 && after.nPieces[slot] > context.nRootPieces[slot];
}

// Whether some start square of a black piece of this kind lies within one step of s.
bool NearStartSquare(SquareIndex s, PieceCode moved, const THeuristicContext& context) {
  for (SquareIndex start = 0; start < 64; ++start)
    if (context.rootSquares[start] == moved && Distance(start, s) <= 1) return true;
  return false;
}

bool QueenCheckedBefore(const TChessboard& after) {
  for (const TChessboard* p = after.parent; p != nullptr && p->parent != nullptr; p = p->parent)
    if (p->IsWhiteToMove() && p->IsWhiteInCheck() &&
        p->squares[p->lastMove.to] == piece::kBlackQueen)
      return true;
  return false;
}

TBreak CaptureBreaks(const TChessboard& after, const THeuristicContext& context) {
  const THeuristicSet& set = context.set;
  const PieceCode captured = after.parent->squares[after.lastMove.to];
  if (!piece::IsWhite(captured)) return {};
  const bool bPawn = piece::TypeOf(captured) == piece::kPawn;
  if (set.Has(shbit::kDontLoseAnyFigures)) {
    const bool bCounts = !bPawn || set.nLoseFiguresLevel == 1 ||
                         (set.nLoseFiguresLevel >= 2 && square::Rank(after.lastMove.to) >= 5);
    if (bCounts) return {shbit::kDontLoseAnyFigures};
  }
  if (set.Has(shbit::kSaveQueenRook) && !bPawn && (piece::TypeOf(captured) & piece::kRook) != 0 &&
      after.nPieces[kWhiteQueens] + after.nPieces[kWhiteRooks] == 0) {
    bool bPromotionComing = false;
    for (SquareIndex s = 48; s < 56; ++s) bPromotionComing |= after.squares[s] == piece::kWhitePawn;
    if (!bPromotionComing) return {shbit::kSaveQueenRook};
  }
  return {};
}

}  // namespace

int Distance(SquareIndex a, SquareIndex b) {
  return std::max(std::abs(square::File(a) - square::File(b)),
                  std::abs(square::Rank(a) - square::Rank(b)));
}

TBreak BlackReplyBreaks(const TChessboard& after, const THeuristicContext& context) {
  const THeuristicSet& set = context.set;
  if (const TBreak capture = CaptureBreaks(after, context); capture.bit != 0) return capture;
  if (const std::uint32_t bit = patternrules::BlackReplyBreaks(after, set, context.pattern))
    return {bit};
  if (IsKingMove(after)) return KingBreaks(after, context);
  const PieceCode moved = after.squares[after.lastMove.to];
  if (after.lastMove.promotion != 0 || piece::TypeOf(moved) == piece::kPawn) return {};
  if (set.Has(shbit::kDontLetPromotedQueenMove) && piece::TypeOf(moved) == piece::kQueen &&
      IsPromotedKind(after, moved, context))
    return {shbit::kDontLetPromotedQueenMove};
  if (set.Has(shbit::kDontLetPromotedFigureMove) && IsPromotedKind(after, moved, context))
    return {shbit::kDontLetPromotedFigureMove};
  if (set.Has(shbit::kDontLetBlackQueenCheckTwice) && moved == piece::kBlackQueen &&
      after.IsWhiteInCheck() && QueenCheckedBefore(after))
    return {shbit::kDontLetBlackQueenCheckTwice};
  if (set.Has(shbit::kDontLetFigureUnblock) && !NearStartSquare(after.lastMove.to, moved, context))
    return {shbit::kDontLetFigureUnblock};
  return {};
}

std::uint32_t WhiteMoveBreaks(const TChessboard& after, const THeuristicContext& context) {
  const THeuristicSet& set = context.set;
  const TChessboard& before = *after.parent;
  const TMove move = after.lastMove;
  const PieceCode moved = after.squares[move.to];
  if (set.Has(shbit::kKeyWhiteFigure) && move.from == set.keySquare) return shbit::kKeyWhiteFigure;
  if (const std::uint32_t bit = patternrules::WhiteMoveBreaks(after, set, context.pattern))
    return bit;
  if (set.Has(shbit::kCaptureKnight) && after.ply <= 2 && after.nPieces[kBlackKnights] > 0)
    return shbit::kCaptureKnight;
  if (set.Has(shbit::kDontLeaveMainDiagonal) && moved == piece::kWhiteBishop) {
    for (const bool bRising : {true, false})
      if (OnMainDiagonal(move.from, bRising) && !OnMainDiagonal(move.to, bRising))
        return shbit::kDontLeaveMainDiagonal;
  }
  if (set.Has(shbit::kDontRecedeBlackKing) && moved == piece::kWhiteKing &&
      Distance(move.to, after.BlackKing()) > Distance(move.from, after.BlackKing()))
    return shbit::kDontRecedeBlackKing;
  if (set.Has(shbit::kFindForcedMate) && !after.IsBlackInCheck()) {
    const bool bForcing = before.squares[move.to] != piece::kEmpty || move.promotion != 0;
    if (set.forcedMateMode == EForcedMateMode::kCheckOnly) return shbit::kFindForcedMate;
    if (!(set.forcedMateMode == EForcedMateMode::kMateIn1Plus && bForcing) &&
        !ThreatensMateInOne(after))
      return shbit::kFindForcedMate;
  }
  return 0;
}

std::uint32_t WhiteNodeBreaks(const TChessboard& board, const THeuristicContext& context) {
  const THeuristicSet& set = context.set;
  if (set.Has(shbit::kAreKingsNear) &&
      Distance(board.WhiteKing(), board.BlackKing()) > (board.ply + 1) / 2)
    return shbit::kAreKingsNear;
  if (set.Has(shbit::kAssertBlackKingSurrounded) && board.ply <= 3 &&
      patternrules::FreeBlackKingSquares(board) > 3)
    return shbit::kAssertBlackKingSurrounded;
  return patternrules::WhiteNodeBreaks(board, set, context.pattern);
}

bool ThreatensMateInOne(const TChessboard& after) {
  TChessboard again = after;
  again.parent = nullptr;  // no en passant right for White from Black's last move
  again.ply = static_cast<std::uint16_t>(after.ply - 1);
  if (!RecomputeChecks(again) || again.IsBlackInCheck()) return false;
  TMove moves[kMoveBufferSize];
  const int n = attacks::CCheckFilter(again).GenerateCheckingMoves(moves);
  TChessboard child;
  for (int i = 0; i < n; ++i) {
    child = again;
    child.parent = &again;
    if (movemaking::MakeWhiteMove(child, moves[i]) <= 0) continue;
    if (child.IsBlackInCheck() && !movemaking::HasLegalMove(child)) return true;
  }
  return false;
}

}  // namespace heuristicrules
