#include "app/SolveTally.h"

#include "app/Formatting.h"

TProblemOutcome ProblemOutcome(const std::vector<std::unique_ptr<SolvingRequest>>& passes,
                               bool bTimedOut) {
  TProblemOutcome outcome;
  if (bTimedOut) outcome.end = EProblemEnd::NotFinished;
  for (const auto& pass : passes) {
    const TSolvingResult& result = pass->result;
    if (!result.sError.empty()) {
      outcome.end = EProblemEnd::Failed;
      continue;
    }
    // A pass that never ran, or was stopped, leaves the problem unfinished.
    if (!result.bRun || result.bStopped) {
      if (outcome.end == EProblemEnd::Solved) outcome.end = EProblemEnd::NotFinished;
      continue;
    }
    const EAnswerCheck check = CheckAnswer(*pass);
    if (outcome.check != EAnswerCheck::Mismatched && check != EAnswerCheck::NotRecorded)
      outcome.check = check;
  }
  return outcome;
}

void CSolveTally::Count(const TProblemOutcome& outcome) {
  ++nProblems;
  nSolved += outcome.end == EProblemEnd::Solved ? 1 : 0;
  nNotFinished += outcome.end == EProblemEnd::NotFinished ? 1 : 0;
  nFailed += outcome.end == EProblemEnd::Failed ? 1 : 0;
  if (outcome.end != EProblemEnd::Solved) return;
  nMatched += outcome.check == EAnswerCheck::Matched ? 1 : 0;
  nMismatched += outcome.check == EAnswerCheck::Mismatched ? 1 : 0;
}

void CSolveTally::CountSkipped() {
  ++nProblems;
  ++nSkipped;
}

std::string CSolveTally::SummaryText(std::int64_t nSeconds) const {
  return "Solved " + std::to_string(nSolved) + " of " + std::to_string(nProblems) + " problems (" +
         std::to_string(nNotFinished) + " not finished, " + std::to_string(nFailed) + " failed, " +
         std::to_string(nSkipped) + " skipped); answers matched " + std::to_string(nMatched) +
         ", mismatched " + std::to_string(nMismatched) + "; time " + FormatElapsed(nSeconds);
}
