#pragma once
// The whole solution of a solved direct mate, as text for people and as JSON for programs.
#include <stop_token>
#include <string>
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"
#include "engine/SolutionTree.h"

// White moves listed at most per tree: the branches beyond are cut (the main variation
// always stays whole).
inline constexpr int kSolutionTreeLimit = 10'000;

// The trees of the keys found for start (White to move, mate in nMoves), built over a
// register of their own. Throws ChessException when a key does not mate in time, or when a
// stop is requested through stop.
std::vector<TSolutionMove> BuildSolutionTrees(const TChessboard& start, int nMoves,
                                              const std::vector<TMove>& keys,
                                              int nMaxWhiteMoves = kSolutionTreeLimit,
                                              std::stop_token stop = {});

// "Main variation: 1. Ra5-a7 Kc8-b8 2. Ra7-a8#", then the tree one move a line, each half-move
// indented two blanks further: "1. Ra5-a7 (#2)", "  1... Kc8-b8 (best)", "    2. Ra7-a8#".
std::vector<std::string> SolutionTreeLines(const TSolutionMove& tree);

// {"problem":12,"moves":2,"solutions":[{"key":..,"mainVariation":[..],"tree":{..}}]} on one
// line; a tree node is {"move":"Ra5-a7","mateIn":2,"defences":[{"move":..,"best":true,
// "answer":{..}}]}, with "cut":true where its defences are left out.
std::string SolutionTreesJson(int nProblem, int nMoves, const std::vector<TSolutionMove>& trees);
