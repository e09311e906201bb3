#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <shared_mutex>
#include <unordered_map>
#include <vector>

#include "registers/PackedDataFile.h"

// Unpacked blocks of packed data files, kept within a byte budget: the block not used for
// the longest time (counted in blocks unpacked since) leaves first. Files read through it
// are probed block by block instead of being loaded whole. The newest block always stays,
// even when it alone exceeds the budget.
// Safe to call from several threads: lookups share a lock, a block is unpacked outside it.
class CPackedBlockCache {
 public:
  explicit CPackedBlockCache(std::uint64_t nBudgetBytes) : nBudget(nBudgetBytes) {}

  // A number that names a file in the cache for its lifetime; never reused.
  std::uint64_t NewFileKey() { return ++nLastFileKey; }

  // The byte at offset of the unpacked data of file (whose key is nFileKey). Throws as
  // CPackedDataFile::ReadBlock when the block cannot be read.
  unsigned char Byte(const CPackedDataFile& file, std::uint64_t nFileKey, std::uint64_t offset);

  std::uint64_t HeldBytes() const;
  std::size_t HeldBlocks() const;

 private:
  struct TBlock {
    std::vector<unsigned char> bytes;
    std::atomic<std::uint64_t> nLastUse{0};
  };
  void Insert(std::uint64_t key, std::vector<unsigned char> bytes);
  void Evict(std::uint64_t nNewBytes);

  const std::uint64_t nBudget;
  std::atomic<std::uint64_t> nLastFileKey{0};
  std::atomic<std::uint64_t> nUses{0};
  mutable std::shared_mutex lock;
  std::unordered_map<std::uint64_t, std::unique_ptr<TBlock>> blocks;
  std::uint64_t nHeldBytes = 0;
};
