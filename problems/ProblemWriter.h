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

// Appends one problem, beginning with an empty line.
void AppendProblem(std::string& out, const TProblem& problem);

}  // namespace problemwriter
