#pragma once
// Keys and solved-positions records for the register tests.
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "registers/ChessboardRegisterItem.h"
#include "registers/SubproblemRegisterInfo.h"

namespace registertest {

// A key that looks like a position: mostly empty squares, a few piece codes set from
// the number, so that distinct numbers give keys differing in a few bytes only.
inline TChessboardRegisterItem Key(std::uint32_t number) {
  TChessboardRegisterItem key;
  key.bytes[4] = 0x41;
  key.bytes[60] = 0x81;
  for (int i = 0; i < 4; ++i) key.bytes[8 + 13 * i] = static_cast<std::uint8_t>(number >> (8 * i));
  return key;
}

struct TRecord {
  TChessboardRegisterItem key;
  TRegisterInfo info;
};

// A file in the temporary folder, removed when the test ends.
class CTempFile {
 public:
  explicit CTempFile(const std::string& name)
      : path(std::filesystem::temp_directory_path() /
             ("longmate-" + std::to_string(::getpid()) + "-" + name + ".cspdb")) {}
  ~CTempFile() { std::filesystem::remove(path); }
  const std::filesystem::path path;
};

// Writes the records, then the first nTailBytes bytes of one more record.
inline void WriteRecords(const std::filesystem::path& path, const std::vector<TRecord>& records,
                         std::size_t nTailBytes = 0) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  for (const TRecord& record : records) {
    out.write(reinterpret_cast<const char*>(record.key.bytes), 64);
    out.write(reinterpret_cast<const char*>(&record.info), 12);
  }
  const std::vector<char> tail(nTailBytes, '\x05');
  out.write(tail.data(), static_cast<std::streamsize>(tail.size()));
}

inline std::vector<TRecord> ReadRecords(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::vector<TRecord> records;
  TRecord record;
  while (in.read(reinterpret_cast<char*>(record.key.bytes), 64) &&
         in.read(reinterpret_cast<char*>(&record.info), 12)) {
    records.push_back(record);
  }
  return records;
}

}  // namespace registertest
