#include "problems/DefaultClauses.h"

#include <vector>

#include "problems/Problem.h"
#include "problems/ProblemFileError.h"
#include "problems/TextTools.h"

namespace {

std::vector<std::string_view> SplitWords(std::string_view line) {
  std::vector<std::string_view> words;
  std::size_t i = 0;
  while (i < line.size()) {
    if (const std::size_t blank = text::BlankLength(line, i)) {
      i += blank;
      continue;
    }
    const std::size_t begin = i;
    while (i < line.size() && text::BlankLength(line, i) == 0) ++i;
    words.push_back(line.substr(begin, i - begin));
  }
  return words;
}

}  // namespace

bool TDefaultClauses::ReadClause(std::string_view source, std::size_t& pos) {
  std::size_t start = pos;
  while (start < source.size() && text::BlankLength(source, start) != 0) {
    start += text::BlankLength(source, start);
  }
  if (!text::StartsWithNoCase(source.substr(start), "//!default")) return false;
  std::size_t end = source.find('\n', start);
  if (end == std::string_view::npos) end = source.size();
  const std::vector<std::string_view> words = SplitWords(source.substr(start, end - start));
  if (words.size() != 3) FailAt(start, "Incorrect 'default' clause.");
  int nMoves = 0;
  if (!words[1].starts_with('#') || !text::ReadNumber(words[1].substr(1), nMoves) || nMoves == 0) {
    FailAt(start, "Error in 'default' clause.");
  }
  wordsByMoves[nMoves].insert(std::string(words[2]));
  pos = end;
  return true;
}

void TDefaultClauses::ApplyTo(TProblem& problem) const {
  const int type = problem.stipulation.type;
  if (type != TStipulation::kDirectMate && type != TStipulation::kSelfmate) return;
  const auto found = wordsByMoves.find(problem.stipulation.Moves());
  if (found == wordsByMoves.end()) return;
  for (const std::string& word : found->second) {
    if (!text::EqualsNoCase(word, "AllSolutions")) {
      throw ChessException("Unrecognizable option: " + word);
    }
    problem.options |= option::kAllSolutions;
  }
}
