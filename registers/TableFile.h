#pragma once
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "registers/EndgameTable.h"

// Table files: packed data files (16 MiB blocks of LZ4e) whose data is a header of ours (a
// mark, the format version, the index scheme, the piece set, the number of positions and a
// checksum of the values), then White's values and Black's. The packer's log lies beside. A table
// lives in <folder>/<position type>/ ("+pawns" added to the folder name for sets with pawns), in a
// file named after the piece set.
namespace tablefile {

// A missing, unreadable or corrupt file; the message names the file.
class CTableFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The version and index scheme that this program writes and reads.
constexpr std::uint16_t kVersion = 1;
constexpr std::uint16_t kIndexScheme = 1;

// The packed file's data type word of endgame tables.
constexpr std::uint16_t kDataType = 0x544D;
// The bytes of our header before the values in a table file's data.
constexpr std::size_t kHeaderBytes = 40;

std::filesystem::path PathOf(const std::filesystem::path& folder, const TTableMaterial& material);

// Writes through a temporary file renamed at the end, so a broken write leaves an earlier
// table as it was. Throws CTableFileError, naming the file, when it cannot be written.
void Write(const TEndgameTable& table, const std::filesystem::path& file);
// Reads the table of the material; throws CTableFileError when the file is missing or does
// not hold that table whole.
// Checks a table file's header (its first kHeaderBytes bytes of data) against the material
// and returns the checksum it records; throws CTableFileError when it is not that table's.
std::uint64_t CheckHeader(const unsigned char* header, const std::filesystem::path& file,
                          const TTableMaterial& material);
std::unique_ptr<TEndgameTable> Read(const std::filesystem::path& file,
                                    const TTableMaterial& material);

}  // namespace tablefile
