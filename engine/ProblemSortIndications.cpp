#include "engine/ProblemSortIndications.h"

#include "core/BoardTransforms.h"
#include "problems/MainVariant.h"

namespace sortsource {

TSortIndications MainVariant(const TProblem& problem) {
  TSortIndications indications;
  std::uint16_t moveNumber = 0;
  for (const TVariantStep& step : MainVariantSteps(problem)) {
    if (!step.before.IsWhiteToMove()) continue;
    TSortIndication element;
    element.moveNumber = ++moveNumber;
    element.piece = step.before.squares[step.move.from];
    element.from = step.move.from;
    element.to = step.move.to;
    element.promotion = piece::TypeOf(step.move.promotion);
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
