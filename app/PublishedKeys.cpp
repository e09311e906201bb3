#include "app/PublishedKeys.h"

#include <string>

#include "app/AnswerCheck.h"
#include "core/Notation.h"

std::vector<TMove> ReadPublishedKeys(std::string_view field) {
  std::vector<TMove> keys;
  while (!field.empty()) {
    const std::size_t end = std::min(field.find_first_of(" ,"), field.size());
    if (end > 0)
      keys.push_back(notation::FullDescriptionToMove(std::string(field.substr(0, end)), true));
    field.remove_prefix(std::min(end + 1, field.size()));
  }
  return keys;
}

bool MatchesPublishedKeys(const std::vector<TMove>& found, const std::vector<TMove>& published) {
  // The published keys stand as the recorded answer of a problem solved for all its keys.
  TProblem problem;
  problem.answer = published;
  problem.options = option::kAnswerGiven;
  SolvingRequest request;
  request.pProblem = &problem;
  request.solvingMode = ESolvingMode::AllSolutions;
  request.result.keys = found;
  return CheckAnswer(request) == EAnswerCheck::Matched;
}
