#include "registers/RegisterShards.h"

CRegisterShards::CRegisterShards(std::atomic<std::uint32_t>& counter)
    : shards(kShards), whiteToMoveCount(counter) {}

std::uint8_t CRegisterShards::Find(const TChessboardRegisterItem& key, std::uint16_t n,
                                   bool bDefence) const {
  const std::uint64_t hash = HashRegisterItem(key);
  const TShard& shard = shards[ShardIndex(hash)];
  std::shared_lock lock(shard.mutex);
  const CRegisterEntries* entries = shard.table.Find(key, hash);
  return entries == nullptr ? kRegisterUnknown : entries->Find(n, bDefence);
}

TShardInsertion CRegisterShards::Insert(const TChessboardRegisterItem& key,
                                        const TRegisterInfo& info, bool bDefence, bool bPrune) {
  const std::uint64_t hash = HashRegisterItem(key);
  TShard& shard = shards[ShardIndex(hash)];
  std::unique_lock lock(shard.mutex);
  // A new key comes with no entries: the lookup cannot know it and the first Add cannot
  // fail, so no empty key is ever left behind.
  CRegisterEntries& entries = shard.table.FindOrAdd(key, hash);
  TShardInsertion result;
  result.known = entries.Find(info.nMoves, bDefence);
  if (result.known != kRegisterUnknown) return result;
  result.bAdded = entries.Add(info);
  if (!result.bAdded) return result;
  if ((info.nMoves & 1) != 0) {
    ++shard.nWhiteToMove;
    whiteToMoveCount.fetch_add(1, std::memory_order_relaxed);
  } else {
    ++shard.nBlackToMove;
    blackToMoveCount.fetch_add(1, std::memory_order_relaxed);
  }
  if (bPrune) Uncount(shard, entries.PruneRedundant(info, bDefence));
  return result;
}

void CRegisterShards::Uncount(TShard& shard, const TErasedEntries& erased) {
  const std::uint64_t nBlackToMove = erased.nAll - erased.nWhiteToMove;
  shard.nWhiteToMove -= erased.nWhiteToMove;
  shard.nBlackToMove -= nBlackToMove;
  if (erased.nWhiteToMove != 0)
    whiteToMoveCount.fetch_sub(static_cast<std::uint32_t>(erased.nWhiteToMove),
                               std::memory_order_relaxed);
  if (nBlackToMove != 0)
    blackToMoveCount.fetch_sub(static_cast<std::uint32_t>(nBlackToMove), std::memory_order_relaxed);
}

std::uint64_t CRegisterShards::RemoveUpTo(std::uint16_t n) {
  std::uint64_t nRemoved = 0;
  for (TShard& shard : shards) {
    std::unique_lock lock(shard.mutex);
    shard.table.UpdateAll([&](CRegisterEntries& entries) {
      const TErasedEntries erased = entries.RemoveUpTo(n);
      nRemoved += erased.nAll;
      Uncount(shard, erased);
    });
  }
  return nRemoved;
}

std::vector<std::uint64_t> CRegisterShards::CountByMoves(std::uint16_t nLast) const {
  std::vector<std::uint64_t> counts(nLast + 1u, 0);
  for (const TShard& shard : shards) {
    std::shared_lock lock(shard.mutex);
    shard.table.ForEach([&](const TChessboardRegisterItem&, const CRegisterEntries& entries) {
      for (const TRegisterInfo& info : entries) {
        if (info.nMoves <= nLast) ++counts[info.nMoves];
      }
    });
  }
  return counts;
}

void CRegisterShards::Clear() {
  for (TShard& shard : shards) {
    std::unique_lock lock(shard.mutex);
    Uncount(shard, {shard.nWhiteToMove + shard.nBlackToMove, shard.nWhiteToMove});
    shard.table.Clear();
  }
}

void CRegisterShards::Compact() {
  for (TShard& shard : shards) {
    std::unique_lock lock(shard.mutex);
    shard.table.Compact();
  }
}
