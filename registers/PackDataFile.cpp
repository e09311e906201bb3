// Writing packed data files: blocks compressed one by one behind a reserved header and
// offset table, which are filled in once every block's place is known. The file is written
// aside and takes the old one's place only when whole.
#include <cstdio>
#include <cstring>
#include <string>

#include "core/SafeFile.h"
#include "registers/LZ4e.h"
#include "registers/LittleEndian.h"
#include "registers/PackedDataFile.h"

namespace {

// The ratio is the compressed size of the blocks so far to their data, so the last line
// gives the whole file's.
std::string ProgressLine(std::size_t block, std::uint64_t nPacked, std::uint64_t nDataSize,
                         std::uint64_t nCompressed) {
  char line[160];
  std::snprintf(line, sizeof line,
                "Compressed bucket %zd. Packed %llu of %llu (%llu%%). Compression ratio %0.1f%%\n",
                static_cast<std::ptrdiff_t>(block), static_cast<unsigned long long>(nPacked),
                static_cast<unsigned long long>(nDataSize),
                static_cast<unsigned long long>(nPacked * 100 / nDataSize),
                100.0 * static_cast<double>(nCompressed) / static_cast<double>(nPacked));
  return line;
}

}  // namespace

std::optional<std::string> PackDataFile(std::istream& input, std::uint64_t nDataSize,
                                        std::uint16_t dataType,
                                        const std::filesystem::path& output) {
  const std::size_t nBlocks = (nDataSize + kPackedBlockSize - 1) / kPackedBlockSize;
  safefile::CFileWriter out(output.string());
  std::vector<unsigned char> header(kPackedHeaderSize + 8 * nBlocks);
  if (!out.Begin() || !out.Write(header.data(), header.size())) return out.Error();

  const std::string unreadable = "Cannot pack the data of " + output.string();
  std::string log;
  std::vector<unsigned char> data, block;
  std::uint64_t nPacked = 0, nCompressed = 0;
  for (std::size_t i = 0; i < nBlocks; ++i) {
    const std::size_t n =
        static_cast<std::size_t>(std::min<std::uint64_t>(kPackedBlockSize, nDataSize - nPacked));
    data.resize(n);
    if (!input.read(reinterpret_cast<char*>(data.data()), static_cast<std::streamsize>(n)) ||
        !CompressLZ4e(data.data(), n, block))
      return unreadable;
    WriteLittleEndian(header.data() + kPackedHeaderSize + 8 * i,
                      std::uint64_t{header.size() + nCompressed});
    const std::size_t nSequences = block.size() - kLZ4eHeaderSize;
    if (!out.Write(block.data() + kLZ4eHeaderSize, nSequences)) return out.Error();
    nPacked += n;
    nCompressed += nSequences;
    log += ProgressLine(i, nPacked, nDataSize, nCompressed);
  }

  WriteLittleEndian(header.data(), std::uint64_t{kPackedHeaderSize});
  WriteLittleEndian(header.data() + 8, nDataSize);
  WriteLittleEndian(header.data() + 16, std::uint64_t{kPackedBlockSize});
  WriteLittleEndian(header.data() + 24, dataType);
  WriteLittleEndian(header.data() + 26, std::uint16_t{0});
  std::memcpy(header.data() + 28, "LZ4e", 4);
  if (!out.WriteAt(0, header.data(), header.size())) return out.Error();
  // The log goes first: a failure of the data file's last steps then leaves the old file with a
  // log that is only a note, never a new file without one.
  if (auto error = safefile::Save(output.string() + ".log", log)) return error;
  if (!out.Commit()) return out.Error();
  return std::nullopt;
}
