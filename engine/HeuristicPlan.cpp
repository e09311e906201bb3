#include "engine/HeuristicPlan.h"

#include <algorithm>
#include <optional>

#include "engine/PatternRules.h"
#include "engine/PositionPattern.h"
#include "engine/QueenMateSquares.h"

namespace heuristicplan {
namespace {

// The members in the order they are given up: those that restrict most go first.
constexpr std::uint32_t kDropOrder[] = {shbit::kSkipWorstWhiteMoves,
                                        shbit::kDontLetKingMove,
                                        shbit::kSingleQueenMate,
                                        shbit::kZugzwang,
                                        shbit::kDontLetFigureUnblock,
                                        shbit::kUseBlockBlackPawnsLevel,
                                        shbit::kKeepKingNearCorner,
                                        shbit::kSeaSnake,
                                        shbit::kZugzwangTriangles,
                                        shbit::kSweepingWhiteRook,
                                        shbit::kOneColorPlay,
                                        shbit::kReductionToTables,
                                        shbit::kAssertBlackKingSurrounded,
                                        shbit::kCaptureKnight,
                                        shbit::kAreKingsNear,
                                        shbit::kDontRecedeBlackKing,
                                        shbit::kKeyWhiteFigure,
                                        shbit::kKeyField,
                                        shbit::kKeyLine,
                                        shbit::kKeyDiagonal,
                                        shbit::kDontLeaveMainDiagonal,
                                        shbit::kDontLetBlackQueenCheckTwice,
                                        shbit::kDontLetPromotedQueenMove,
                                        shbit::kDontLetPromotedFigureMove,
                                        shbit::kKeepKingOnTheEdge,
                                        shbit::kKeepKingWithinExtEdge,
                                        shbit::kDontLoseAnyFigures,
                                        shbit::kSaveQueenRook,
                                        shbit::k3MovesToMate};

// The next forced-mate mode: each lets more White moves through than the one before, the
// "plus" modes before the longer threats, whose test costs more.
std::optional<EForcedMateMode> WiderForcedMateMode(EForcedMateMode mode) {
  switch (mode) {
    case EForcedMateMode::kCheckOnly:
      return EForcedMateMode::kMateIn1;
    case EForcedMateMode::kMateIn1:
      return EForcedMateMode::kMateIn1Plus;
    case EForcedMateMode::kMateIn1Plus:
    case EForcedMateMode::kMateIn2:
      return EForcedMateMode::kMateIn2Plus;
    case EForcedMateMode::kMateIn2Plus:
      return EForcedMateMode::kMateIn3;
    case EForcedMateMode::kMateIn3:
      return EForcedMateMode::kMateIn4;
    case EForcedMateMode::kMateIn4:
      return EForcedMateMode::kMateIn5;
    case EForcedMateMode::kMateIn5:
      break;
  }
  return std::nullopt;
}

int Ring(SquareIndex s) {
  const int file = square::File(s), rank = square::Rank(s);
  return std::min({file, 7 - file, rank, 7 - rank});
}

THeuristicSet Members(std::uint32_t mask, EEdgeForm edgeForm = EEdgeForm::kLoose,
                      EFallback fallback = EFallback::kNone) {
  THeuristicSet set;
  set.mask = mask;
  set.edgeForm = edgeForm;
  set.fallback = fallback;
  return set;
}

// The first steps of the relaxation path of initial: a few, as every pass takes its share of
// the time.
std::vector<THeuristicSet> Steps(const THeuristicSet& initial, std::size_t nSteps) {
  std::vector<THeuristicSet> path = RelaxationPath(initial);
  if (path.size() > nSteps) path.resize(nSteps);
  return path;
}

// The passes that suit a type of position, strictest first.
std::vector<THeuristicSet> PlanFor(EPositionPattern pattern, const TChessboard& start) {
  using enum EPositionPattern;
  const int nRing = Ring(start.BlackKing());
  // On the edge line the king is held there. Off it, the king is free until it reaches the
  // edge; from then on the variation falls back to a king that stands (relaxed: that keeps
  // to the edge line), and one line in, the king may not go further in meanwhile.
  const EEdgeForm edge = nRing == 0 ? EEdgeForm::kStrict : EEdgeForm::kLoose;
  const std::uint32_t onEdge = nRing <= 1 ? shbit::kKeepKingOnTheEdge : 0;
  const EFallback fallback = nRing == 0 ? EFallback::kNone : EFallback::kKingStays;
  switch (pattern) {
    case kKingShutInByPawns: {
      // The king cannot run: the mate comes in a net, its pawns may not queen and roam. Then
      // the same with White's pieces free to be given up, as a net is often opened by one.
      const std::uint32_t net =
          shbit::kAssertBlackKingSurrounded | shbit::kDontLetPromotedFigureMove;
      return {Members(net | shbit::kDontLoseAnyFigures), Members(net)};
    }
    case kBlockedBlackPieces:
      return Steps(Members(shbit::kDontLetFigureUnblock | onEdge | shbit::kDontLoseAnyFigures, edge,
                           fallback),
                   3);
    case kLoneQueen:
      return Steps(Members(shbit::kDontLetFigureUnblock | shbit::kDontLetPromotedFigureMove |
                               onEdge | shbit::kSaveQueenRook,
                           edge, fallback),
                   3);
    case kMinorMiniature:
      return Steps(
          Members(shbit::kAreKingsNear | shbit::kDontRecedeBlackKing | shbit::kDontLoseAnyFigures),
          2);
    case kKingOnEdge:
      return Steps(
          Members(shbit::kKeepKingOnTheEdge | shbit::kSaveQueenRook | shbit::kDontLoseAnyFigures,
                  edge, fallback),
          2);
    case kSeaSnake:
    case kGeneral:
      break;
  }
  if (nRing <= 1)
    return Steps(Members(shbit::kKeepKingOnTheEdge | shbit::kDontLoseAnyFigures, edge, fallback),
                 3);
  return Steps(Members(shbit::kDontLoseAnyFigures, EEdgeForm::kLoose, fallback), 2);
}

}  // namespace

THeuristicSet Relax(const THeuristicSet& set) {
  THeuristicSet relaxed = set;
  relaxed.bPreliminary = false;
  if (set.Has(shbit::kFindForcedMate)) {
    if (const auto wider = WiderForcedMateMode(set.forcedMateMode)) {
      relaxed.forcedMateMode = *wider;
    } else {
      // The other members of a mixture now hold from the first move on.
      relaxed.mask &= ~shbit::kFindForcedMate;
      relaxed.nForcedMateMoves = 0;
      relaxed.bCustom = false;
    }
    return relaxed;
  }
  if (set.Has(shbit::kKeepKingOnTheEdge | shbit::kKeepKingWithinExtEdge) &&
      set.edgeForm != EEdgeForm::kLoose) {
    relaxed.edgeForm = EEdgeForm::kLoose;
    return relaxed;
  }
  if (set.fallback == EFallback::kKingStays) {
    relaxed.fallback = EFallback::kKeepOnEdge;  // the king may walk along the edge
    return relaxed;
  }
  if (set.Has(shbit::kDontLoseAnyFigures) && set.nLoseFiguresLevel > 0) {
    relaxed.nLoseFiguresLevel = 0;
    return relaxed;
  }
  for (const std::uint32_t bit : kDropOrder)
    if (set.Has(bit)) {
      relaxed.mask &= ~bit;
      return relaxed;
    }
  relaxed.mask = 0;  // members the solver does not order are given up together
  return relaxed;
}

std::vector<THeuristicSet> RelaxationPath(const THeuristicSet& initial) {
  std::vector<THeuristicSet> path;
  for (THeuristicSet set = initial; set.mask != 0; set = Relax(set)) path.push_back(set);
  return path;
}

std::vector<THeuristicSet> ForcedMatePasses(const TChessboard& /*start*/, int nMoves) {
  if (nMoves < kMinMovesForHeuristics) return {};
  std::vector<THeuristicSet> passes;
  THeuristicSet preliminary;
  preliminary.mask = shbit::kFindForcedMate;
  preliminary.bPreliminary = true;
  for (const EForcedMateMode mode : {EForcedMateMode::kCheckOnly, EForcedMateMode::kMateIn1}) {
    preliminary.forcedMateMode = mode;
    passes.push_back(preliminary);
  }
  // The mixture, in place of a third preliminary run: forcing moves first, then free play
  // near the mate with the pieces kept. Every pass more would cost the others their time.
  THeuristicSet mixture;
  mixture.mask = shbit::kFindForcedMate | shbit::kDontLoseAnyFigures;
  mixture.forcedMateMode = EForcedMateMode::kMateIn1Plus;
  mixture.nForcedMateMoves = static_cast<std::uint8_t>(std::min(nMoves - kMixtureEndMoves, 255));
  passes.push_back(mixture);
  return passes;
}

std::vector<THeuristicSet> PatternPasses(const TChessboard& start, int nMoves) {
  if (nMoves < kMinMovesForHeuristics) return {};
  std::vector<THeuristicSet> passes;
  // The cage first: it is the narrower of the two, and a caged king often faces a queen.
  if (patternrules::ZugzwangCagePattern(start)) passes.push_back(Members(shbit::kZugzwang));
  if (queenmate::SingleQueenPattern(start, nMoves))
    passes.push_back(Members(shbit::kSingleQueenMate));
  return passes;
}

std::vector<THeuristicSet> AutomaticPasses(const TChessboard& start, int nMoves,
                                           bool bDynamicDlfu) {
  if (nMoves < kMinMovesForHeuristics) return {};
  std::vector<THeuristicSet> passes = PatternPasses(start, nMoves);
  for (const THeuristicSet& set : ForcedMatePasses(start, nMoves)) passes.push_back(set);
  std::vector<THeuristicSet> path = PlanFor(positionpattern::Detect(start), start);
  if (bDynamicDlfu && !path.front().Has(shbit::kDontLetFigureUnblock)) {
    // Only the strictest set: a key its blocked pieces hide is left to the sets after it.
    if (start.nPieces[kBlackQueens] > 0)
      path.front().bCannotApplyDlfuDynamically = true;  // a queen is never shut in for good
    else
      path.front().bDynamicDlfu = true;
  }
  passes.insert(passes.end(), path.begin(), path.end());
  return passes;
}

}  // namespace heuristicplan
