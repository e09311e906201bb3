#pragma once
// The texts that tell the user how a solve ended, in the language of the settings.
#include <optional>
#include <string>
#include <vector>

#include "app/SolvingRequest.h"

// "Thread solving problem 12 completed successfully.", or "... completed with error:" when
// there is an error text (which the caller shows after it), or "... completed with error."
// for a failure without a text.
std::string ThreadCompletionText(int nLanguageId, const std::string& label, bool bFailed,
                                 const std::string& sError);
// "No solution found of the problem 12" or "2 solution(s) found of the problem 12".
std::string SolutionCountText(int nLanguageId, const std::string& label, int nSolutions);
// "Engine has completed: 12" after a normal end, "Engine stopped: 12" after a stop.
std::string EngineEndText(int nLanguageId, const std::string& label, bool bStopped);
// "Thread stopped".
std::string ThreadStoppedText(int nLanguageId);

// What a pass reports when its threads could not be started, and when it threw something
// that carries no text.
std::string ThreadStartFailedText(int nLanguageId);
std::string UnknownErrorText(int nLanguageId);
// Why a session starts no further solve once it was interrupted.
std::string SolvingStoppedText(int nLanguageId);

// Every line reported when a pass ends, in the order they are shown. A pass that was stopped
// before it finished says so, and neither that it completed nor that it found no solution.
std::vector<std::string> CompletionReport(int nLanguageId, const std::string& label,
                                          const TSolvingResult& result);

// What the result box says: the no-solution report, the texts for more than one solution,
// or nothing for a single solution (its key is shown on the board instead).
std::optional<std::string> ResultBoxText(int nLanguageId, ESolvingMode mode, int nSolutions,
                                         int nMoves, bool bQuickMode, bool bSelfmate = false);

// "Engine wants to force a different number of threads (8). Do you accept it?"
std::string ForcedThreadsQuestion(int nLanguageId, unsigned nThreads);
// "Too many problems being solved at the same time."
std::string TooManySolvesText(int nLanguageId);
// Why a solve cannot start: another one is running in the session, or the problem has no
// stipulation to solve.
std::string AlreadySolvingText(int nLanguageId);
std::string OnlyMatesText(int nLanguageId);
