#pragma once
#include <string>

#include "problems/Problem.h"

// The canonical text of problems: a fixed order of options and sections. Options that
// only tune one solving run (NOGLOBREG, GLOBREGMB, SCHEDULERLEVELS, LICHESSLEVELS,
// STOPRELAXHEURISTICSONFIRSTSOLUTION, ALLSOLUTIONSREQUIRES, the second-level thread
// count, heuristic settings, expected sorted white moves) are not written back.
namespace problemwriter {

// The first lines of every file written.
constexpr const char* kFileHeader = "UTF-8\n\n";

// An answer move in the long notation of the start position ("Qd1:d8", "0-0"), or its squares
// alone ("d1-d8") when the diagram does not hold what the move names.
std::string AnswerText(const TChessboard& start, TMove move);

// Appends one problem, beginning with an empty line.
void AppendProblem(std::string& out, const TProblem& problem);

}  // namespace problemwriter
