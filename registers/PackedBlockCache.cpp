#include "registers/PackedBlockCache.h"

#include <mutex>

namespace {

// Block indexes stay far below 2^20: a file would need 16 TiB of data to reach it.
constexpr int kBlockBits = 20;

}  // namespace

unsigned char CPackedBlockCache::Byte(const CPackedDataFile& file, std::uint64_t nFileKey,
                                      std::uint64_t offset) {
  const std::size_t index = static_cast<std::size_t>(offset / kPackedBlockSize);
  const std::size_t at = static_cast<std::size_t>(offset % kPackedBlockSize);
  const std::uint64_t key = (nFileKey << kBlockBits) | index;
  {
    std::shared_lock guard(lock);
    const auto found = blocks.find(key);
    if (found != blocks.end()) {
      // Stamped with the count of unpacked blocks, not of lookups: a block used since the
      // latest unpacking counts as newest, and lookups write no shared counter.
      const std::uint64_t now = nUses.load(std::memory_order_relaxed);
      auto& stamp = found->second->nLastUse;
      if (stamp.load(std::memory_order_relaxed) != now) stamp.store(now, std::memory_order_relaxed);
      return found->second->bytes.at(at);
    }
  }
  std::vector<unsigned char> bytes = file.ReadBlock(index);
  const unsigned char byte = bytes.at(at);
  Insert(key, std::move(bytes));
  return byte;
}

void CPackedBlockCache::Insert(std::uint64_t key, std::vector<unsigned char> bytes) {
  std::unique_lock guard(lock);
  if (blocks.count(key) != 0) return;  // another thread unpacked it meanwhile
  Evict(bytes.size());
  auto block = std::make_unique<TBlock>();
  block->bytes = std::move(bytes);
  block->nLastUse = ++nUses;
  nHeldBytes += block->bytes.size();
  blocks.emplace(key, std::move(block));
}

void CPackedBlockCache::Evict(std::uint64_t nNewBytes) {
  while (!blocks.empty() && nHeldBytes + nNewBytes > nBudget) {
    auto oldest = blocks.begin();
    for (auto it = blocks.begin(); it != blocks.end(); ++it) {
      if (it->second->nLastUse < oldest->second->nLastUse) oldest = it;
    }
    nHeldBytes -= oldest->second->bytes.size();
    blocks.erase(oldest);
  }
}

std::uint64_t CPackedBlockCache::HeldBytes() const {
  std::shared_lock guard(lock);
  return nHeldBytes;
}

std::size_t CPackedBlockCache::HeldBlocks() const {
  std::shared_lock guard(lock);
  return blocks.size();
}
