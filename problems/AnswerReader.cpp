#include "problems/AnswerReader.h"

#include <string>

#include "core/Notation.h"
#include "core/PieceLetters.h"
#include "problems/ProblemFileError.h"
#include "problems/TextTools.h"

namespace answerreader {
namespace {

enum class TSection { kNone, kAnswer, kSortedMoves, kSortedMovesOnly };

TSection SectionOf(const TToken& token) {
  if (token.IsWord({"SOLUTION", "ANSWER", "A"})) return TSection::kAnswer;
  if (token.IsWord({"EXPECTEDSORTWHITEMOVES", "SWM"})) return TSection::kSortedMoves;
  if (token.IsWord({"EXPECTEDSORTWHITEMOVESONLY"})) return TSection::kSortedMovesOnly;
  return TSection::kNone;
}

bool EndsList(const TToken& token) {
  return token.IsSymbol('}') || SectionOf(token) != TSection::kNone || token.IsWord({"MOVES"});
}

bool IsSquareAt(std::string_view s, std::size_t at) {
  return s.size() >= at + 2 && text::ReadSquare(s[at], s[at + 1]) != square::kNone;
}

// "e7", "Rg6", or the "0" of castling.
bool IsFromElement(std::string_view s) {
  if (s == "0" || (s.size() == 2 && IsSquareAt(s, 0))) return true;
  return s.size() == 3 && letters::FindTypeOfMoveLetter(s[0]) != piece::kEmpty && IsSquareAt(s, 1);
}

// "e6", "e8Q", or the "0" of castling.
bool IsToElement(std::string_view s) {
  if (s == "0" || (s.size() == 2 && IsSquareAt(s, 0))) return true;
  return s.size() == 3 && IsSquareAt(s, 0) && letters::FindTypeOfMoveLetter(s[2]) != piece::kEmpty;
}

std::string ReadElement(CLexer& lexer, bool bFrom) {
  const TToken token = lexer.NextRequired();
  if (token.kind != TTokenKind::kWord ||
      !(bFrom ? IsFromElement(token.text) : IsToElement(token.text))) {
    FailAt(token.offset, std::string(bFrom ? "Invalid correct answer ('from' element): "
                                           : "Invalid correct answer ('to' element): ") +
                             std::string(token.raw));
  }
  return std::string(token.text);
}

TMove ReadMove(CLexer& lexer, bool bWhite) {
  const std::size_t offset = lexer.Peek().offset;
  std::string move = ReadElement(lexer, true);
  const TToken separator = lexer.NextRequired();
  if (!separator.IsSymbol('-') && !separator.IsSymbol(':')) {
    FailAt(separator.offset, "Hyphen expected to separate correct answer elements");
  }
  move += separator.text.front() + ReadElement(lexer, false);
  if (move == "0-0" && lexer.Accept('-')) move += "-" + ReadElement(lexer, false);
  try {
    return notation::FullDescriptionToMove(move, bWhite);
  } catch (const std::exception&) {
    FailAt(offset, "Invalid correct answer: " + move);
  }
}

}  // namespace

bool IsSectionKeyword(const TToken& token) {
  return SectionOf(token) != TSection::kNone;
}

void ReadSection(CLexer& lexer, TProblem& problem, const TToken& keyword) {
  const TSection section = SectionOf(keyword);
  const TToken colon = lexer.NextRequired();
  if (!colon.IsSymbol(':')) FailAt(colon.offset, "Colon expected after correct answer identifier.");
  std::vector<TMove>& moves =
      section == TSection::kAnswer ? problem.answer : problem.expectedSortedWhiteMoves;
  if (section == TSection::kAnswer) {
    problem.options |= option::kAnswerGiven;
  } else {
    problem.options |= option::kExpectedSortWhiteMoves;
  }
  if (section == TSection::kSortedMovesOnly) {
    problem.options |= option::kExpectedSortWhiteMovesOnly;
    problem.bExpectedSortedWhiteMovesOnly = true;
  }
  if (EndsList(lexer.Peek())) return;
  const bool bWhite = problem.start.IsWhiteToMove();
  for (;;) {
    moves.push_back(ReadMove(lexer, bWhite));
    if (EndsList(lexer.Peek())) return;
    const TToken next = lexer.NextRequired();
    if (!next.IsSymbol(',')) {
      FailAt(next.offset,
             "Comma should separate various solutions of the problem, but encountered: " +
                 std::string(next.raw));
    }
  }
}

}  // namespace answerreader
