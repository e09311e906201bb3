#pragma once
#include <cstdint>
#include <filesystem>

#include "registers/AggregatedTemporaryChessboardRegister.h"
#include "registers/ChessboardRegisterItem.h"

// Files of the temporary register of one problem. Layout, little-endian:
//   0   "LMTR"
//   4   u32  version, kRegisterFileVersion
//   8   64   the problem's key (its start position)
//   72  u64  exact records
//   80  u64  doubtful records
//   88  u64  FNV-1a hash of all records
//   96       LZ4e blocks, each with its own header, of at most 16 MiB of records: first the
//            exact ones (the 64-byte key and the 12-byte information record), then the
//            doubtful ones (key, u64 heuristics selection, u16 nMovesMate, u16 nMovesNoMate),
//            76 bytes each.
namespace registerfile {

inline constexpr std::uint32_t kRegisterFileVersion = 1;
inline constexpr const char* kFolder = "TempRegisters";
inline constexpr const char* kExtension = ".ltr";

struct TRegisterFileCounts {
  std::uint64_t nExact = 0;
  std::uint64_t nDoubtful = 0;
};

// Writes every entry of reg for the problem. Throws ChessException with the message of a
// failed save ("Error writing file: <path>: ..."); an earlier file then stays as it was.
TRegisterFileCounts Save(const TAggregatedTemporaryChessboardRegister& reg,
                         const TChessboardRegisterItem& problem, const std::filesystem::path& file);

// Empties reg and reads the file into it, after checking that the whole file is a register
// of this problem. A file that cannot be read, is of another kind, version or problem, or is
// truncated or corrupt throws ChessException with a message saying which, and reg is left as
// it was. Records that contradict each other (which no register writes) leave reg empty and
// throw the register's incoherence message.
TRegisterFileCounts Read(TAggregatedTemporaryChessboardRegister& reg,
                         const TChessboardRegisterItem& problem, const std::filesystem::path& file);

}  // namespace registerfile
