#pragma once
#include "problems/Lexer.h"
#include "problems/Problem.h"

namespace optionreader {

// Reads the options and directive comments of a problem header up to and including
// the opening brace of its body. Throws ProblemSyntaxError, with the texts of sort
// indications in the interface language.
void ReadUpToBody(CLexer& lexer, TProblem& problem, int nLanguageId);

}  // namespace optionreader
