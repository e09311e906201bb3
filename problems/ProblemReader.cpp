#include "problems/ProblemReader.h"

#include <string>

#include "core/Notation.h"
#include "problems/AnswerReader.h"
#include "problems/OptionReader.h"
#include "problems/PositionReader.h"
#include "problems/ProblemFileError.h"
#include "problems/TextTools.h"

namespace {

// Where the first move after the first nMade moves of a numbered sequence stands, or
// npos: the move-sequence reader stops silently at a refused move, and a line cut short
// would be lost when the file is written again.
std::size_t MoveAfter(std::string_view line, int nMade, bool bWhiteToMove) {
  const auto skipBlanks = [line](std::size_t i) {
    while (i < line.size() && text::BlankLength(line, i) != 0) i += text::BlankLength(line, i);
    return i;
  };
  int number = 1;
  std::size_t i = 0;
  for (int nSeen = 0;; ++nSeen) {
    i = skipBlanks(i);
    const std::string numberText = std::to_string(number) + ".";
    if (line.substr(i).starts_with(numberText)) i = skipBlanks(i + numberText.size());
    if (i >= line.size()) return std::string_view::npos;
    if (nSeen == nMade) return i;
    while (i < line.size() && text::BlankLength(line, i) == 0) ++i;
    bWhiteToMove = !bWhiteToMove;
    if (bWhiteToMove) ++number;
  }
}

}  // namespace

std::unique_ptr<TProblem> CProblemReader::Read() {
  auto problem = std::make_unique<TProblem>();
  lexer.SetDirectivesWanted(false);
  ReadHeader(*problem);
  optionreader::ReadUpToBody(lexer, *problem);
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
  positionreader::Read(lexer, problem);
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
  const std::size_t offset = static_cast<std::size_t>(line.data() - lexer.Source().data());
  try {
    problem.current = notation::ReadMoveSequence(problem.start, std::string(line));
  } catch (const ChessException& e) {
    FailAt(offset, e.what());
  }
  const int nMade = problem.start.ply - problem.current->ply;
  const std::size_t refused = MoveAfter(line, nMade, problem.start.IsWhiteToMove());
  if (refused != std::string_view::npos) {
    std::size_t end = refused;
    while (end < line.size() && text::BlankLength(line, end) == 0) ++end;
    FailAt(offset + refused,
           "Invalid move in MakeMove() : " + std::string(line.substr(refused, end - refused)));
  }
}
