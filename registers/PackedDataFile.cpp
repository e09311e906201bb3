#include "registers/PackedDataFile.h"

#include <cstring>
#include <stdexcept>

#include "registers/LZ4e.h"
#include "registers/LittleEndian.h"

namespace {

bool ReadBytes(std::ifstream& in, std::uint64_t offset, unsigned char* bytes, std::size_t n) {
  in.seekg(static_cast<std::streamoff>(offset));
  in.read(reinterpret_cast<char*>(bytes), static_cast<std::streamsize>(n));
  return in.good();
}

}  // namespace

CPackedDataFile::CPackedDataFile(const std::filesystem::path& filePath)
    : path(filePath), file(filePath, std::ios::binary) {
  if (!file) throw std::runtime_error("Error opening file: " + path.string());
  const auto invalid = [&] {
    return std::runtime_error("Invalid packed data file: " + path.string());
  };
  file.seekg(0, std::ios::end);
  const std::uint64_t nFileSize = static_cast<std::uint64_t>(file.tellg());

  unsigned char header[kPackedHeaderSize];
  if (nFileSize < kPackedHeaderSize || !ReadBytes(file, 0, header, kPackedHeaderSize))
    throw invalid();
  nDataSize = ReadLittleEndian<std::uint64_t>(header + 8);
  dataType = ReadLittleEndian<std::uint16_t>(header + 24);
  if (ReadLittleEndian<std::uint64_t>(header) != kPackedHeaderSize ||
      ReadLittleEndian<std::uint64_t>(header + 16) != kPackedBlockSize ||
      ReadLittleEndian<std::uint16_t>(header + 26) != 0 ||
      std::memcmp(header + 28, "LZ4e", 4) != 0) {
    throw invalid();
  }
  // Each block takes at least one byte, which bounds the table before it is allocated.
  const std::uint64_t nBlocks = (nDataSize + kPackedBlockSize - 1) / kPackedBlockSize;
  const std::uint64_t tableEnd = kPackedHeaderSize + 8 * nBlocks;
  if (nBlocks > nFileSize || tableEnd + nBlocks > nFileSize) throw invalid();

  std::vector<unsigned char> table(8 * nBlocks);
  if (!ReadBytes(file, kPackedHeaderSize, table.data(), table.size())) throw invalid();
  offsets.resize(nBlocks + 1);
  for (std::size_t i = 0; i < nBlocks; ++i)
    offsets[i] = ReadLittleEndian<std::uint64_t>(table.data() + 8 * i);
  offsets[nBlocks] = nFileSize;
  if (nBlocks > 0 && offsets[0] != tableEnd) throw invalid();
  for (std::size_t i = 0; i < nBlocks; ++i) {
    if (offsets[i] >= offsets[i + 1]) throw invalid();
  }
}

std::size_t CPackedDataFile::BlockDataSize(std::size_t index) const {
  if (index >= BlockCount()) throw std::out_of_range("no block " + std::to_string(index));
  return static_cast<std::size_t>(
      std::min<std::uint64_t>(kPackedBlockSize, nDataSize - index * kPackedBlockSize));
}

void CPackedDataFile::ReadBlock(std::size_t index, std::span<unsigned char> output) const {
  if (output.size() != BlockDataSize(index)) {
    throw std::out_of_range("block " + std::to_string(index) + " does not fit the buffer");
  }
  std::vector<unsigned char> sequences(offsets[index + 1] - offsets[index]);
  {
    std::lock_guard lock(fileLock);
    if (!ReadBytes(file, offsets[index], sequences.data(), sequences.size())) {
      file.clear();
      throw std::runtime_error("Error reading file: " + path.string());
    }
  }
  DecompressLZ4eSequences(sequences, output);
}

std::vector<unsigned char> CPackedDataFile::ReadBlock(std::size_t index) const {
  std::vector<unsigned char> output(BlockDataSize(index));
  ReadBlock(index, output);
  return output;
}
