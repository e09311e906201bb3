#include "registers/RegisterEntries.h"

#include <algorithm>
#include <bit>

namespace {
bool IsOdd(std::uint16_t n) {
  return (n & 1) != 0;
}

// The answer that, once proved for n moves, holds for every longer count of the same
// side: White's mate (1), or Black's lack of a defence (0).
std::uint8_t AnswerHoldingUpwards(bool bDefence) {
  return bDefence ? 0 : 1;
}
std::uint8_t LowByte(std::uint32_t answer) {
  return static_cast<std::uint8_t>(answer & 0xFF);
}
}  // namespace

CRegisterEntries::CRegisterEntries(CRegisterEntries&& other) noexcept
    : nSize(other.nSize), single(other.single), heap(other.heap) {
  other.nSize = 0;
  other.heap = nullptr;
}

CRegisterEntries& CRegisterEntries::operator=(CRegisterEntries&& other) noexcept {
  if (this != &other) {
    if (nSize > 1) delete[] heap;
    nSize = other.nSize;
    single = other.single;
    heap = other.heap;
    other.nSize = 0;
    other.heap = nullptr;
  }
  return *this;
}

CRegisterEntries::~CRegisterEntries() {
  if (nSize > 1) delete[] heap;
}

std::uint8_t CRegisterEntries::Find(std::uint16_t n, bool bDefence) const {
  const std::uint8_t upwards = AnswerHoldingUpwards(bDefence);
  const std::uint8_t downwards = 1 - upwards;
  for (const TRegisterInfo& entry : *this) {
    if (IsOdd(entry.nMoves) == bDefence) continue;
    const std::uint8_t answer = LowByte(entry.answer);
    if (answer == upwards && entry.nMoves <= n) return upwards;
    if (answer == downwards && entry.nMoves >= n) return downwards;
  }
  return kRegisterUnknown;
}

bool CRegisterEntries::Add(const TRegisterInfo& info) {
  TRegisterInfo* data = Data();
  TRegisterInfo* position = std::lower_bound(
      data, data + nSize, info.nMoves,
      [](const TRegisterInfo& entry, std::uint16_t n) { return entry.nMoves < n; });
  if (position != data + nSize && position->nMoves == info.nMoves) return false;
  const std::uint32_t index = static_cast<std::uint32_t>(position - data);
  if (nSize == 0) {
    single = info;
  } else if (std::has_single_bit(nSize)) {
    // Allocate before touching anything, so that a failed allocation leaves the list whole.
    TRegisterInfo* grown = new TRegisterInfo[2 * nSize];
    std::copy(data, data + index, grown);
    grown[index] = info;
    std::copy(data + index, data + nSize, grown + index + 1);
    if (nSize > 1) delete[] heap;
    heap = grown;
  } else {
    std::copy_backward(data + index, data + nSize, data + nSize + 1);
    data[index] = info;
  }
  ++nSize;
  return true;
}

template <typename Predicate>
TErasedEntries CRegisterEntries::EraseIf(Predicate erase) {
  TErasedEntries erased;
  TRegisterInfo* data = Data();
  std::uint32_t kept = 0;
  for (std::uint32_t i = 0; i < nSize; ++i) {
    if (erase(data[i])) {
      ++erased.nAll;
      if (IsOdd(data[i].nMoves)) ++erased.nWhiteToMove;
    } else {
      data[kept++] = data[i];
    }
  }
  if (nSize > 1 && kept <= 1) {
    if (kept == 1) single = heap[0];
    delete[] heap;
    heap = nullptr;
  }
  nSize = kept;
  return erased;
}

TErasedEntries CRegisterEntries::PruneRedundant(const TRegisterInfo& info, bool bDefence) {
  const std::uint8_t answer = LowByte(info.answer);
  const bool bUpwards = answer == AnswerHoldingUpwards(bDefence);
  if (!bUpwards && answer != 1 - AnswerHoldingUpwards(bDefence)) return {};
  return EraseIf([&](const TRegisterInfo& entry) {
    if (IsOdd(entry.nMoves) != IsOdd(info.nMoves) || LowByte(entry.answer) != answer) return false;
    return bUpwards ? entry.nMoves > info.nMoves : entry.nMoves < info.nMoves;
  });
}

TErasedEntries CRegisterEntries::RemoveUpTo(std::uint16_t n) {
  return EraseIf([n](const TRegisterInfo& entry) { return entry.nMoves <= n; });
}
