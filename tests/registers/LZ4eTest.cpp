#include <gtest/gtest.h>

#include <algorithm>

#include "CodecTestData.h"
#include "registers/LZ4e.h"

namespace {

using codectest::Concatenate;
using codectest::RandomBytes;
using codectest::TBytes;

TBytes Compress(const TBytes& input) {
  TBytes block;
  EXPECT_TRUE(CompressLZ4e(input.data(), input.size(), block));
  return block;
}

TBytes Header(std::uint32_t nInput, std::uint32_t nBlock) {
  TBytes header = {'L', 'Z', '4', 'e'};
  for (std::uint32_t value : {nInput, nBlock, 0u}) {
    for (int i = 0; i < 4; ++i) header.push_back(static_cast<unsigned char>(value >> (8 * i)));
  }
  return header;
}

TBytes Ascending(std::size_t n) {
  TBytes bytes(n);
  for (std::size_t i = 0; i < n; ++i) bytes[i] = static_cast<unsigned char>(i);
  return bytes;
}

// Blocks small enough to write out whole.
TEST(LZ4e, SmallBlocksAreLaidOutByteForByte) {
  struct TCase {
    const char* name;
    TBytes input, sequences;
  };
  const TBytes abcd = {'a', 'b', 'c', 'd'};
  const TCase cases[] = {
      {"empty input", {}, {0x00}},
      {"one literal", {7}, {0x10, 7}},
      {"14 literals", Ascending(14), Concatenate({{0xE0}, Ascending(14)})},
      {"15 literals", Ascending(15), Concatenate({{0xF0, 0x00}, Ascending(15)})},
      {"16 literals", Ascending(16), Concatenate({{0xF0, 0x01}, Ascending(16)})},
      {"a match of 4",
       Concatenate({abcd, {'X'}, abcd}),
       {0x50, 'a', 'b', 'c', 'd', 'X', 5, 0, 0x00}},
      {"three bytes never match", {1, 2, 3, 1, 2, 3}, {0x60, 1, 2, 3, 1, 2, 3}},
  };
  for (const auto& c : cases) {
    const TBytes expected =
        Concatenate({Header(static_cast<std::uint32_t>(c.input.size()),
                            static_cast<std::uint32_t>(kLZ4eHeaderSize + c.sequences.size())),
                     c.sequences});
    EXPECT_EQ(Compress(c.input), expected) << c.name;
  }
}

TEST(LZ4e, InputsBeyondThirtyTwoBitSizesAreRefused) {
  // The size is checked before any byte is read.
  const unsigned char byte = 0;
  TBytes block = {1, 2, 3};
  EXPECT_FALSE(CompressLZ4e(&byte, std::size_t{kLZ4eMaxInput} + 1, block));
  EXPECT_TRUE(block.empty());
}

// A pattern, a gap that shares no word with it, and the pattern again: whether the second copy
// becomes a match, and how its offset is written, depends on the pattern's length and distance.
TEST(LZ4e, OnlyMatchesOfNineteenBytesOrMoreReachBeyond64KiB) {
  struct TCase {
    std::size_t nPattern, distance;
    bool bMatch;
  };
  const TCase cases[] = {{18, 65535, true}, {18, 65536, false}, {19, 65536, true}};
  for (const auto& c : cases) {
    const TBytes pattern = RandomBytes(c.nPattern, 1);
    const TBytes input = Concatenate({pattern, RandomBytes(c.distance - c.nPattern, 2), pattern});
    const TBytes block = Compress(input);
    SCOPED_TRACE(testing::Message() << c.nPattern << " bytes at " << c.distance);
    if (!c.bMatch) {
      EXPECT_EQ(TBytes(block.end() - 18, block.end()), pattern) << "the copy stays literal";
    } else if (c.distance < 65536) {
      EXPECT_EQ(TBytes(block.end() - 3, block.end()), TBytes({0xFF, 0xFF, 0x00}));
    } else {
      EXPECT_EQ(TBytes(block.end() - 5, block.end()), TBytes({0x80, 0x00, 0x00, 0x01, 0x00}));
    }
    EXPECT_EQ(DecompressLZ4e(block), input);
  }
}

// Two patterns among zeros, each repeated: the first at 16 MiB - 1, which a match still
// reaches, the second at 16 MiB, which none does.
TEST(LZ4e, MatchesReachBackLessThan16MiB) {
  TBytes near = RandomBytes(32, 3), far = RandomBytes(32, 4);
  for (auto* pattern : {&near, &far}) {
    for (auto& byte : *pattern) byte |= 1;  // so that no match of zeros runs into it
  }
  TBytes input(kLZ4eWindow + 1032);
  const auto place = [&](const TBytes& pattern, std::size_t at) {
    std::copy(pattern.begin(), pattern.end(), input.begin() + static_cast<std::ptrdiff_t>(at));
  };
  place(near, 0);
  place(far, 1000);
  place(near, kLZ4eWindow - 1);
  input[kLZ4eWindow + 31] = 0xAA;  // ends the copy of near where near ends
  place(far, kLZ4eWindow + 1000);
  const TBytes block = Compress(input);
  // No literal, a match of 32 (19 + 13) with the long-offset flag, offset 0xFFFFFF.
  const TBytes nearMatch = {0x0F, 0x8D, 0xFF, 0xFF, 0xFF};
  EXPECT_NE(std::search(block.begin(), block.end(), nearMatch.begin(), nearMatch.end()),
            block.end());
  EXPECT_EQ(TBytes(block.end() - 32, block.end()), far);
  EXPECT_EQ(DecompressLZ4e(block), input);
}

// Inputs that take each path of the encoder and decoder: long literal and match runs,
// overlapping matches, matches cut short near their source, full and trimmed chains.
TEST(LZ4e, RoundTripsGiveTheInputBack) {
  TBytes periodic(10000);
  for (std::size_t i = 0; i < periodic.size(); ++i) periodic[i] = "abcdefgh"[i % 7];
  TBytes skewed = RandomBytes(30000, 3);
  for (auto& byte : skewed) byte = byte < 200 ? 0 : byte & 7;
  const TBytes random = RandomBytes(20000, 4);
  struct TCase {
    const char* name;
    TBytes input;
  };
  const TCase cases[] = {
      {"zeros", TBytes(100000)},
      {"period 7", periodic},
      {"mostly zeros", skewed},
      {"random", random},
      {"random twice", Concatenate({random, random})},
      {"random, zeros, random tail",
       Concatenate({random, TBytes(5000), TBytes(random.begin(), random.begin() + 3000)})},
      {"literal run of 15 + 255", RandomBytes(270, 5)},
      {"match run of 19 + 127 + 255",
       Concatenate({TBytes(20, 9), RandomBytes(30, 6), TBytes(420, 9)})},
  };
  for (const auto& c : cases) {
    const TBytes block = Compress(c.input);
    EXPECT_EQ(DecompressLZ4e(block), c.input) << c.name;
  }
}

}  // namespace
