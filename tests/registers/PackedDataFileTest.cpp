#include <gtest/gtest.h>
#include <unistd.h>

#include <regex>
#include <sstream>
#include <thread>

#include "CodecTestData.h"
#include "registers/LZ4e.h"
#include "registers/LittleEndian.h"
#include "registers/PackedBlockCache.h"
#include "registers/PackedDataFile.h"

namespace {

using codectest::TBytes;

// A packed file and its log in the temporary folder, removed when the test ends.
class CTempPackedFile {
 public:
  explicit CTempPackedFile(const std::string& name)
      : path(std::filesystem::temp_directory_path() /
             ("longmate-" + std::to_string(::getpid()) + "-" + name + ".lz4e")),
        logPath(path.string() + ".log") {}
  ~CTempPackedFile() {
    std::filesystem::remove(path);
    std::filesystem::remove(logPath);
  }
  bool Pack(const TBytes& data, std::uint16_t dataType = 0x1234) const {
    std::istringstream input(std::string(data.begin(), data.end()));
    return !PackDataFile(input, data.size(), dataType, path);
  }
  TBytes Bytes() const {
    std::ifstream in(path, std::ios::binary);
    return TBytes(std::istreambuf_iterator<char>(in), {});
  }
  void Overwrite(const TBytes& bytes) const {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }
  const std::filesystem::path path, logPath;
};

// Zeros with one marker byte at the end of each block: quick to compress, and a block read
// from the wrong place shows.
TBytes MarkedZeros(std::size_t n) {
  TBytes data(n);
  for (std::size_t end = kPackedBlockSize; end - kPackedBlockSize < n; end += kPackedBlockSize) {
    data[std::min(end, n) - 1] = static_cast<unsigned char>(0xA0 + end / kPackedBlockSize);
  }
  return data;
}

TEST(PackedDataFile, BlocksOf16MiBRoundTripWithHeaderTableAndLog) {
  struct TCase {
    std::size_t nData, nBlocks;
  };
  const TCase cases[] = {{0, 0}, {1000, 1}, {kPackedBlockSize, 1}, {kPackedBlockSize + 1, 2}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.nData);
    const CTempPackedFile packed("blocks");
    const TBytes data = MarkedZeros(c.nData);
    ASSERT_TRUE(packed.Pack(data));

    const TBytes bytes = packed.Bytes();
    ASSERT_GE(bytes.size(), 32 + 8 * c.nBlocks);
    const auto field = [&](std::size_t at) { return ReadLittleEndian<std::uint64_t>(&bytes[at]); };
    EXPECT_EQ(field(0), 32u);
    EXPECT_EQ(field(8), c.nData);
    EXPECT_EQ(field(16), 16777216u);
    EXPECT_EQ(field(24), 0x65345A4C00001234u) << "data type, 0, LZ4e";
    if (c.nBlocks > 0) {
      EXPECT_EQ(field(32), 32 + 8 * c.nBlocks);
    }

    const CPackedDataFile file(packed.path);
    ASSERT_EQ(file.BlockCount(), c.nBlocks);
    EXPECT_EQ(file.DataSize(), c.nData);
    EXPECT_EQ(file.DataType(), 0x1234);
    TBytes unpacked;
    for (std::size_t i = 0; i < file.BlockCount(); ++i) {
      const TBytes block = file.ReadBlock(i);
      unpacked.insert(unpacked.end(), block.begin(), block.end());
    }
    EXPECT_TRUE(unpacked == data);

    std::ifstream log(packed.logPath);
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);) lines.push_back(line);
    ASSERT_EQ(lines.size(), c.nBlocks);
    if (c.nBlocks > 0) {
      const std::string last = "Compressed bucket " + std::to_string(c.nBlocks - 1) + ". Packed " +
                               std::to_string(c.nData) + " of " + std::to_string(c.nData) +
                               " \\(100%\\)\\. Compression ratio [0-9]+\\.[0-9]%";
      EXPECT_TRUE(std::regex_match(lines.back(), std::regex(last))) << lines.back();
    }
  }
}

