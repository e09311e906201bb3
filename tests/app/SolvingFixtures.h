#pragma once
// Problems of the reference data for the solving tests, and move texts to compare keys by.
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "TestData.h"
#include "app/FenProblem.h"
#include "core/Notation.h"

inline testdata::TRow ReferenceRow(const std::string& file, const std::string& rowId) {
  for (const testdata::TRow& row : testdata::ReadTsv(file))
    if (row.at("id") == rowId) return row;
  throw std::runtime_error("no reference row " + rowId);
}

// The direct mate of a reference row, with the given problem options.
inline std::unique_ptr<TProblem> ReferenceProblem(const std::string& file, const std::string& rowId,
                                                  std::uint16_t options = 0, int problemId = 1) {
  const testdata::TRow row = ReferenceRow(file, rowId);
  auto problem = DirectMateFromFen(row.at("fen"), std::stoi(row.at("n")), problemId);
  problem->options = options;
  return problem;
}

inline std::string ReferenceProblemFen(const std::string& file, const std::string& rowId) {
  return ReferenceRow(file, rowId).at("fen");
}

// The published keys of a reference row, in the order given.
inline std::vector<std::string> ReferenceKeys(const std::string& file, const std::string& rowId) {
  return testdata::Split(ReferenceRow(file, rowId).at("keys"), " ,");
}

inline TMove MoveOf(const std::string& text) {
  return notation::FullDescriptionToMove(text, true);
}
