#include <gtest/gtest.h>

#include <string>

#include "problems/TextTools.h"

namespace {

// Where a text stops being UTF-8: bytes of other encodings, cut characters and the forms
// that UTF-8 forbids (overlong, surrogates, beyond U+10FFFF).
TEST(TextTools, FirstNonUtf8FindsTheFirstMalformedByte) {
  constexpr std::size_t kNone = std::string::npos;
  const struct {
    std::string text;
    std::size_t nExpected;
  } cases[] = {
      {"", kNone},
      {"Ke1 \xC5\xBC \xE2\x80\x94 \xF0\x9F\x98\x80", kNone},  // ż, a dash, an emoji
      {"Wr\xF3\xBF", 2},                                      // Latin-2 ó
      {"ab\xC5", 2},                                          // cut at the end
      {"a\xC5z", 1},                                          // no continuation
      {"\xC0\xAF", 0},                                        // overlong slash
      {"x\xE0\x80\xAF", 1},                                   // overlong three bytes
      {"\xED\xA0\x80", 0},                                    // a surrogate
      {"\xF4\x90\x80\x80", 0},                                // beyond U+10FFFF
      {"\x80", 0},                                            // a lone continuation
  };
  for (const auto& c : cases) EXPECT_EQ(text::FirstNonUtf8(c.text), c.nExpected) << c.text;
}

}  // namespace
