#pragma once
#include <cstdint>
#include <filesystem>

#include "registers/PackedBlockCache.h"
#include "registers/PackedDataFile.h"
#include "registers/TableIndex.h"
#include "registers/TableMaterial.h"

// An endgame table probed in its file: each probe unpacks (through the shared block cache)
// only the block that holds the value, so a table needs no memory of its own beyond the
// blocks in use. The values are the same as those of the table read whole; the file's
// checksum cannot be checked without reading it all, so a corrupt block shows only when it
// is unpacked.
class CDiskEndgameTable {
 public:
  // Throws tablefile::CTableFileError, naming the file, when it is missing or its header does
  // not describe this material's table.
  CDiskEndgameTable(const std::filesystem::path& file, const TTableMaterial& material,
                    CPackedBlockCache& cache);

  const TTableMaterial& Material() const { return material; }
  std::uint8_t Value(bool bWhiteToMove, std::uint64_t i) const;
  // The value of a board that holds exactly this material. Throws when the block cannot be
  // read or unpacked.
  std::uint8_t ValueOfBoard(bool bWhiteToMove, const PieceCode* board) const;

 private:
  TTableMaterial material;
  TTableIndex index;
  CPackedDataFile packed;
  CPackedBlockCache& cache;
  std::uint64_t nFileKey;
};
