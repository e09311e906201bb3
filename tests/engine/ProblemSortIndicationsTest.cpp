// Which sort indications a solve of a problem hands to the search: the problem's own, the
// White moves of its main variant when asked, mirrored with the position.
#include <gtest/gtest.h>

#include <string>

#include "engine/ProblemSortIndications.h"
#include "problems/Collection.h"

namespace {

// S. Loyd 1859, #2: 1.Qh5-a5 Rd8-d5 2.Qa5:b4 is a legal line.
std::string ProblemText(const std::string& options, const std::string& directives) {
  return "1 #2" + options + "\n" + directives +
         "{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n}\n";
}

TEST(ProblemSortIndications, MainVariantFollowsTheProblemsOwnWhenAsked) {
  const std::string kVariants =
      "//!VARIANTS\n//!1.Qh5-a5 Rd8-d5 2.Qa5:b4#\n//!1.Qh5-h8 Kd4-c5\n//!ENDVARIANTS\n";
  const std::string kOwn = "//@SortIndications: ~Kg3-h4, 1. Ne3-c4\n";
  const struct {
    const char* name;
    std::string options, directives;
    bool bSetting, bMirrored;
    const char* expected;
  } cases[] = {
      {"own only", "", kVariants + kOwn, false, false, "~Kg3-h4, 1. Ne3-c4"},
      {"by the problem's flag", " UseMainVariantAsSortIndications", kVariants + kOwn, false, false,
       "~Kg3-h4, 1. Ne3-c4, 1. Qh5-a5, 2. Qa5-b4"},
      {"by the setting", "", kVariants, true, false, "1. Qh5-a5, 2. Qa5-b4"},
      {"mirrored", "", kVariants + kOwn, true, true, "~Kb3-a4, 1. Nd3-f4, 1. Qa5-h5, 2. Qh5-g4"},
      {"no variants", "", kOwn, true, false, "~Kg3-h4, 1. Ne3-c4"},
      // A variant is read as far as its moves are legal.
      {"illegal second move", "", "//!VARIANTS\n//!1.Qh5-a5 Rd8-d5 2.Qa5-h1\n//!ENDVARIANTS\n",
       true, false, "1. Qh5-a5"},
      {"a first move White cannot make", "", "//!VARIANTS\n//!1.Kd4-c5\n//!ENDVARIANTS\n", true,
       false, ""},
  };
  for (const auto& c : cases) {
    TProblemCollection collection;
    const auto error = collection.ReadText(ProblemText(c.options, c.directives), "test.cp");
    ASSERT_FALSE(error.has_value()) << c.name << ": " << error->Describe();
    const TProblem& problem = *collection.Find(1);
    EXPECT_EQ(sortindication::RenderList(sortsource::ForSolve(problem, c.bSetting, c.bMirrored)),
              c.expected)
        << c.name;
  }
}

}  // namespace
