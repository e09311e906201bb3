#include "registers/TableFile.h"

#include <cstring>
#include <streambuf>

#include "core/PlainFileName.h"
#include "registers/PackedDataFile.h"

namespace tablefile {
namespace {

constexpr char kMark[4] = {'L', 'M', 'E', 'T'};
constexpr size_t kNameBytes = 16;

// Reads a buffer in memory as a stream, for the packer.
class CMemoryStream : public std::streambuf {
 public:
  explicit CMemoryStream(std::vector<char>& bytes) {
    setg(bytes.data(), bytes.data(), bytes.data() + bytes.size());
  }
};

struct THeader {
  char mark[4];
  std::uint16_t version;
  std::uint16_t indexScheme;
  char name[kNameBytes];
  std::uint64_t nPositions;
  std::uint64_t checksum;
};
static_assert(sizeof(THeader) == kHeaderBytes);

std::uint64_t Checksum(const std::vector<std::uint8_t>& white,
                       const std::vector<std::uint8_t>& black) {
  // FNV-1a over both sides' values.
  std::uint64_t hash = 14695981039346656037ULL;
  for (const auto* values : {&white, &black})
    for (std::uint8_t byte : *values) hash = (hash ^ byte) * 1099511628211ULL;
  return hash;
}

CTableFileError Corrupt(const std::filesystem::path& file, const std::string& what) {
  return CTableFileError("Endgame table file " + file.string() + " is unusable: " + what);
}

}  // namespace

std::filesystem::path PathOf(const std::filesystem::path& folder, const TTableMaterial& material) {
  const std::string subfolder = material.PositionType() + (material.HasPawns() ? "+pawns" : "");
  return folder / filename::Plain(subfolder) / filename::Plain(material.Name() + ".lmt");
}

void Write(const TEndgameTable& table, const std::filesystem::path& file) {
  THeader header{};
  std::memcpy(header.mark, kMark, sizeof kMark);
  header.version = kVersion;
  header.indexScheme = kIndexScheme;
  std::strncpy(header.name, table.Material().Name().c_str(), kNameBytes - 1);
  header.nPositions = table.Size();
  header.checksum = Checksum(table.WhiteValues(), table.BlackValues());
  std::vector<char> bytes(sizeof header + 2 * table.Size());
  std::memcpy(bytes.data(), &header, sizeof header);
  std::memcpy(bytes.data() + sizeof header, table.WhiteValues().data(), table.Size());
  std::memcpy(bytes.data() + sizeof header + table.Size(), table.BlackValues().data(),
              table.Size());
  std::error_code ignored;  // a folder that cannot be made fails the opening, named
  std::filesystem::create_directories(file.parent_path(), ignored);
  CMemoryStream buffer(bytes);
  std::istream input(&buffer);
  if (const auto error = PackDataFile(input, bytes.size(), kDataType, file))
    throw CTableFileError(*error);
}

std::uint64_t CheckHeader(const unsigned char* bytes, const std::filesystem::path& file,
                          const TTableMaterial& material) {
  THeader header{};
  std::memcpy(&header, bytes, sizeof header);
  if (std::memcmp(header.mark, kMark, sizeof kMark) != 0) throw Corrupt(file, "not a table file");
  if (header.version != kVersion || header.indexScheme != kIndexScheme)
    throw Corrupt(file, "version " + std::to_string(header.version) + ", index scheme " +
                            std::to_string(header.indexScheme));
  header.name[kNameBytes - 1] = '\0';
  if (material.Name() != header.name)
    throw Corrupt(file, "it holds " + std::string(header.name) + ", not " + material.Name());
  if (header.nPositions != TTableIndex(material).Size())
    throw Corrupt(file, "wrong number of positions");
  return header.checksum;
}

std::unique_ptr<TEndgameTable> Read(const std::filesystem::path& file,
                                    const TTableMaterial& material) {
  if (!std::filesystem::exists(file))
    throw CTableFileError("Endgame table file " + file.string() + " is missing");
  std::vector<unsigned char> bytes;
  try {
    const CPackedDataFile packed(file);
    if (packed.DataType() != kDataType) throw Corrupt(file, "not a table file");
    bytes.resize(packed.DataSize());
    std::size_t at = 0;
    for (std::size_t block = 0; block < packed.BlockCount(); ++block) {
      const std::size_t n = packed.BlockDataSize(block);
      packed.ReadBlock(block, std::span<unsigned char>(bytes.data() + at, n));
      at += n;
    }
  } catch (const CTableFileError&) {
    throw;
  } catch (const std::exception& e) {
    throw Corrupt(file, e.what());
  }
  if (bytes.size() < kHeaderBytes) throw Corrupt(file, "no header");
  const TTableIndex index(material);
  const std::uint64_t checksum = CheckHeader(bytes.data(), file, material);
  if (bytes.size() != kHeaderBytes + 2 * index.Size())
    throw Corrupt(file, "wrong number of positions");
  const auto* values = bytes.data() + kHeaderBytes;
  std::vector<std::uint8_t> white(values, values + index.Size());
  std::vector<std::uint8_t> black(values + index.Size(), values + 2 * index.Size());
  if (Checksum(white, black) != checksum) throw Corrupt(file, "checksum mismatch");
  return std::make_unique<TEndgameTable>(material, std::move(white), std::move(black));
}

}  // namespace tablefile
