// Blanks of pasted and foreign texts: the no-break space in UTF-8 and as a lone Latin-1 byte.
#include <gtest/gtest.h>

#include <string>

#include "core/Blanks.h"

namespace {

TEST(Blanks, LoneNoBreakSpacesAreBlanksUnlessTheyContinueACharacter) {
  const std::pair<std::string, std::string> cases[] = {
      {"\xA0"
       "a\xA0",
       "a"},
      {"\xA0\xA0\xA0"
       "S. Loyd\xA0\xA0",
       "S. Loyd"},  // a run, which a save and read wore down
      {"\xC2\xA0"
       "a \xC2\xA0",
       "a"},
      {"\xC3\xA0", "\xC3\xA0"},                  // a with grave accent
      {"\xE2\x80\xA0", "\xE2\x80\xA0"},          // dagger
      {"\xF0\x9F\x82\xA0", "\xF0\x9F\x82\xA0"},  // playing card back
      {"\xE2\x80\xA0\xA0", "\xE2\x80\xA0"},      // a dagger, then a lone one
  };
  for (const auto& [text, trimmed] : cases) EXPECT_EQ(text::Trim(text), trimmed) << text;
}

}  // namespace
