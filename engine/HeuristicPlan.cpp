#include "engine/HeuristicPlan.h"

#include <algorithm>
#include <optional>

namespace heuristicplan {
namespace {

// The members in the order they are given up: those that restrict most go first.
constexpr std::uint32_t kDropOrder[] = {shbit::kDontLetKingMove,
                                        shbit::kDontLetFigureUnblock,
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
                                        shbit::kDontLeaveMainDiagonal,
                                        shbit::kDontLetBlackQueenCheckTwice,
                                        shbit::kDontLetPromotedQueenMove,
                                        shbit::kDontLetPromotedFigureMove,
                                        shbit::kKeepKingOnTheEdge,
                                        shbit::kKeepKingWithinExtEdge,
                                        shbit::kDontLoseAnyFigures,
                                        shbit::kSaveQueenRook};

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

std::vector<THeuristicSet> AutomaticPasses(const TChessboard& start, int nMoves) {
  if (nMoves < kMinMovesForHeuristics) return {};
  std::vector<THeuristicSet> passes = ForcedMatePasses(start, nMoves);
  if (Ring(start.BlackKing()) <= 1) {
    // A king held at the edge, pieces kept: the usual frame of a long mate.
    THeuristicSet edge;
    edge.mask = shbit::kKeepKingOnTheEdge | shbit::kDontLoseAnyFigures;
    edge.edgeForm = Ring(start.BlackKing()) == 0 ? EEdgeForm::kStrict : EEdgeForm::kLoose;
    for (const THeuristicSet& set : RelaxationPath(edge)) passes.push_back(set);
  }
  return passes;
}

}  // namespace heuristicplan
