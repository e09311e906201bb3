#pragma once
#include "problems/Lexer.h"
#include "problems/Problem.h"

namespace positionreader {

// Reads "FEN: ..." or "White: Ke1, ... Black: ..." into the problem's start position,
// validates it and links it to the problem's line. Throws ProblemSyntaxError; a rejected
// diagram is reported in the interface language.
void Read(CLexer& lexer, TProblem& problem, int nLanguageId);

}  // namespace positionreader