// A packed file of two blocks, packed once for the tests that read or change it.
class PackedTwoBlocks : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    data = MarkedZeros(kPackedBlockSize + 100);
    const CTempPackedFile packed("two-blocks");
    ASSERT_TRUE(packed.Pack(data));
    fileBytes = packed.Bytes();
  }
  static void TearDownTestSuite() { data = fileBytes = {}; }

  static inline TBytes data, fileBytes;
};

TEST_F(PackedTwoBlocks, FilesThatDoNotHoldTogetherAreRefusedOnOpening) {
  const CTempPackedFile packed("invalid");
  struct TCase {
    const char* name;
    std::size_t at, width;
    std::uint64_t value;
  };
  const TCase cases[] = {
      {"header size", 0, 8, 40},
      {"data size beyond the table", 8, 8, 3 * kPackedBlockSize},
      {"block size", 16, 8, kPackedBlockSize / 2},
      {"reserved word", 26, 2, 1},
      {"magic", 28, 4, 0x65345A4D},
      {"first offset", 32, 8, 40},
      {"offsets out of order", 40, 8, 48},
      {"offset beyond the end", 40, 8, fileBytes.size()},
  };
  for (const auto& c : cases) {
    TBytes bytes = fileBytes;
    for (std::size_t i = 0; i < c.width; ++i) {
      bytes[c.at + i] = static_cast<unsigned char>(c.value >> (8 * i));
    }
    packed.Overwrite(bytes);
    try {
      CPackedDataFile file(packed.path);
      ADD_FAILURE() << c.name << ": no error";
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), "Invalid packed data file: " + packed.path.string()) << c.name;
    }
  }
  packed.Overwrite(TBytes(fileBytes.begin(), fileBytes.begin() + 44));
  EXPECT_THROW(CPackedDataFile{packed.path}, std::runtime_error) << "table cut short";
  std::filesystem::remove(packed.path);
  EXPECT_THROW(CPackedDataFile{packed.path}, std::runtime_error) << "no file";
}

TEST_F(PackedTwoBlocks, ACorruptBlockFailsOnlyItsOwnRead) {
  const CTempPackedFile packed("corrupt");
  packed.Overwrite(TBytes(fileBytes.begin(), fileBytes.end() - 1));  // the last block cut short
  const CPackedDataFile file(packed.path);
  EXPECT_EQ(file.ReadBlock(0), TBytes(data.begin(), data.begin() + kPackedBlockSize));
  EXPECT_THROW(file.ReadBlock(1), CLZ4eError);
  TBytes tooSmall(10);
  EXPECT_THROW(file.ReadBlock(0, tooSmall), std::out_of_range);
  EXPECT_THROW(file.ReadBlock(2), std::out_of_range);
}

TEST_F(PackedTwoBlocks, TheBlockCacheKeepsWithinItsBudgetAndReadsTheSameBytes) {
  const CTempPackedFile packed("cache");
  packed.Overwrite(fileBytes);
  const CPackedDataFile file(packed.path);
  const std::uint64_t offsets[] = {0, kPackedBlockSize - 1, kPackedBlockSize, data.size() - 1, 7};
  struct TCase {
    std::uint64_t nBudget;
    std::size_t nBlocksHeld;
  };
  // Too small for one block: the latest still stays. One block: each read takes the other's
  // place. Room for both: both stay.
  for (const TCase& c :
       {TCase{1000, 1}, TCase{kPackedBlockSize, 1}, TCase{3 * kPackedBlockSize, 2}}) {
    CPackedBlockCache cache(c.nBudget);
    const std::uint64_t key = cache.NewFileKey();
    for (std::uint64_t offset : offsets) {
      EXPECT_EQ(cache.Byte(file, key, offset), data[offset]) << offset;
    }
    EXPECT_EQ(cache.HeldBlocks(), c.nBlocksHeld) << c.nBudget;
    EXPECT_LE(cache.HeldBytes(), std::max<std::uint64_t>(c.nBudget, kPackedBlockSize));
  }
}

