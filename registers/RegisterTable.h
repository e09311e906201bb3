#pragma once
#include <cstdint>
#include <memory>

#include "registers/ChessboardRegisterItem.h"
#include "registers/RegisterEntries.h"

// The keys of one shard in open addressing with Robin Hood linear probing: a key sits in
// its slot beside its entries, and a dense parallel array of probe distances and hash tags
// lets a probe pass foreign keys without reading them, so that a lookup in a large table
// costs about two memory reads where a node-based map costs three. Growth is by half and
// only one shard grows at a time, which keeps the memory a key costs near the register's
// reckoning. Not synchronised: the shard's lock guards it. Every hash given must be
// HashRegisterItem of the key.
class CRegisterTable {
 public:
  CRegisterTable() = default;
  CRegisterTable(const CRegisterTable&) = delete;
  CRegisterTable& operator=(const CRegisterTable&) = delete;

  std::size_t Size() const { return nSize; }
  const CRegisterEntries* Find(const TChessboardRegisterItem& key, std::uint64_t hash) const;
  // The entries of key, empty when the key is new. Growing may throw std::bad_alloc, and
  // then the table is as it was.
  CRegisterEntries& FindOrAdd(const TChessboardRegisterItem& key, std::uint64_t hash);
  // Lets update change the entries of every key, and drops the keys left empty.
  template <typename Update>
  void UpdateAll(Update update);
  template <typename Visit>
  void ForEach(Visit visit) const;
  void Clear();
  // Shrinks the arrays to what the keys need.
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
  std::size_t Previous(std::size_t i) const { return i == 0 ? nCapacity - 1 : i - 1; }
  std::size_t FindIndex(const TChessboardRegisterItem& key, std::uint64_t hash) const;
  // Files a new key where Robin Hood order wants it, shifting the run behind it by one
  // slot; kNone, with nothing changed, when a probe distance would overflow.
  std::size_t Place(const TChessboardRegisterItem& key, std::uint64_t hash);
  void EraseAt(std::size_t i);
  // Moves every key into arrays of the given capacity, allocated before anything moves.
  void Rebuild(std::size_t nNewCapacity);

  // Per slot: 0 when empty, otherwise probe distance + 1 in the low 16 bits and a hash tag
  // in the high 16.
  std::unique_ptr<std::uint32_t[]> meta;
  std::unique_ptr<TSlot[]> slots;
  std::size_t nCapacity = 0;
  std::size_t nSize = 0;
};

template <typename Update>
void CRegisterTable::UpdateAll(Update update) {
  // Erasing shifts later keys back by one slot, so the same slot is looked at again; a key
  // shifted from the start round to the end is updated twice, which updates allow.
  for (std::size_t i = 0; i < nCapacity;) {
    if (meta[i] != 0) {
      update(slots[i].entries);
      if (slots[i].entries.Empty()) {
        EraseAt(i);
        continue;
      }
    }
    ++i;
  }
}

template <typename Visit>
void CRegisterTable::ForEach(Visit visit) const {
  for (std::size_t i = 0; i < nCapacity; ++i) {
    if (meta[i] != 0) visit(slots[i].key, slots[i].entries);
  }
}
