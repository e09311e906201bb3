#include "engine/HeuristicRules.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/Attacks.h"
#include "core/CheckPrediction.h"
#include "core/MoveMaking.h"
#include "engine/OneColourPlay.h"
#include "engine/ZugzwangRules.h"

THeuristicContext::THeuristicContext(const THeuristicSet& heuristics, const TChessboard& root)
    : set(heuristics), pattern(heuristics, root) {
  std::memcpy(rootSquares, root.squares, sizeof rootSquares);
  std::memcpy(nRootPieces, root.nPieces, sizeof nRootPieces);
  if (set.Has(shbit::kSeaSnake)) nRootBlackMoves = zugzwangrules::CountBlackMoves(root);
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
  if (Ring(from) == 0 && ((set.fallback == EFallback::kKeepOnEdge && Ring(to) > 0) ||
                          set.fallback == EFallback::kKingStays))
    return {set.fallback == EFallback::kKeepOnEdge ? shbit::kKeepKingOnTheEdge
                                                   : shbit::kDontLetKingMove};
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

// Whether some square of squares holding a piece of this kind lies within one step of s.
bool NearSquareOf(const PieceCode (&squares)[64], SquareIndex s, PieceCode moved) {
  for (SquareIndex start = 0; start < 64; ++start)
    if (squares[start] == moved && Distance(start, s) <= 1) return true;
  return false;
}

// The black king in a corner's two-by-two block with two or more of its own men beside it:
// from here on those men are what keeps it shut in, and they are not meant to go.
bool IsKingShutInCorner(const TChessboard& board) {
  const SquareIndex king = board.BlackKing();
  if (CornerDistance(king) > 1) return false;
  int nOwn = 0;
  for (SquareIndex s = 0; s < 64; ++s)
    nOwn += s != king && Distance(s, king) == 1 && piece::IsBlack(board.squares[s]);
  return nOwn >= 2;
}

// The first position of the variation, Black to move, in which the king stood shut in; null
// when it never did. before: the position of Black's reply.
const TChessboard* FirstShutIn(const TChessboard& before) {
  const TChessboard* first = nullptr;
  for (const TChessboard* p = &before; p != nullptr; p = p->parent ? p->parent->parent : nullptr)
    if (IsKingShutInCorner(*p)) first = p;
  return first;
}

bool UnblocksDynamically(const TChessboard& after, PieceCode moved) {
  const TChessboard* shut = FirstShutIn(*after.parent);
  return shut != nullptr && !NearSquareOf(shut->squares, after.lastMove.to, moved);
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

// A quiet White move must threaten mate in the mode's number of moves, or in as many as
// are left after Black's reply if fewer: a longer threat could not come true in time.
bool ForcedMateBreaks(const TChessboard& after, EForcedMateMode mode,
                      const TThreatTest& threatens) {
  if (after.IsBlackInCheck()) return false;
  const TChessboard& before = *after.parent;
  const bool bForcing =
      before.squares[after.lastMove.to] != piece::kEmpty || after.lastMove.promotion != 0;
  if (bForcing && forcedmate::LetsCapturesThrough(mode)) return false;
  const int nThreat = std::min(forcedmate::ThreatMoves(mode), after.ply / 2);
  if (nThreat <= 0) return true;
  if (nThreat == 1) return !ThreatensMateInOne(after);
  return !threatens || !threatens(after, nThreat);
}

}  // namespace

int Distance(SquareIndex a, SquareIndex b) {
  return std::max(std::abs(square::File(a) - square::File(b)),
                  std::abs(square::Rank(a) - square::Rank(b)));
}

int WhiteMoveNumber(const TChessboard& board) {
  return (board.rootPlies - board.ply + 1) / 2;
}

TBreak BlackReplyBreaks(const TChessboard& after, const THeuristicContext& context) {
  const THeuristicSet& set = context.set;
  if (!set.OthersHold(WhiteMoveNumber(after))) return {};
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
  if (set.Has(shbit::kDontLetFigureUnblock)
          ? !NearSquareOf(context.rootSquares, after.lastMove.to, moved)
          : set.bDynamicDlfu && UnblocksDynamically(after, moved))
    return {shbit::kDontLetFigureUnblock};
  return {};
}

std::uint32_t WhiteMoveBreaks(const TChessboard& after, const THeuristicContext& context,
                              const TThreatTest& threatens) {
  const THeuristicSet& set = context.set;
  const int nMove = WhiteMoveNumber(after);
  if (set.ForcedMateHolds(nMove) && ForcedMateBreaks(after, set.forcedMateMode, threatens))
    return shbit::kFindForcedMate;
  if (!set.OthersHold(nMove)) return 0;
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
  if (set.Has(shbit::kOneColorPlay) && onecolour::WhiteMoveLeavesColour(after, set.oneColour))
    return shbit::kOneColorPlay;
  return zugzwangrules::WhiteMoveBreaks(after, set, context.nRootBlackMoves);
}

std::uint32_t WhiteNodeBreaks(const TChessboard& board, const THeuristicContext& context) {
  const THeuristicSet& set = context.set;
  if (!set.OthersHold(WhiteMoveNumber(board) + 1)) return 0;
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
