#include <gtest/gtest.h>

#include <string>

#include "problems/Lexer.h"
#include "problems/ProblemFileError.h"

namespace {

// The tokens of a text, as "kind:text" separated by blanks.
std::string Tokens(const std::string& text, bool bDirectives = true) {
  CLexer lexer(text);
  lexer.SetDirectivesWanted(bDirectives);
  static const char* const kKinds[] = {"end", "W", "S", "TAGS", "T", "VARIANTS", "V", "END", "SI"};
  std::string out;
  for (TToken token = lexer.Next(); token.kind != TTokenKind::kEnd; token = lexer.Next()) {
    if (!out.empty()) out += ' ';
    out += std::string(kKinds[static_cast<int>(token.kind)]) + ":" + std::string(token.text);
  }
  return out;
}

struct TLexCase {
  const char* text;
  const char* tokens;
};

TEST(Lexer, SplitsTextIntoTokens) {
  const TLexCase cases[] = {
      {"12 #3 NoMirror THREADS 4^2 {", "W:12 S:# W:3 W:NoMirror W:THREADS W:4^2 S:{"},
      {"SH_KEYFIELD(C3),x-y:z", "W:SH_KEYFIELD S:( W:C3 S:) S:, W:x S:- W:y S:: W:z"},
      // The no-break space separates tokens both as UTF-8 and as a lone Latin-1 byte.
      {"a\xC2\xA0"
       "b\xA0"
       "c\td\r\ne",
       "W:a W:b W:c W:d W:e"},
      {"a // note\nb /* one\ntwo */ c", "W:a W:b W:c"},
      {"a/**/b", "W:a W:b"},
      {"x ż y", "W:x S:ż W:y"},
      {"//#TAGS\n//# miniature \n//#x", "TAGS:TAGS T:miniature T:x"},
      {"//!VARIANTS\n//! 1.Qa1 Kb2\r\n//!endVariants",
       "VARIANTS:VARIANTS V: 1.Qa1 Kb2 END:endVariants"},
      {"//@sortindications:  2. Qd1:d7+ \n{", "SI:2. Qd1:d7+ S:{"},
      {"//@note\n{", "S:{"},
  };
  for (const TLexCase& c : cases) EXPECT_EQ(Tokens(c.text), c.tokens) << c.text;
}

TEST(Lexer, SkipsDirectivesWhereNoneAreWanted) {
  EXPECT_EQ(Tokens("a //#TAGS\n//!x\n//@SortIndications: e4\nb", false), "W:a W:b");
}

TEST(Lexer, ChangingTheRuleRescansALookedAtToken) {
  CLexer lexer("//#tag\nword");
  EXPECT_EQ(lexer.Peek().text, "word");
  lexer.SetDirectivesWanted(true);
  EXPECT_EQ(lexer.Next().kind, TTokenKind::kTag);
  EXPECT_EQ(lexer.Next().text, "word");
}

TEST(Lexer, AtEndIgnoresCommentsAndDirectives) {
  CLexer lexer("} // last\n//#TAGS\n/* x */ \xC2\xA0\n");
  lexer.Next();
  EXPECT_TRUE(lexer.AtEnd());
}

TEST(Lexer, RestOfLineTakesRawText) {
  CLexer lexer(": 4k3/8 w - - } x\n: e2-e4 // note\n: a}b // c");
  lexer.Next();
  EXPECT_EQ(lexer.RestOfCodeLine(), " 4k3/8 w - - ");
  EXPECT_EQ(lexer.Next().text, "}");
  EXPECT_EQ(lexer.RestOfLine(), " x");
  lexer.Next();
  EXPECT_EQ(lexer.RestOfCodeLine(), " e2-e4 ");
  lexer.Next();
  EXPECT_EQ(lexer.RestOfLine(), " a}b // c");
}

TEST(Lexer, LexicalErrorsCarryTheirOffset) {
  const struct {
    const char* text;
    std::size_t offset;
    const char* error;
  } cases[] = {
      {"a / b", 2, "Unexpected lexem (slash)."},
      {"a /* b", 2, "Unexpected end of file before comment closed."},
  };
  for (const auto& c : cases) {
    CLexer lexer(c.text);
    lexer.Next();
    try {
      lexer.Next();
      ADD_FAILURE() << c.text;
    } catch (const ProblemSyntaxError& e) {
      EXPECT_EQ(e.Offset(), c.offset);
      EXPECT_STREQ(e.what(), c.error);
    }
  }
}

}  // namespace
