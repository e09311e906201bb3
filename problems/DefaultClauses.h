#pragma once
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>

struct TProblem;

// Options that a file gives every problem of a length, from lines such as
// "//!default #3 AllSolutions" before its first problem.
struct TDefaultClauses {
  std::map<int, std::set<std::string>> wordsByMoves;

  // Reads one clause line at pos (blanks before it are skipped) and moves pos behind it.
  // False, with pos unchanged, when the text there is no clause. Throws ProblemSyntaxError
  // with "Incorrect 'default' clause." or "Error in 'default' clause.".
  bool ReadClause(std::string_view source, std::size_t& pos);
  // Applies the words registered for the problem's length to a mate or selfmate.
  // Throws ChessException "Unrecognizable option: " for a word other than AllSolutions.
  void ApplyTo(TProblem& problem) const;
};
