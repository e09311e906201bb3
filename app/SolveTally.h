#pragma once
// How the problems of a run of solves ended, problem by problem and in all: what the console
// prints at the end and what decides its exit status.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/AnswerCheck.h"
#include "app/SolvingRequest.h"

enum class EProblemEnd { Solved, NotFinished, Failed };

struct TProblemOutcome {
  EProblemEnd end = EProblemEnd::Solved;
  EAnswerCheck check = EAnswerCheck::NotRecorded;  // over all passes, when solved
};

// The outcome of a problem from its passes: failed when a pass failed, not finished when the
// solve ran out of time or a pass was stopped or never ran; a mismatch in any finished pass
// outweighs matches in the others.
TProblemOutcome ProblemOutcome(const std::vector<std::unique_ptr<SolvingRequest>>& passes,
                               bool bTimedOut);

class CSolveTally {
 public:
  void Count(const TProblemOutcome& outcome);
  // A problem that was not solved at all (a move line without a stipulation).
  void CountSkipped();

  // A solve that did not finish, failed, or found other keys than those recorded.
  bool HasFailures() const { return nNotFinished + nFailed + nMismatched > 0; }
  // "Solved 2 of 3 problems (1 not finished, 0 failed, 0 skipped); answers matched 2,
  // mismatched 0; time 0:05"
  std::string SummaryText(std::int64_t nSeconds) const;

 private:
  int nProblems = 0, nSolved = 0, nNotFinished = 0, nFailed = 0, nSkipped = 0;
  int nMatched = 0, nMismatched = 0;
};
