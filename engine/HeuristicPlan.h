#pragma once
#include <vector>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"

// Which heuristic passes a solve runs, before the pass without heuristics.
namespace heuristicplan {

// The time of the first pass under heuristics in a solve for users; each further one has
// twice the time of the one before, up to kMaxPassMs: most passes end well before, and the
// pass without heuristics must not wait long behind those that do not.
inline constexpr int kFirstPassMs = 250;
inline constexpr int kMaxPassMs = 2000;

// Below this many moves the exact search is quick enough: no pass under heuristics.
inline constexpr int kMinMovesForHeuristics = 6;

// The passes chosen from the position: first the forced-mate runs (checks, then threats
// too, then captures and promotions as well), then a run that keeps the black king where
// it stands when it stands on or next to the edge. None below kMinMovesForHeuristics.
std::vector<THeuristicSet> AutomaticPasses(const TChessboard& start, int nMoves);

// The next, less restricted set: a forced-mate mode widens, a strict edge form loosens,
// otherwise the member that restricts most goes. The empty set after the last member.
THeuristicSet Relax(const THeuristicSet& set);
// initial and every relaxation of it before the empty set (at most a few dozen passes).
std::vector<THeuristicSet> RelaxationPath(const THeuristicSet& initial);

}  // namespace heuristicplan