TEST_F(PackedTwoBlocks, ACorruptBlockInTheCacheFailsOnlyItsOwnBytes) {
  const CTempPackedFile packed("cache-corrupt");
  packed.Overwrite(TBytes(fileBytes.begin(), fileBytes.end() - 1));
  const CPackedDataFile file(packed.path);
  CPackedBlockCache cache(3 * kPackedBlockSize);
  const std::uint64_t key = cache.NewFileKey();
  EXPECT_THROW(cache.Byte(file, key, kPackedBlockSize + 5), CLZ4eError);
  EXPECT_EQ(cache.Byte(file, key, kPackedBlockSize - 1), data[kPackedBlockSize - 1]);
  EXPECT_EQ(cache.HeldBlocks(), 1u);
}

TEST_F(PackedTwoBlocks, ThreadsProbingThroughOneBlockCacheReadTheirBytes) {
  const CTempPackedFile packed("cache-threads");
  packed.Overwrite(fileBytes);
  const CPackedDataFile file(packed.path);
  CPackedBlockCache cache(kPackedBlockSize);  // room for one: the threads evict each other
  const std::uint64_t key = cache.NewFileKey();
  std::vector<int> nWrong(3, 0);
  std::vector<std::thread> threads;
  for (int t = 0; t < 3; ++t) {
    threads.emplace_back([&, t] {
      for (int round = 0; round < 3; ++round) {
        const std::uint64_t offset = ((t + round) % 2 + 1) * kPackedBlockSize - 1;
        if (cache.Byte(file, key, std::min<std::uint64_t>(offset, data.size() - 1)) !=
            data[std::min<std::uint64_t>(offset, data.size() - 1)])
          ++nWrong[t];
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(nWrong, std::vector<int>(3, 0));
}

TEST_F(PackedTwoBlocks, ThreadsReadingBlocksAtOnceEachGetTheirOwn) {
  const CTempPackedFile packed("threads");
  packed.Overwrite(fileBytes);
  const CPackedDataFile file(packed.path);
  std::vector<std::thread> threads;
  std::vector<int> nWrong(4, 0);
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&, t] {
      for (int round = 0; round < 4; ++round) {
        const std::size_t block = static_cast<std::size_t>(t + round) % 2;
        if (file.ReadBlock(block).back() != 0xA1 + block) ++nWrong[t];
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(nWrong, std::vector<int>(4, 0));
}

TEST(PackedDataFile, PackingFailsOnShortInputOrAnUnwritableOutput) {
  const CTempPackedFile packed("short");
  std::istringstream shortInput(std::string(100, 'x'));
  EXPECT_EQ(PackDataFile(shortInput, 101, 0, packed.path),
            "Cannot pack the data of " + packed.path.string());
  std::istringstream input(std::string(100, 'x'));
  const std::filesystem::path missing = packed.path / "no-such-folder" / "file";
  EXPECT_EQ(PackDataFile(input, 100, 0, missing), "Error opening file: " + missing.string());
}

// An open file goes on reading what it opened when a save replaces the file or it is removed;
// a file cut short in place fails the reading of the block, naming the file.
TEST(PackedDataFile, AFileChangedWhileOpenReadsWhatWasOpenedOrSaysItCannot) {
  const CTempPackedFile packed("while-open");
  TBytes data(1000);
  for (std::size_t i = 0; i < data.size(); ++i) data[i] = static_cast<unsigned char>(i * 7);
  ASSERT_TRUE(packed.Pack(data));
  {
    const CPackedDataFile file(packed.path);
    ASSERT_TRUE(packed.Pack(TBytes(1000, 0x11)));
    EXPECT_EQ(file.ReadBlock(0), data);
    std::filesystem::remove(packed.path);
    EXPECT_EQ(file.ReadBlock(0), data);
  }
  ASSERT_TRUE(packed.Pack(data));
  const CPackedDataFile file(packed.path);
  std::filesystem::resize_file(packed.path, kPackedHeaderSize + 8 + 4);
  try {
    file.ReadBlock(0);
    ADD_FAILURE() << "read a block beyond the file's end";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(std::string(error.what()), "Error reading file: " + packed.path.string());
  }
}

}  // namespace
