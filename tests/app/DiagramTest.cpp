// Diagrams hold what the problem holds: every piece on its square in its colour, the
// stipulation with the piece counts, the source, and text that cannot break the markup.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <regex>

#include "app/Diagram.h"
#include "problems/Collection.h"

namespace {

using ::testing::HasSubstr;

std::unique_ptr<TProblemCollection> ReadProblem(const std::string& body) {
  auto collection = std::make_unique<TProblemCollection>();
  const auto error = collection->ReadText("1 #3\n{\n" + body + "}\n", "d.cp");
  EXPECT_FALSE(error) << error->Describe();
  return collection;
}

int Count(const std::string& text, const std::string& pattern) {
  const std::regex re(pattern);
  return static_cast<int>(
      std::distance(std::sregex_iterator(text.begin(), text.end(), re), std::sregex_iterator()));
}

TEST(Diagram, SvgDrawsEveryPieceInItsColourAndEscapesTheSource) {
  const auto collection = ReadProblem(
      "\tDescription: A & B <Die Schwalbe> \"1950\"\n\tFEN: "
      "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n");
  const std::string svg = diagram::Svg(*collection->Find(1));
  EXPECT_EQ(Count(svg, "fill=\"white\" stroke=\"black\""), 6);
  EXPECT_EQ(Count(svg, "fill=\"black\" stroke=\"#3c3c3c\""), 10);
  EXPECT_EQ(Count(svg, "fill=\"#b9b9b9\""), 32);
  // The white queen on h5: the last file, the fourth rank from the top.
  EXPECT_THAT(svg, HasSubstr("<text x=\"384\" y=\"194\" fill=\"white\" stroke=\"black\" "
                             "stroke-width=\"1.2\">&#x265B;</text>"));
  EXPECT_THAT(svg, HasSubstr("A &amp; B &lt;Die Schwalbe&gt; &quot;1950&quot;"));
  EXPECT_THAT(svg, HasSubstr(">#3 (6+10)</text>"));
  EXPECT_EQ(Count(svg, "<svg"), 1);
  EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
}

TEST(Diagram, LatexListsKingsFirstInGermanLettersWithTheKeys) {
  const auto collection = ReadProblem(
      "\tDescription: 100% #1 {draft} S_K\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n"
      "\tAnswer:  Qh5-a5, Qh5-h4\n");
  const std::string latex = diagram::Latex(*collection->Find(1));
  EXPECT_THAT(latex, HasSubstr("\\source{100\\% \\#1 \\{draft\\} S\\_K}\n"));
  EXPECT_THAT(latex, HasSubstr("\\pieces[6+10]{wKg3, wBd2, wBb3, wSe3, wBf4, wDh5, sKd4, sBd3, "
                               "sBb4, sBe4, sBg4, sBa6, sLc8, sTd8, sTe8, sLf8}\n"));
  EXPECT_THAT(latex, HasSubstr("\\stip{\\#3}\n"));
  EXPECT_THAT(latex, HasSubstr("\\sol{1.Qh5-a5!, 1.Qh5-h4!}\n"));
  EXPECT_THAT(diagram::Latex(*ReadProblem("\tFEN: 4k3/8/8/8/8/8/8/R3K3\n")->Find(1)),
              testing::Not(HasSubstr("\\sol")));
}

}  // namespace
