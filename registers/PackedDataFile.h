#pragma once
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <istream>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

// A packed data file holds a large data file cut into 16 MiB blocks, each compressed with
// LZ4e, so that any block can be read and unpacked alone. Layout, little-endian:
//   0   u64  header size, 32
//   8   u64  uncompressed size of the whole data
//   16  u64  block size, 16777216
//   24  u16  data type, a word given by the writer
//   26  u16  0
//   28       "LZ4e"
//   32  u64  per block: the file offset of its sequences
//   ...      each block's sequences, without the block header
// A block's compressed length runs to the next block's offset, the last one's to the file's end.

inline constexpr std::size_t kPackedHeaderSize = 32;
inline constexpr std::size_t kPackedBlockSize = std::size_t{1} << 24;

// Packs nDataSize bytes read from input into the file output, and writes beside it
// output + ".log" with one line per block: "Compressed bucket <block>. Packed <bytes so far>
// of <nDataSize> (<percent>%). Compression ratio <compressed so far / bytes so far>%".
// Returns the error text, naming the file, of a failed read, write or compression; an earlier
// file then stays as it was.
std::optional<std::string> PackDataFile(std::istream& input, std::uint64_t nDataSize,
                                        std::uint16_t dataType,
                                        const std::filesystem::path& output);

// Reads the blocks of a packed data file in any order. The header and the offset table are
// read and checked on opening; each ReadBlock reads one block. Safe to call from several
// threads: they take turns reading the file and unpack at the same time.
class CPackedDataFile {
 public:
  // Throws std::runtime_error "Error opening file: <path>" or "Invalid packed data file:
  // <path>" when the header or the offset table does not hold together.
  explicit CPackedDataFile(const std::filesystem::path& path);

  std::uint64_t DataSize() const { return nDataSize; }
  std::uint16_t DataType() const { return dataType; }
  std::size_t BlockCount() const { return offsets.size() - 1; }
  // 16 MiB for every block but the last.
  std::size_t BlockDataSize(std::size_t index) const;

  // Unpacks block index (below BlockCount()) into output, which must be BlockDataSize(index)
  // bytes long (std::out_of_range otherwise). Throws CLZ4eError when the block is corrupt and
  // std::runtime_error when the file cannot be read.
  void ReadBlock(std::size_t index, std::span<unsigned char> output) const;
  std::vector<unsigned char> ReadBlock(std::size_t index) const;

 private:
  std::filesystem::path path;
  std::uint64_t nDataSize = 0;
  std::uint16_t dataType = 0;
  // The blocks' offsets, then the file's size.
  std::vector<std::uint64_t> offsets;
  mutable std::mutex fileLock;
  mutable std::ifstream file;
};
