#include "registers/RegisterTable.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace {
constexpr std::uint32_t kDistanceMask = 0xFFFF;
constexpr std::size_t kFirstCapacity = 16;

// Bits 32 to 47 of the hash: the low 32 pick the home slot, the top ones the shard.
std::uint32_t Tag(std::uint64_t hash) {
  return static_cast<std::uint32_t>((hash >> 32) & 0xFFFF) << 16;
}

// Probe distances stay within 16 bits; a run that long means a broken hash, not bad luck.
constexpr std::uint32_t kMaxDistance = kDistanceMask - 1;
}  // namespace

std::size_t CRegisterTable::FindIndex(const TChessboardRegisterItem& key,
                                      std::uint64_t hash) const {
  if (nSize == 0) return kNone;
  const std::uint32_t tag = Tag(hash);
  std::size_t i = Home(hash);
  for (std::uint32_t distance = 1;; ++distance, i = Next(i)) {
    const std::uint32_t word = meta[i];
    // Robin Hood order: a key never lies beyond a slot whose key is nearer its home.
    if ((word & kDistanceMask) < distance) return kNone;
    if ((word & ~kDistanceMask) == tag && slots[i].key == key) return i;
  }
}

const CRegisterEntries* CRegisterTable::Find(const TChessboardRegisterItem& key,
                                             std::uint64_t hash) const {
  const std::size_t i = FindIndex(key, hash);
  return i == kNone ? nullptr : &slots[i].entries;
}

CRegisterEntries& CRegisterTable::FindOrAdd(const TChessboardRegisterItem& key,
                                            std::uint64_t hash) {
  const std::size_t found = FindIndex(key, hash);
  if (found != kNone) return slots[found].entries;
  // Grow by half beyond seven eighths full: probe runs stay short.
  if (8 * (nSize + 1) > 7 * nCapacity) Rebuild(std::max(kFirstCapacity, nCapacity + nCapacity / 2));
  const std::size_t placed = Place(key, hash);
  if (placed == kNone) throw std::length_error("register table: probe run too long");
  return slots[placed].entries;
}

std::size_t CRegisterTable::Place(const TChessboardRegisterItem& key, std::uint64_t hash) {
  // Find the slot where the new key belongs, then the first empty slot behind it.
  std::size_t at = Home(hash);
  std::uint32_t distance = 1;
  while ((meta[at] & kDistanceMask) >= distance) {
    if (++distance > kMaxDistance) return kNone;
    at = Next(at);
  }
  std::size_t empty = at;
  for (; meta[empty] != 0; empty = Next(empty)) {
    if ((meta[empty] & kDistanceMask) + 1 > kMaxDistance) return kNone;
  }
  for (std::size_t i = empty; i != at; i = Previous(i)) {
    const std::size_t from = Previous(i);
    slots[i] = std::move(slots[from]);
    meta[i] = meta[from] + 1;
  }
  slots[at].key = key;
  slots[at].entries = CRegisterEntries();
  meta[at] = Tag(hash) | distance;
  ++nSize;
  return at;
}

void CRegisterTable::EraseAt(std::size_t i) {
  // Backward shift: the keys behind move one slot nearer their homes, leaving no holes.
  for (std::size_t next = Next(i); (meta[next] & kDistanceMask) > 1; i = next, next = Next(i)) {
    slots[i] = std::move(slots[next]);
    meta[i] = meta[next] - 1;
  }
  slots[i].entries = CRegisterEntries();
  meta[i] = 0;
  --nSize;
}

void CRegisterTable::Rebuild(std::size_t nNewCapacity) {
  CRegisterTable rebuilt;
  rebuilt.meta = std::make_unique<std::uint32_t[]>(nNewCapacity);
  rebuilt.slots = std::make_unique<TSlot[]>(nNewCapacity);
  rebuilt.nCapacity = nNewCapacity;
  // Keys first, entries once every key has found its place: a failure leaves this table whole.
  for (std::size_t i = 0; i < nCapacity; ++i) {
    if (meta[i] != 0 && rebuilt.Place(slots[i].key, HashRegisterItem(slots[i].key)) == kNone) {
      throw std::length_error("register table: probe run too long");
    }
  }
  for (std::size_t i = 0; i < nCapacity; ++i) {
    if (meta[i] == 0) continue;
    const std::size_t at = rebuilt.FindIndex(slots[i].key, HashRegisterItem(slots[i].key));
    rebuilt.slots[at].entries = std::move(slots[i].entries);
  }
  std::swap(meta, rebuilt.meta);
  std::swap(slots, rebuilt.slots);
  nCapacity = nNewCapacity;
}

void CRegisterTable::Clear() {
  meta.reset();
  slots.reset();
  nCapacity = nSize = 0;
}

void CRegisterTable::Compact() {
  const std::size_t nNeeded = std::max(kFirstCapacity, nSize + nSize / 2);
  if (nSize == 0) {
    Clear();
  } else if (nNeeded < nCapacity) {
    Rebuild(nNeeded);
  }
}
