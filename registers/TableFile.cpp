#include "registers/TableFile.h"

#include <cstring>
#include <fstream>

namespace tablefile {
namespace {

constexpr char kMark[4] = {'L', 'M', 'E', 'T'};
constexpr size_t kNameBytes = 16;

struct THeader {
  char mark[4];
  std::uint16_t version;
  std::uint16_t indexScheme;
  char name[kNameBytes];
  std::uint64_t nPositions;
  std::uint64_t checksum;
};
static_assert(sizeof(THeader) == 40);

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
  return folder / subfolder / (material.Name() + ".lmt");
}

void Write(const TEndgameTable& table, const std::filesystem::path& file) {
  THeader header{};
  std::memcpy(header.mark, kMark, sizeof kMark);
  header.version = kVersion;
  header.indexScheme = kIndexScheme;
  std::strncpy(header.name, table.Material().Name().c_str(), kNameBytes - 1);
  header.nPositions = table.Size();
  header.checksum = Checksum(table.WhiteValues(), table.BlackValues());
  std::filesystem::create_directories(file.parent_path());
  const std::filesystem::path temporary = file.string() + ".part";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    for (const auto* values : {&table.WhiteValues(), &table.BlackValues()})
      out.write(reinterpret_cast<const char*>(values->data()),
                static_cast<std::streamsize>(values->size()));
    if (!out.flush())
      throw CTableFileError("Cannot write the endgame table file " + temporary.string());
  }
  std::filesystem::rename(temporary, file);
}

std::unique_ptr<TEndgameTable> Read(const std::filesystem::path& file,
                                    const TTableMaterial& material) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw CTableFileError("Endgame table file " + file.string() + " is missing");
  THeader header{};
  if (!in.read(reinterpret_cast<char*>(&header), sizeof header)) throw Corrupt(file, "no header");
  if (std::memcmp(header.mark, kMark, sizeof kMark) != 0) throw Corrupt(file, "not a table file");
  if (header.version != kVersion || header.indexScheme != kIndexScheme)
    throw Corrupt(file, "version " + std::to_string(header.version) + ", index scheme " +
                            std::to_string(header.indexScheme));
  header.name[kNameBytes - 1] = '\0';
  if (material.Name() != header.name)
    throw Corrupt(file, "it holds " + std::string(header.name) + ", not " + material.Name());
  const TTableIndex index(material);
  if (header.nPositions != index.Size()) throw Corrupt(file, "wrong number of positions");
  std::vector<std::uint8_t> white(index.Size()), black(index.Size());
  for (auto* values : {&white, &black})
    if (!in.read(reinterpret_cast<char*>(values->data()),
                 static_cast<std::streamsize>(values->size())))
      throw Corrupt(file, "cut short");
  if (in.peek() != std::ifstream::traits_type::eof()) throw Corrupt(file, "longer than its table");
  if (Checksum(white, black) != header.checksum) throw Corrupt(file, "checksum mismatch");
  return std::make_unique<TEndgameTable>(material, std::move(white), std::move(black));
}

}  // namespace tablefile
