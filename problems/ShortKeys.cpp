#include "problems/ShortKeys.h"

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "core/ShortAlgebraic.h"
#include "problems/ProblemFileError.h"

namespace shortkeys {

std::string Write(const TProblem& problem, std::vector<std::string>& warnings) {
  std::string keys;
  for (const TMove& key : problem.answer) {
    TMove legal;
    TChessboard child;
    if (!movegen::FindPieceMove(problem.start, key, &legal) ||
        !movemaking::MakeSuccessor(problem.start, legal, child)) {
      warnings.push_back("problem " + std::to_string(problem.id) +
                         ": a key that is not a move of the position is left out");
      continue;
    }
    keys += " " + shortalgebraic::MoveToText(problem.start, legal);
  }
  return keys;
}

void Read(const std::vector<std::string>& keys, std::size_t offset, TProblem& problem) {
  for (const std::string& key : keys) {
    const auto move = shortalgebraic::TextToMove(problem.start, key);
    if (!move) FailAt(offset, "Not a legal move of the position: " + key);
    problem.answer.push_back(*move);
  }
  problem.options |= option::kAnswerGiven;
}

}  // namespace shortkeys
