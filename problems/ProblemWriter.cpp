#include "problems/ProblemWriter.h"

#include <algorithm>
#include <set>
#include <vector>

#include "core/Blanks.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "core/PieceLetters.h"
#include "problems/SortIndication.h"
#include "problems/TextTools.h"

namespace problemwriter {
namespace {

// Texts set through the program could hold line breaks that the reader would take apart.
std::string OneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  std::replace(text.begin(), text.end(), '\r', ' ');
  return text;
}

struct TWrittenOption {
  std::uint16_t flag;
  const char* text;
};

constexpr TWrittenOption kLeadingOptions[] = {
    {option::kNoMirror, " NoMirror"},
    {option::kMirrorOnly, " MirrorOnly"},
    {option::kAllSolutions, " AllSolutions"},
    {option::kStopOnDual, " StopOnDual"},
    {option::kStopOn3Sol, " StopOn3Sol"},
    {option::kUseMainVariantAsSortIndications, " UseMainVariantAsSortIndications"},
    {option::kGuiCheck, " GUICHECK"},
    {option::kGuiCheckBestDefence, " GUICHECKBESTDEFENCE"},
};

constexpr TWrittenOption kTrailingOptions[] = {
    {option::kSafeMode, " SAFEMODE"},
    {option::kRequiresSyzygy, " RequiresSyzygy"},
    {option::kAllSolutionsRequiresSyzygy, " AllSolutionsRequiresSyzygy"},
};

void AppendHeader(std::string& out, const TProblem& p) {
  out += std::to_string(p.id);
  out += p.stipulation.type == TStipulation::kMoveLine ? " " : " " + p.stipulation.Text();
  for (const TWrittenOption& entry : kLeadingOptions) {
    if (!p.HasFlag(entry.flag)) continue;
    out += entry.text;
    const bool bLevel =
        entry.flag == option::kGuiCheck || entry.flag == option::kGuiCheckBestDefence;
    if (bLevel && p.guiCheckLevel > 1) out += " " + std::to_string(p.guiCheckLevel);
  }
  if (p.nThreads < TProblem::kThreadsNotGiven) out += " THREADS " + std::to_string(p.nThreads);
  for (const TWrittenOption& entry : kTrailingOptions) {
    if (p.HasFlag(entry.flag)) out += entry.text;
  }
  for (const std::string& resource : p.requiredResources) out += " Requires " + resource;
  out += '\n';
}

void AppendDirectives(std::string& out, const TProblem& p) {
  // Each tag as the reader will take it back (one line, trimmed, none empty), in the order of
  // that form: tags ordered by their own text could change places on the next save.
  std::set<std::string> tagLines;
  for (const std::string& tag : p.tags)
    if (const std::string line(text::Trim(OneLine(tag))); !line.empty()) tagLines.insert(line);
  if (!tagLines.empty()) {
    out += "//#TAGS\n";
    for (const std::string& line : tagLines) out += "//#" + line + "\n";
  }
  if (!p.variants.empty()) {
    out += "//!VARIANTS\n";
    for (const std::string& variant : p.variants) out += "//!" + OneLine(variant) + "\n";
    out += "//!ENDVARIANTS\n";
  }
  if (!p.sortIndications.empty()) {
    out += "//@SortIndications: " + sortindication::RenderList(p.sortIndications) + "\n";
  }
}

// "1. e2-e4 e7-e5 2. Ng1-f3": numbered as the move-sequence reader expects.
std::string MoveLineText(const TProblem& p) {
  std::vector<const TChessboard*> boards;
  for (const TChessboard* b = p.current; b != &p.start; b = b->parent) boards.push_back(b);
  std::reverse(boards.begin(), boards.end());
  std::string text;
  int number = 1;
  const TChessboard* before = &p.start;
  for (const TChessboard* after : boards) {
    if (!text.empty()) text += ' ';
    if (before == &p.start || before->IsWhiteToMove()) text += std::to_string(number) + ". ";
    text += notation::MoveToText(*before, after->lastMove);
    if (after->IsWhiteToMove()) ++number;
    before = after;
  }
  return text;
}

// Whether the answer reader gives move back for text: a known piece letter in front, if any,
// and the same squares and promotion for the side to move.
bool ReadsBackAsAnswer(const std::string& text, TMove move, bool bWhite) {
  if (text.size() > 1 && text::IsLetter(text[1]) &&
      letters::FindTypeOfMoveLetter(text[0]) == piece::kEmpty)
    return false;
  try {
    return notation::FullDescriptionToMove(text, bWhite).SameMove(move);
  } catch (const ChessException&) {
    return false;
  }
}

void AppendBody(std::string& out, const TProblem& p) {
  out += "{\n";
  if (!p.description.empty()) out += "\tDescription: " + OneLine(p.description) + "\n";
  out += "\tFEN: " + fen::WriteShortFen(p.start) + "\n";
  if (p.HasFlag(option::kAnswerGiven)) {
    out += "\tAnswer: ";
    for (std::size_t i = 0; i < p.answer.size(); ++i) {
      if (i > 0) out += ", ";
      out += " " + AnswerText(p.start, p.answer[i]);
    }
    out += '\n';
  }
  if (p.stipulation.type == TStipulation::kMoveLine &&
      (p.current != &p.start || !p.unreadMoveLine.empty())) {
    const std::string made = MoveLineText(p);
    const char* between = made.empty() || p.unreadMoveLine.empty() ? "" : " ";
    out += "   Moves:    " + made + between + p.unreadMoveLine + "\n";
  }
  out += "}\n";
}

}  // namespace

// An answer in the long notation of the diagram ("Qd1:d8", "0-0") when that reads back as the
// same move; the diagram need not hold what the answer names (an empty d1, no king on e1, a
// castling of the other side, a promotion to a pawn), and then the squares alone are written.
std::string AnswerText(const TChessboard& start, TMove move) {
  const std::string text = notation::MoveToText(start, move);
  if (ReadsBackAsAnswer(text, move, start.IsWhiteToMove())) return text;
  std::string squares = notation::SquareToText(move.from) + "-" + notation::SquareToText(move.to);
  if (move.promotion != piece::kEmpty) squares += letters::TypeToLetter(move.promotion);
  return squares;
}

void AppendProblem(std::string& out, const TProblem& problem) {
  out += '\n';
  AppendHeader(out, problem);
  AppendDirectives(out, problem);
  AppendBody(out, problem);
}

}  // namespace problemwriter
