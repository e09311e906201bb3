#include "registers/DiskEndgameTable.h"

#include "registers/EndgameTable.h"
#include "registers/TableFile.h"

namespace {

CPackedDataFile OpenPacked(const std::filesystem::path& file) {
  if (!std::filesystem::exists(file))
    throw tablefile::CTableFileError("Endgame table file " + file.string() + " is missing");
  try {
    return CPackedDataFile(file);
  } catch (const std::exception& e) {
    throw tablefile::CTableFileError("Endgame table file " + file.string() +
                                     " is unusable: " + e.what());
  }
}

}  // namespace

CDiskEndgameTable::CDiskEndgameTable(const std::filesystem::path& file,
                                     const TTableMaterial& tableMaterial,
                                     CPackedBlockCache& blockCache)
    : material(tableMaterial),
      index(tableMaterial),
      packed(OpenPacked(file)),
      cache(blockCache),
      nFileKey(blockCache.NewFileKey()) {
  const auto unusable = [&](const std::string& what) {
    return tablefile::CTableFileError("Endgame table file " + file.string() +
                                      " is unusable: " + what);
  };
  if (packed.DataType() != tablefile::kDataType) throw unusable("not a table file");
  if (packed.DataSize() != tablefile::kHeaderBytes + 2 * index.Size())
    throw unusable("wrong number of positions");
  unsigned char header[tablefile::kHeaderBytes];
  try {
    for (std::size_t i = 0; i < tablefile::kHeaderBytes; ++i)
      header[i] = cache.Byte(packed, nFileKey, i);
  } catch (const std::exception& e) {
    throw unusable(e.what());
  }
  tablefile::CheckHeader(header, file, material);
}

std::uint8_t CDiskEndgameTable::Value(bool bWhiteToMove, std::uint64_t i) const {
  const std::uint64_t offset = tablefile::kHeaderBytes + (bWhiteToMove ? 0 : index.Size()) + i;
  return cache.Byte(packed, nFileKey, offset);
}

std::uint8_t CDiskEndgameTable::ValueOfBoard(bool bWhiteToMove, const PieceCode* board) const {
  SquareIndex squares[TTableMaterial::kMaxPieces];
  SquaresInTableOrder(material, board, squares);
  return Value(bWhiteToMove, index.Encode(squares));
}
