#pragma once
#include <memory>

#include "problems/DefaultClauses.h"
#include "problems/Lexer.h"
#include "problems/Problem.h"

// Reads one problem: the header "id #N" or "id s#N" (anything else: a move-line problem),
// its options and directive comments, and the braced body with description, position,
// move line and answers. Every error throws ProblemSyntaxError with its text and offset.
class CProblemReader {
 public:
  // Error texts with a translation follow the interface language.
  CProblemReader(CLexer& source, const TDefaultClauses& fileDefaults, int nLanguage)
      : lexer(source), defaults(fileDefaults), nLanguageId(nLanguage) {}

  std::unique_ptr<TProblem> Read();

 private:
  void ReadHeader(TProblem& problem);
  void ReadBody(TProblem& problem);
  void ReadMoveLine(TProblem& problem);

  CLexer& lexer;
  const TDefaultClauses& defaults;
  int nLanguageId;
};
