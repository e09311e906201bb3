// Endgame-table files of the rook ending: a file either reads whole, its values then within
// the table, or is refused with the table-file error; nothing else may escape.
#include <cstdint>
#include <cstdlib>

#include "FuzzFile.h"
#include "registers/TableFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TTableMaterial kMaterial = TTableMaterial::Parse("KRK");
  const std::filesystem::path file = FuzzFile("table.lmt", data, size);
  try {
    const auto table = tablefile::Read(file, kMaterial);
    if (table->WhiteValues().size() != table->Size() ||
        table->BlackValues().size() != table->Size())
      std::abort();
  } catch (const tablefile::CTableFileError&) {
  }
  std::filesystem::remove(file);
  return 0;
}
