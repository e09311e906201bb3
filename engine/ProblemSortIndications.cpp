#include "engine/ProblemSortIndications.h"

#include <algorithm>
#include <vector>

#include "core/BoardTransforms.h"
#include "core/Notation.h"

namespace sortsource {

TSortIndications MainVariant(const TProblem& problem) {
  TSortIndications indications;
  if (problem.variants.empty()) return indications;
  // The moves are read into a line of our own: the problem's line belongs to its editor.
  std::vector<TChessboard> line(problem.start.ply + 1u);
  TChessboard start = problem.start;
  start.parent = nullptr;
  start.line = line.data();
  std::vector<const TChessboard*> reached;
  for (const TChessboard* p = notation::ReadMoveSequence(start, problem.variants.front());
       p != &start; p = p->parent)
    reached.push_back(p);
  std::reverse(reached.begin(), reached.end());
  std::uint16_t moveNumber = 0;
  for (const TChessboard* after : reached) {
    const TChessboard& before = *after->parent;
    if (!before.IsWhiteToMove()) continue;
    TSortIndication element;
    element.moveNumber = ++moveNumber;
    element.piece = before.squares[after->lastMove.from];
    element.from = after->lastMove.from;
    element.to = after->lastMove.to;
    element.promotion = piece::TypeOf(after->lastMove.promotion);
    indications[element.moveNumber].push_back(element);
  }
  return indications;
}

TSortIndications ForSolve(const TProblem& problem, bool bUseMainVariant, bool bMirrored) {
  TSortIndications indications = problem.sortIndications;
  if (bUseMainVariant || problem.HasFlag(option::kUseMainVariantAsSortIndications)) {
    for (auto& [number, elements] : MainVariant(problem)) {
      auto& list = indications[number];
      list.insert(list.end(), elements.begin(), elements.end());
    }
  }
  if (bMirrored) {
    for (auto& [number, elements] : indications) {
      for (TSortIndication& element : elements) {
        element.from = transforms::MirrorSquare(element.from);
        element.to = transforms::MirrorSquare(element.to);
      }
    }
  }
  return indications;
}

}  // namespace sortsource
