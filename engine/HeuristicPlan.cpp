#include "engine/HeuristicPlan.h"

#include <algorithm>

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

int Ring(SquareIndex s) {
  const int file = square::File(s), rank = square::Rank(s);
  return std::min({file, 7 - file, rank, 7 - rank});
}

}  // namespace

THeuristicSet Relax(const THeuristicSet& set) {
  THeuristicSet relaxed = set;
  relaxed.bPreliminary = false;
  if (set.Has(shbit::kFindForcedMate)) {
    if (set.forcedMateMode == EForcedMateMode::kCheckOnly)
      relaxed.forcedMateMode = EForcedMateMode::kMateIn1;
    else if (set.forcedMateMode == EForcedMateMode::kMateIn1)
      relaxed.forcedMateMode = EForcedMateMode::kMateIn1Plus;
    else
      relaxed.mask &= ~shbit::kFindForcedMate;
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

std::vector<THeuristicSet> AutomaticPasses(const TChessboard& start, int nMoves) {
  if (nMoves < kMinMovesForHeuristics) return {};
  THeuristicSet forced;
  forced.mask = shbit::kFindForcedMate;
  std::vector<THeuristicSet> passes = RelaxationPath(forced);
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
