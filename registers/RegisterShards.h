#pragma once
#include <atomic>
#include <cstdint>
#include <mutex>
#include <shared_mutex>
#include <vector>

#include "registers/ChessboardRegisterItem.h"
#include "registers/RegisterEntries.h"
#include "registers/RegisterTable.h"

// What an insertion under the key's lock found and did.
struct TShardInsertion {
  std::uint8_t known = kRegisterUnknown;  // answer the store already gave for the move count
  bool bAdded = false;                    // the entry was filed
};

// The exact store of a register: keys spread by hash over many independently locked
// shards, so that search threads reading and filing different keys rarely meet. Each
// key holds all its move counts, which keeps every rule about one key under one lock.
// The count of White-to-move entries is kept in the counter given at construction and
// changed only under the lock of the shard that changed, so it never runs below zero.
class CRegisterShards {
 public:
  static constexpr int kShardBits = 8;
  static constexpr int kShards = 1 << kShardBits;

  explicit CRegisterShards(std::atomic<std::uint32_t>& whiteToMoveCount);
  CRegisterShards(const CRegisterShards&) = delete;
  CRegisterShards& operator=(const CRegisterShards&) = delete;

  std::uint8_t Find(const TChessboardRegisterItem& key, std::uint16_t n, bool bDefence) const;
  // Lookup, filing and optional pruning done at once under the key's lock; nothing is
  // filed when the lookup already knows an answer.
  TShardInsertion Insert(const TChessboardRegisterItem& key, const TRegisterInfo& info,
                         bool bDefence, bool bPrune);
  // Erases every entry whose move count is at most n; returns how many went.
  std::uint64_t RemoveUpTo(std::uint16_t n);
  // Entries with Black to move (even move counts), which the shared count leaves out.
  std::uint32_t BlackToMoveCount() const {
    return blackToMoveCount.load(std::memory_order_relaxed);
  }
  // Number of entries per move count, for move counts 0 to nLast (longer ones are not counted).
  std::vector<std::uint64_t> CountByMoves(std::uint16_t nLast) const;
  void Clear();
  // Gives back the bucket memory that erased entries left behind.
  void Compact();

  // Calls visit(key, info) for every entry, each shard under its read lock.
  template <typename Visitor>
  void ForEach(Visitor visit) const {
    for (const TShard& shard : shards) {
      std::shared_lock lock(shard.mutex);
      shard.table.ForEach([&](const TChessboardRegisterItem& key, const CRegisterEntries& entries) {
        for (const TRegisterInfo& info : entries) visit(key, info);
      });
    }
  }

 private:
  struct alignas(64) TShard {
    mutable std::shared_mutex mutex;
    CRegisterTable table;
    std::uint64_t nWhiteToMove = 0;  // this shard's share of the shared count
    std::uint64_t nBlackToMove = 0;  // and of the count of Black-to-move entries
  };

  static std::size_t ShardIndex(std::uint64_t hash) { return hash >> (64 - kShardBits); }
  void Uncount(TShard& shard, const TErasedEntries& erased);

  std::vector<TShard> shards;
  std::atomic<std::uint32_t>& whiteToMoveCount;
  std::atomic<std::uint32_t> blackToMoveCount{0};
};
