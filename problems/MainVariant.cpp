#include "problems/MainVariant.h"

#include <algorithm>

#include "core/Notation.h"
#include "problems/VariantLine.h"

std::vector<TVariantStep> MainVariantSteps(const TProblem& problem) {
  std::vector<TVariantStep> steps;
  if (problem.variants.empty()) return steps;
  // The moves are read into a line of our own: the problem's line belongs to its editor.
  std::vector<TChessboard> line(problem.start.ply + 1u);
  TChessboard start = problem.start;
  start.parent = nullptr;
  // Its name and the comments on its moves are no moves.
  const std::string moves = variantline::Parse(problem.variants.front()).moves;
  for (const TChessboard* p = notation::ReadMoveSequence(start, moves, line).last; p != &start;
       p = p->parent) {
    steps.push_back({.before = *p->parent, .move = p->lastMove});
    steps.back().before.parent = nullptr;
  }
  std::reverse(steps.begin(), steps.end());
  return steps;
}
