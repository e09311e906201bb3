#include <gtest/gtest.h>

#include "CodecTestData.h"
#include "registers/LZ4e.h"

namespace {

using codectest::Concatenate;
using codectest::TBytes;

TBytes Block(std::uint32_t nOutput, const TBytes& sequences) {
  TBytes block = {'L', 'Z', '4', 'e'};
  const auto nBlock = static_cast<std::uint32_t>(kLZ4eHeaderSize + sequences.size());
  for (std::uint32_t value : {nOutput, nBlock, 0u}) {
    for (int i = 0; i < 4; ++i) block.push_back(static_cast<unsigned char>(value >> (8 * i)));
  }
  return Concatenate({block, sequences});
}

TEST(LZ4eDecoder, MatchesMayOverlapTheirOwnOutput) {
  // One literal repeated by a match at distance 1; 20 literals repeated by 60 bytes at 20.
  EXPECT_EQ(DecompressLZ4e(Block(6, {0x11, 7, 0x01, 0x00, 0x00})), TBytes(6, 7));
  TBytes twenty(20);
  for (int i = 0; i < 20; ++i) twenty[i] = static_cast<unsigned char>(i);
  const TBytes sequences = Concatenate({{0xF0 | 0x0F, 5}, twenty, {60 - 19, 20, 0, 0x00}});
  EXPECT_EQ(DecompressLZ4e(Block(80, sequences)), Concatenate({twenty, twenty, twenty, twenty}));
}

TEST(LZ4eDecoder, CorruptBlocksFailWithTheDecompressionMessage) {
  struct TCase {
    const char* name;
    TBytes block;
  };
  TBytes badMagic = Block(1, {0x10, 7});
  badMagic[3] = 'E';
  TBytes reserved = Block(1, {0x10, 7});
  reserved[12] = 1;
  TBytes longer = Block(1, {0x10, 7});
  longer.push_back(0);
  const TCase cases[] = {
      {"shorter than a header", TBytes{'L', 'Z', '4', 'e', 0, 0, 0, 0}},
      {"wrong magic", badMagic},
      {"reserved field set", reserved},
      {"bytes beyond the stated size", longer},
      {"more output than any sequences give", Block(0xFFFFFFFF, {0x00})},
      {"no sequences", Block(0, {})},
      {"literals beyond the input", Block(5, {0x50, 1, 2})},
      {"literals beyond the output", Block(2, {0x30, 1, 2, 3})},
      {"literal run cut short", Block(20, {0xF0, 0xFF})},
      {"last sequence with a match length", Block(1, {0x11, 7})},
      {"less output than stated", Block(2, {0x10, 7})},
      {"offset 0", Block(5, {0x10, 7, 0x00, 0x00, 0x00})},
      {"offset before the start", Block(5, {0x10, 7, 0x02, 0x00, 0x00})},
      {"match beyond the output", Block(4, {0x10, 7, 0x01, 0x00, 0x00})},
      {"offset cut short", Block(5, {0x10, 7, 0x01})},
      {"long offset cut short", Block(20, {0x1F, 7, 0x80, 0x01, 0x00})},
      {"match run cut short", Block(200, {0x1F, 7, 0x7F, 0xFF})},
      {"ends with a match", Block(5, {0x10, 7, 0x01, 0x00})},
  };
  for (const auto& c : cases) {
    try {
      DecompressLZ4e(c.block);
      ADD_FAILURE() << c.name << ": no error";
    } catch (const CLZ4eError& error) {
      EXPECT_STREQ(error.what(), "An error occurred during LZ4 decompression.") << c.name;
    }
  }
}

// Every cut and many single-byte changes of a real block: each must fail cleanly or decode to
// the stated size, never touch memory outside the buffers (the sanitizers watch).
TEST(LZ4eDecoder, CutAndChangedSequencesNeverReachOutsideTheBuffers) {
  TBytes input;
  for (int i = 0; i < 3000; ++i) input.push_back(static_cast<unsigned char>((i * i) % 251 / 9));
  TBytes block;
  ASSERT_TRUE(CompressLZ4e(input.data(), input.size(), block));
  const TBytes sequences(block.begin() + kLZ4eHeaderSize, block.end());
  TBytes output(input.size());
  for (std::size_t n = 0; n < sequences.size(); ++n) {
    TBytes cut(sequences.begin(), sequences.begin() + static_cast<std::ptrdiff_t>(n));
    EXPECT_THROW(DecompressLZ4eSequences(cut, output), CLZ4eError) << n;
  }
  for (std::size_t i = 0; i < sequences.size(); ++i) {
    for (unsigned char flip : {0x01, 0x10, 0x80, 0xFF}) {
      TBytes changed = sequences;
      changed[i] ^= flip;
      try {
        DecompressLZ4eSequences(changed, output);
      } catch (const CLZ4eError&) {
      }
    }
  }
  DecompressLZ4eSequences(sequences, output);
  EXPECT_EQ(output, input);
}

}  // namespace
