#pragma once
// Reading problem texts in tests: the single problem of a text, or the error it gives.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "problems/Collection.h"

namespace problemtest {

// Two kings and a white rook: a legal position for a mate problem.
inline constexpr const char* kFen = "4k3/8/8/8/8/8/8/R3K3";

inline std::string Body(const std::string& inside = "") {
  return std::string("{\n\tFEN: ") + kFen + "\n" + inside + "}\n";
}

// Reads text that must hold exactly one good problem.
inline const TProblem& ReadOne(TProblemCollection& collection, const std::string& text) {
  const auto error = collection.ReadText(text, "test.cp");
  EXPECT_FALSE(error.has_value()) << (error ? error->Describe() : "") << "\n" << text;
  EXPECT_EQ(collection.Size(), 1u) << text;
  static TProblem empty;
  return collection.Empty() ? empty : *collection.Problems().begin()->second;
}

// The error a text gives, as "line:column: text" (empty when it reads well).
inline std::string ErrorOf(const std::string& text) {
  TProblemCollection collection;
  const auto error = collection.ReadText(text, "f");
  return error ? error->Describe().substr(2) : "";
}

}  // namespace problemtest
