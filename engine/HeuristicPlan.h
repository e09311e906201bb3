#pragma once
#include <vector>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"

// Which heuristic passes a solve runs, before the pass without heuristics.
namespace heuristicplan {

// The time of each pass under heuristics in the first round of a solve for users (see
// CPassSchedule): short enough that problems the exact search solves in a second or two
// hardly wait, the time doubling from round to round for the long ones.
inline constexpr int kFirstPassMs = 100;

// Below this many moves the exact search is quick enough: no pass under heuristics.
inline constexpr int kMinMovesForHeuristics = 6;

// The moves at the end of a forced-mate mixture that are free of SH_FINDFORCEDMATE: the
// quiet moves of a long mate come mostly just before it.
inline constexpr int kMixtureEndMoves = 2;

// The forced-mate passes: preliminary runs over the whole solution (checks, then threats of
// mate in one), then the mixture, in which White's moves up to kMixtureEndMoves before the
// end must check, capture, promote or threaten mate in one, and the last ones are free with
// White's pieces kept.
std::vector<THeuristicSet> ForcedMatePasses(const TChessboard& start, int nMoves);

// The passes of the narrow patterns that one restriction solves on its own, tried before
// all others since a miss costs little: a lone white queen against pieces tied to their
// squares (SH_SINGLEQUEENMATE), a black king caged with its pawns (SH_ZUGZWANG).
std::vector<THeuristicSet> PatternPasses(const TChessboard& start, int nMoves);

// The passes chosen from the position: first the forced-mate runs (checks, then threats
// too, then captures and promotions as well), then the few sets that suit the type of the
// start position (see EPositionPattern), mostly the first steps of one relaxation path.
// bDynamicDlfu: the strictest of them holds black pieces once their king has shut them in
// (SH_DONTLETFIGUREUNBLOCK set during the analysis). None below kMinMovesForHeuristics.
std::vector<THeuristicSet> AutomaticPasses(const TChessboard& start, int nMoves,
                                           bool bDynamicDlfu = true);

// The next, less restricted set: a forced-mate mode widens (CheckOnly, #1, #1+, #2+, #3, #4,
// #5, #2 going to #2+; after #5 the member goes, and a mixture's other members then hold
// from the first move), a strict edge form loosens, a fallback to a standing king becomes
// one to the edge line, otherwise the member that restricts most goes. The empty set after
// the last member.
THeuristicSet Relax(const THeuristicSet& set);
// initial and every relaxation of it before the empty set (at most a few dozen passes).
std::vector<THeuristicSet> RelaxationPath(const THeuristicSet& initial);

}  // namespace heuristicplan
