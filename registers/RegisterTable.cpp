#include "registers/RegisterTable.h"

#include <algorithm>
#include <stdexcept>

namespace {
constexpr std::uint64_t kDistanceMask = 0xFFFF;
constexpr std::uint64_t kTagMask = 0xFFFF0000;
constexpr std::size_t kFirstCapacity = 16;

// Bits 32 to 47 of the hash: the low 32 pick the home cell, the top ones the shard.
std::uint64_t Tag(std::uint64_t hash) {
  return ((hash >> 32) & 0xFFFF) << 16;
}
std::size_t PlaceOf(std::uint64_t cell) {
  return static_cast<std::size_t>(cell >> 32);
}

// Probe distances stay within 16 bits; a run that long means a broken hash, not bad luck.
constexpr std::uint64_t kMaxDistance = kDistanceMask - 1;
}  // namespace

std::size_t CRegisterTable::FindCell(const TChessboardRegisterItem& key, std::uint64_t hash) const {
  if (pool.empty()) return kNone;
  const std::uint64_t tag = Tag(hash);
  std::size_t i = Home(hash);
  for (std::uint64_t distance = 1;; ++distance, i = Next(i)) {
    const std::uint64_t cell = cells[i];
    // Robin Hood order: a key never lies beyond a cell whose key is nearer its home.
    if ((cell & kDistanceMask) < distance) return kNone;
    if ((cell & kTagMask) == tag && pool[PlaceOf(cell)].key == key) return i;
  }
}

const CRegisterEntries* CRegisterTable::Find(const TChessboardRegisterItem& key,
                                             std::uint64_t hash) const {
  const std::size_t i = FindCell(key, hash);
  return i == kNone ? nullptr : &pool[PlaceOf(cells[i])].entries;
}

CRegisterEntries& CRegisterTable::FindOrAdd(const TChessboardRegisterItem& key,
                                            std::uint64_t hash) {
  const std::size_t found = FindCell(key, hash);
  if (found != kNone) return pool[PlaceOf(cells[found])].entries;
  // Everything that may throw comes first: room in the pool, then a larger index (grown
  // beyond seven eighths full, so that probe runs stay short).
  const std::size_t nSize = pool.size();
  if (nSize == pool.capacity()) pool.reserve(std::max(kFirstCapacity, nSize + nSize / 2));
  if (8 * (nSize + 1) > 7 * nCapacity) Rebuild(std::max(kFirstCapacity, nCapacity + nCapacity / 2));
  if (!PlaceCell(hash, static_cast<std::uint32_t>(nSize)))
    throw std::length_error("register table: probe run too long");
  pool.push_back(TSlot{key, CRegisterEntries()});
  return pool.back().entries;
}

bool CRegisterTable::PlaceCell(std::uint64_t hash, std::uint32_t place) {
  // Find the cell where the new key belongs, then the first empty cell behind it.
  std::size_t at = Home(hash);
  std::uint64_t distance = 1;
  while ((cells[at] & kDistanceMask) >= distance) {
    if (++distance > kMaxDistance) return false;
    at = Next(at);
  }
  std::size_t empty = at;
  for (; cells[empty] != 0; empty = Next(empty)) {
    if ((cells[empty] & kDistanceMask) + 1 > kMaxDistance) return false;
  }
  for (std::size_t i = empty; i != at;) {
    const std::size_t from = i == 0 ? nCapacity - 1 : i - 1;
    cells[i] = cells[from] + 1;
    i = from;
  }
  cells[at] = (static_cast<std::uint64_t>(place) << 32) | Tag(hash) | distance;
  return true;
}

void CRegisterTable::EraseCell(std::size_t i) {
  // Backward shift: the cells behind move one nearer their homes, leaving no holes.
  for (std::size_t next = Next(i); (cells[next] & kDistanceMask) > 1; i = next, next = Next(i))
    cells[i] = cells[next] - 1;
  cells[i] = 0;
}

void CRegisterTable::EraseSlot(std::size_t place) {
  EraseCell(FindCell(pool[place].key, HashRegisterItem(pool[place].key)));
  const std::size_t last = pool.size() - 1;
  if (place != last) {
    const std::size_t lastCell = FindCell(pool[last].key, HashRegisterItem(pool[last].key));
    cells[lastCell] = (cells[lastCell] & 0xFFFFFFFF) | (static_cast<std::uint64_t>(place) << 32);
    pool[place] = std::move(pool[last]);
  }
  pool.pop_back();
}

void CRegisterTable::Rebuild(std::size_t nNewCapacity) {
  auto rebuilt = std::make_unique<std::uint64_t[]>(nNewCapacity);
  std::swap(cells, rebuilt);
  const std::size_t nOldCapacity = nCapacity;
  nCapacity = nNewCapacity;
  for (std::size_t place = 0; place < pool.size(); ++place) {
    if (!PlaceCell(HashRegisterItem(pool[place].key), static_cast<std::uint32_t>(place))) {
      std::swap(cells, rebuilt);  // a failure leaves the table whole
      nCapacity = nOldCapacity;
      throw std::length_error("register table: probe run too long");
    }
  }
}

void CRegisterTable::Clear() {
  cells.reset();
  nCapacity = 0;
  pool = std::vector<TSlot>();
}

void CRegisterTable::Compact() {
  if (pool.empty()) {
    Clear();
    return;
  }
  pool.shrink_to_fit();
  const std::size_t nNeeded = std::max(kFirstCapacity, pool.size() + pool.size() / 2);
  if (nNeeded < nCapacity) Rebuild(nNeeded);
}
