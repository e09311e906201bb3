#include "registers/RegisterShards.h"

CRegisterShards::CRegisterShards(std::atomic<std::uint32_t>& whiteToMoveCount)
    : shards(kShards), whiteToMoveCount(whiteToMoveCount) {}

std::uint8_t CRegisterShards::Find(const TChessboardRegisterItem& key, std::uint16_t n,
                                   bool bDefence) const {
  const TShard& shard = ShardOf(key);
  std::shared_lock lock(shard.mutex);
  const auto found = shard.map.find(key);
  return found == shard.map.end() ? kRegisterUnknown : found->second.Find(n, bDefence);
}

TShardInsertion CRegisterShards::Insert(const TChessboardRegisterItem& key,
                                        const TRegisterInfo& info, bool bDefence, bool bPrune) {
  TShard& shard = ShardOf(key);
  std::unique_lock lock(shard.mutex);
  auto [position, bNewKey] = shard.map.try_emplace(key);
  CRegisterEntries& entries = position->second;
  TShardInsertion result;
  result.known = bNewKey ? kRegisterUnknown : entries.Find(info.nMoves, bDefence);
  if (result.known != kRegisterUnknown) return result;
  try {
    result.bAdded = entries.Add(info);
  } catch (...) {
    if (entries.Empty()) shard.map.erase(position);
    throw;
  }
  if (!result.bAdded) return result;
  if ((info.nMoves & 1) != 0) {
    ++shard.nWhiteToMove;
    whiteToMoveCount.fetch_add(1, std::memory_order_relaxed);
  }
  if (bPrune) Uncount(shard, entries.PruneRedundant(info, bDefence).nWhiteToMove);
  return result;
}

void CRegisterShards::Uncount(TShard& shard, std::uint64_t nWhiteToMove) {
  if (nWhiteToMove == 0) return;
  shard.nWhiteToMove -= nWhiteToMove;
  whiteToMoveCount.fetch_sub(static_cast<std::uint32_t>(nWhiteToMove), std::memory_order_relaxed);
}

std::uint64_t CRegisterShards::RemoveUpTo(std::uint16_t n) {
  std::uint64_t nRemoved = 0;
  for (TShard& shard : shards) {
    std::unique_lock lock(shard.mutex);
    for (auto position = shard.map.begin(); position != shard.map.end();) {
      const TErasedEntries erased = position->second.RemoveUpTo(n);
      nRemoved += erased.nAll;
      Uncount(shard, erased.nWhiteToMove);
      position = position->second.Empty() ? shard.map.erase(position) : std::next(position);
    }
  }
  return nRemoved;
}

std::vector<std::uint64_t> CRegisterShards::CountByMoves(std::uint16_t nLast) const {
  std::vector<std::uint64_t> counts(nLast + 1u, 0);
  for (const TShard& shard : shards) {
    std::shared_lock lock(shard.mutex);
    for (const auto& [key, entries] : shard.map) {
      for (const TRegisterInfo& info : entries) {
        if (info.nMoves <= nLast) ++counts[info.nMoves];
      }
    }
  }
  return counts;
}

void CRegisterShards::Clear() {
  for (TShard& shard : shards) {
    std::unique_lock lock(shard.mutex);
    Uncount(shard, shard.nWhiteToMove);
    decltype(shard.map)().swap(shard.map);
  }
}

void CRegisterShards::Compact() {
  for (TShard& shard : shards) {
    std::unique_lock lock(shard.mutex);
    shard.map.rehash(0);
  }
}
