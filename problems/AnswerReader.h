#pragma once
#include "problems/Lexer.h"
#include "problems/Problem.h"

namespace answerreader {

// Whether the word opens a list of moves (SOLUTION, ANSWER, A, SWM and the like).
bool IsSectionKeyword(const TToken& token);
// Reads the list that follows a section keyword: a colon, then moves in the long
// notation ("Rg6-e6", "e4:d5", "e7-e8Q", "0-0") separated by commas, for the side to
// move in the start position. Sets the option bits of the section. Throws ProblemSyntaxError.
void ReadSection(CLexer& lexer, TProblem& problem, const TToken& keyword);

}  // namespace answerreader
