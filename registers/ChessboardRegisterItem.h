#pragma once
#include <cstdint>
#include <cstring>

// The key of a register entry: 64 bytes built by the search that fully determine a
// sub-problem's position for either side to move. The register never looks inside;
// two keys are the same key only when all 64 bytes agree.
struct TChessboardRegisterItem {
  alignas(8) std::uint8_t bytes[64] = {};

  bool operator==(const TChessboardRegisterItem& other) const {
    return std::memcmp(bytes, other.bytes, sizeof bytes) == 0;
  }
};
static_assert(sizeof(TChessboardRegisterItem) == 64);

// Mixes all 64 bytes into every bit of the result: keys of real positions are mostly
// zero bytes and differ in a few of them, so a partial hash would crowd the buckets.
inline std::uint64_t HashRegisterItem(const TChessboardRegisterItem& item) {
  std::uint64_t hash = 0x9E3779B97F4A7C15ULL;
  for (int i = 0; i < 8; ++i) {
    std::uint64_t word;
    std::memcpy(&word, item.bytes + 8 * i, sizeof word);
    hash = (hash ^ word) * 0xBF58476D1CE4E5B9ULL;
    hash ^= hash >> 31;
  }
  hash *= 0x94D049BB133111EBULL;
  return hash ^ (hash >> 32);
}
