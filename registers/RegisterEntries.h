#pragma once
#include <cstdint>

#include "registers/SubproblemRegisterInfo.h"

// Outcome of erasing entries: how many went, and how many of them had White to move
// (odd move counts), the only ones counted against the register's limit.
struct TErasedEntries {
  std::uint64_t nAll = 0;
  std::uint64_t nWhiteToMove = 0;
};

// The entries of one key, at most one per move count, in ascending move count. Most keys
// are met under a single move count, so one entry lives inline and only a key with
// more spills to the heap. Answers are monotone in the move count, which the lookup
// and the pruning below rely on.
class CRegisterEntries {
 public:
  CRegisterEntries() = default;
  CRegisterEntries(const CRegisterEntries&) = delete;
  CRegisterEntries& operator=(const CRegisterEntries&) = delete;
  // Moving hands the heap array over, so that hash table slots can move without allocating.
  CRegisterEntries(CRegisterEntries&& other) noexcept;
  CRegisterEntries& operator=(CRegisterEntries&& other) noexcept;
  ~CRegisterEntries();

  const TRegisterInfo* begin() const { return Data(); }
  const TRegisterInfo* end() const { return Data() + nSize; }
  bool Empty() const { return nSize == 0; }

  // 1, 0 or kRegisterUnknown for move count n, looking only at entries of one side to
  // move: odd counts for White (mate), even counts for Black (defence).
  std::uint8_t Find(std::uint16_t n, bool bDefence) const;
  // Files info under its move count; false, leaving the entry there, when one is held.
  bool Add(const TRegisterInfo& info);
  // Erases the entries of info's parity that info makes redundant: shorter ones with the
  // answer that holds for every shorter count, longer ones with the answer that holds for
  // every longer count.
  TErasedEntries PruneRedundant(const TRegisterInfo& info, bool bDefence);
  // Erases every entry whose move count is at most n.
  TErasedEntries RemoveUpTo(std::uint16_t n);

 private:
  TRegisterInfo* Data() { return nSize > 1 ? heap : &single; }
  const TRegisterInfo* Data() const { return nSize > 1 ? heap : &single; }
  template <typename Predicate>
  TErasedEntries EraseIf(Predicate erase);

  // The heap array is in use exactly while there are two entries or more; its capacity
  // is at least the next power of two of nSize, and it grows when nSize is one.
  std::uint32_t nSize = 0;
  TRegisterInfo single{};
  TRegisterInfo* heap = nullptr;
};
