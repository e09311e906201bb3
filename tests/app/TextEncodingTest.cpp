#include <gtest/gtest.h>

#include "app/TextEncoding.h"

namespace {

// What the settings file reader does with text that is not clean UTF-8 or UTF-16.
TEST(TextEncoding, FlawedTextsSurviveOrBecomeReplacementCharacters) {
  struct TCase {
    std::string bytes;
    ETextEncoding encoding;
    std::string utf8;
    std::string writtenBack;
  };
  const std::string replacement = "\xEF\xBF\xBD";
  const TCase cases[] = {
      // a lone half of a surrogate pair, in either byte order, goes back as it came
      {std::string("\xFF\xFE"
                   "a\0\x00\xD8"
                   "b\0",
                   6 + 2),
       ETextEncoding::Utf16LittleEndian,
       "a\xED\xA0\x80"
       "b",
       std::string("\xFF\xFE"
                   "a\0\x00\xD8"
                   "b\0",
                   8)},
      {std::string("\xFE\xFF\xDC\x00\0a", 6), ETextEncoding::Utf16BigEndian,
       "\xED\xB0\x80"
       "a",
       std::string("\xFE\xFF\xDC\x00\0a", 6)},
      // a pair makes one code point of four bytes
      {std::string("\xFF\xFE\x34\xD8\x1E\xDD", 6), ETextEncoding::Utf16LittleEndian,
       "\xF0\x9D\x84\x9E", std::string("\xFF\xFE\x34\xD8\x1E\xDD", 6)},
      // an odd last byte cannot be a unit
      {std::string("\xFF\xFE"
                   "a\0b",
                   5),
       ETextEncoding::Utf16LittleEndian, "a" + replacement,
       std::string("\xFF\xFE"
                   "a\0\xFD\xFF",
                   6)},
      // no mark: UTF-8 as it stands, bytes that are not UTF-8 included
      {"a\x80z", ETextEncoding::Utf8, "a\x80z", "a\x80z"},
      {"\xEF\xBB\xBFk=1", ETextEncoding::Utf8WithBom, "k=1", "\xEF\xBB\xBFk=1"},
      {"", ETextEncoding::Utf8, "", ""},
  };
  for (const TCase& c : cases) {
    const TDecodedText decoded = DecodeText(c.bytes);
    EXPECT_EQ(decoded.encoding, c.encoding) << c.utf8;
    EXPECT_EQ(decoded.utf8, c.utf8);
    EXPECT_EQ(EncodeText(decoded.utf8, decoded.encoding), c.writtenBack) << c.utf8;
  }
}

TEST(TextEncoding, BytesThatAreNotUtf8BecomeReplacementCharactersInUtf16) {
  const std::pair<std::string, std::string> cases[] = {
      {"a\x80z", std::string("\xFF\xFE"
                             "a\0\xFD\xFFz\0",
                             8)},                    // a stray continuation
      {"\xC5", std::string("\xFF\xFE\xFD\xFF", 4)},  // cut short
      {"\xC5"
       "a",
       std::string("\xFF\xFE\xFD\xFF"
                   "a\0",
                   6)},                                          // broken off
      {"\xF7\xBF\xBF\xBF", std::string("\xFF\xFE\xFD\xFF", 4)},  // beyond U+10FFFF
      {"\xC5\x81", std::string("\xFF\xFE\x41\x01", 4)},          // Ł
  };
  for (const auto& [utf8, utf16] : cases)
    EXPECT_EQ(EncodeText(utf8, ETextEncoding::Utf16LittleEndian), utf16) << utf8;
}

}  // namespace
