#pragma once
#include <cstdint>
#include <memory>
#include <vector>

#include "registers/ChessboardRegisterItem.h"
#include "registers/RegisterEntries.h"

// The keys of one shard: a dense pool of keys with their entries, found through an index
// in open addressing with Robin Hood linear probing. An index cell is eight bytes (probe
// distance, hash tag, place in the pool), so a probe passes foreign keys without reading
// them and filing a key shifts cells, never keys: a lookup costs about two memory reads
// and an insertion little more. Index and pool grow by half, and only one shard grows at a
// time, which keeps the memory a key costs near the register's reckoning. Not
// synchronised: the shard's lock guards it. Every hash given must be HashRegisterItem of
// the key.
class CRegisterTable {
 public:
  CRegisterTable() = default;
  CRegisterTable(const CRegisterTable&) = delete;
  CRegisterTable& operator=(const CRegisterTable&) = delete;

  std::size_t Size() const { return pool.size(); }
  const CRegisterEntries* Find(const TChessboardRegisterItem& key, std::uint64_t hash) const;
  // The entries of key, empty when the key is new; valid until the table next changes.
  // Growing may throw std::bad_alloc, and then the table is as it was.
  CRegisterEntries& FindOrAdd(const TChessboardRegisterItem& key, std::uint64_t hash);
  // Lets update change the entries of every key, and drops the keys left empty.
  template <typename Update>
  void UpdateAll(Update update);
  template <typename Visit>
  void ForEach(Visit visit) const;
  void Clear();
  // Shrinks the index and the pool to what the keys need.
  void Compact();

 private:
  struct TSlot {
    TChessboardRegisterItem key;
    CRegisterEntries entries;
  };
  static constexpr std::size_t kNone = ~std::size_t{0};

  std::size_t Home(std::uint64_t hash) const {
    return static_cast<std::size_t>(((hash & 0xFFFFFFFF) * nCapacity) >> 32);
  }
  std::size_t Next(std::size_t i) const { return i + 1 == nCapacity ? 0 : i + 1; }
  std::size_t FindCell(const TChessboardRegisterItem& key, std::uint64_t hash) const;
  // Files a pool place where Robin Hood order wants it, shifting the run behind it by one
  // cell; false, with nothing changed, when a probe distance would overflow.
  bool PlaceCell(std::uint64_t hash, std::uint32_t place);
  void EraseCell(std::size_t i);
  // Drops the key at this pool place: the last key moves into its place.
  void EraseSlot(std::size_t place);
  // Files every key again in an index of the given capacity.
  void Rebuild(std::size_t nNewCapacity);

  // Per cell: 0 when empty, otherwise probe distance + 1 in bits 0-15, a hash tag in bits
  // 16-31 and the key's place in the pool in bits 32-63.
  std::unique_ptr<std::uint64_t[]> cells;
  std::size_t nCapacity = 0;
  std::vector<TSlot> pool;
};

template <typename Update>
void CRegisterTable::UpdateAll(Update update) {
  // Erasing moves the last key into the erased place, so that place is looked at again.
  for (std::size_t place = 0; place < pool.size();) {
    update(pool[place].entries);
    if (pool[place].entries.Empty())
      EraseSlot(place);
    else
      ++place;
  }
}

template <typename Visit>
void CRegisterTable::ForEach(Visit visit) const {
  for (const TSlot& slot : pool) visit(slot.key, slot.entries);
}
