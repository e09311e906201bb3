// Writing packed data files: blocks compressed one by one behind a reserved header and
// offset table, which are filled in once every block's place is known.
#include <cstdio>
#include <cstring>
#include <fstream>

#include "registers/LZ4e.h"
#include "registers/LittleEndian.h"
#include "registers/PackedDataFile.h"

namespace {

bool WriteBytes(std::ofstream& out, const unsigned char* bytes, std::size_t n) {
  out.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(n));
  return out.good();
}

// The ratio is the compressed size of the blocks so far to their data, so the last line
// gives the whole file's.
bool LogProgress(std::ofstream& log, std::size_t block, std::uint64_t nPacked,
                 std::uint64_t nDataSize, std::uint64_t nCompressed) {
  char line[160];
  std::snprintf(line, sizeof line,
                "Compressed bucket %zd. Packed %llu of %llu (%llu%%). Compression ratio %0.1f%%\n",
                static_cast<std::ptrdiff_t>(block), static_cast<unsigned long long>(nPacked),
                static_cast<unsigned long long>(nDataSize),
                static_cast<unsigned long long>(nPacked * 100 / nDataSize),
                100.0 * static_cast<double>(nCompressed) / static_cast<double>(nPacked));
  log << line << std::flush;
  return log.good();
}

}  // namespace

bool PackDataFile(std::istream& input, std::uint64_t nDataSize, std::uint16_t dataType,
                  const std::filesystem::path& output) {
  const std::size_t nBlocks = (nDataSize + kPackedBlockSize - 1) / kPackedBlockSize;
  std::ofstream out(output, std::ios::binary | std::ios::trunc);
  std::ofstream log(output.string() + ".log", std::ios::trunc);
  if (!out || !log) return false;

  std::vector<unsigned char> header(kPackedHeaderSize + 8 * nBlocks);
  if (!WriteBytes(out, header.data(), header.size())) return false;

  std::vector<unsigned char> data, block;
  std::uint64_t nPacked = 0, nCompressed = 0;
  for (std::size_t i = 0; i < nBlocks; ++i) {
    const std::size_t n =
        static_cast<std::size_t>(std::min<std::uint64_t>(kPackedBlockSize, nDataSize - nPacked));
    data.resize(n);
    if (!input.read(reinterpret_cast<char*>(data.data()), static_cast<std::streamsize>(n))) {
      return false;
    }
    if (!CompressLZ4e(data.data(), n, block)) return false;
    WriteLittleEndian(header.data() + kPackedHeaderSize + 8 * i,
                      std::uint64_t{header.size() + nCompressed});
    const std::size_t nSequences = block.size() - kLZ4eHeaderSize;
    if (!WriteBytes(out, block.data() + kLZ4eHeaderSize, nSequences)) return false;
    nPacked += n;
    nCompressed += nSequences;
    if (!LogProgress(log, i, nPacked, nDataSize, nCompressed)) return false;
  }

  WriteLittleEndian(header.data(), std::uint64_t{kPackedHeaderSize});
  WriteLittleEndian(header.data() + 8, nDataSize);
  WriteLittleEndian(header.data() + 16, std::uint64_t{kPackedBlockSize});
  WriteLittleEndian(header.data() + 24, dataType);
  WriteLittleEndian(header.data() + 26, std::uint16_t{0});
  std::memcpy(header.data() + 28, "LZ4e", 4);
  out.seekp(0);
  if (!WriteBytes(out, header.data(), header.size())) return false;
  out.close();
  return !out.fail();
}
