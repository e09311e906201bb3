#include "app/AnswerCheck.h"

#include <algorithm>

#include "core/BoardTransforms.h"

namespace {

bool Holds(const std::vector<TMove>& moves, TMove move) {
  return std::any_of(moves.begin(), moves.end(), [move](TMove m) { return m.SameMove(move); });
}

bool HoldsAll(const std::vector<TMove>& moves, const std::vector<TMove>& wanted) {
  return std::all_of(wanted.begin(), wanted.end(), [&moves](TMove m) { return Holds(moves, m); });
}

}  // namespace

EAnswerCheck CheckAnswer(const SolvingRequest& request) {
  const TProblem& problem = *request.pProblem;
  if (!problem.HasFlag(option::kAnswerGiven)) return EAnswerCheck::NotRecorded;
  std::vector<TMove> found = request.result.keys;
  if (request.nMirrorPass == 1)
    for (TMove& key : found) {
      key.from = transforms::MirrorSquare(key.from);
      key.to = transforms::MirrorSquare(key.to);
    }
  const int nLimit = MaxSolutions(request.solvingMode);
  const bool bExhaustive = nLimit == 0 || static_cast<int>(found.size()) < nLimit;
  const bool bMatched =
      HoldsAll(problem.answer, found) && (!bExhaustive || HoldsAll(found, problem.answer));
  return bMatched ? EAnswerCheck::Matched : EAnswerCheck::Mismatched;
}
