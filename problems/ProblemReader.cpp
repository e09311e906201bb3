#include "problems/ProblemReader.h"

#include <string>

#include "core/Notation.h"
#include "problems/AnswerReader.h"
#include "problems/OptionReader.h"
#include "problems/PositionReader.h"
#include "problems/ProblemFileError.h"
#include "problems/TextTools.h"

std::unique_ptr<TProblem> CProblemReader::Read() {
  auto problem = std::make_unique<TProblem>();
  lexer.SetDirectivesWanted(false);
  ReadHeader(*problem);
  optionreader::ReadUpToBody(lexer, *problem, nLanguageId);
  lexer.SetDirectivesWanted(false);
  ReadBody(*problem);
  return problem;
}

void CProblemReader::ReadHeader(TProblem& problem) {
  const TToken id = lexer.NextWord();
  problem.id = NumberIn(id, id.text, 0, 0x7FFFFFFF);
  // Directives belong to the header from here on up to the body.
  lexer.SetDirectivesWanted(true);
  TStipulation stipulation = TStipulation::MoveLine();
  const TToken next = lexer.Peek();
  if (next.IsSymbol('#')) {
    lexer.Next();
    stipulation = TStipulation::DirectMate(lexer.NextNumber(1, TStipulation::kMaxMoves));
  } else if (next.IsWord({"s"})) {
    lexer.Next();
    const TToken hash = lexer.NextRequired();
    if (!hash.IsSymbol('#')) {
      FailAt(next.offset, "Opening bracket expected { or unrecognized option encountered: " +
                              std::string(next.text));
    }
    stipulation = TStipulation::Selfmate(lexer.NextNumber(1, TStipulation::kMaxMoves));
  }
  problem.SetStipulation(stipulation);
  try {
    defaults.ApplyTo(problem);
  } catch (const ChessException& e) {
    FailAt(id.offset, e.what());
  }
}

void CProblemReader::ReadBody(TProblem& problem) {
  if (lexer.Peek().IsWord({"DESC", "DESCRIPTION"})) {
    lexer.Next();
    const TToken colon = lexer.NextRequired();
    if (!colon.IsSymbol(':')) {
      FailAt(colon.offset, "Colon ':' expected after description identifier.");
    }
    problem.description = text::Trim(lexer.RestOfLine());
  }
  positionreader::Read(lexer, problem, nLanguageId);
  for (;;) {
    const TToken token = lexer.NextRequired();
    if (token.IsSymbol('}')) return;
    if (token.IsWord({"MOVES"})) {
      ReadMoveLine(problem);
    } else if (answerreader::IsSectionKeyword(token)) {
      answerreader::ReadSection(lexer, problem, token);
    } else {
      FailAt(token.offset, "Closing bracket expected.");
    }
  }
}

void CProblemReader::ReadMoveLine(TProblem& problem) {
  const TToken colon = lexer.NextRequired();
  if (!colon.IsSymbol(':')) FailAt(colon.offset, "Colon expected after Moves section start.");
  const std::string_view line = text::Trim(lexer.RestOfCodeLine());
  const notation::TMoveSequenceEnd end =
      notation::ReadMoveSequence(problem.start, line, problem.Line());
  // A line that stops early keeps the position it reached; what it could not make is kept
  // so that writing the problem back loses nothing.
  problem.current = end.last;
  problem.unreadMoveLine = end.rest;
}
