#pragma once
#include <cstdint>

// Converts between a set of k squares holding like pieces and the set's rank among all
// C(N, k) such sets. Precalculated data stores one value per position at a dense index, and
// placing like pieces as an unordered set saves the k! orders of the same placement.
// Ranks follow the lexicographic order of the sets' ascending square lists, from 0 to
// GetCount() - 1.
class CMappingCombinationIndexIntoSetBase {
 public:
  virtual ~CMappingCombinationIndexIntoSetBase() = default;

  // C(N, k).
  virtual std::uint64_t GetCount() const = 0;
  // The k ascending squares of the set at this rank (below GetCount()); the address stays
  // valid for the life of the process.
  virtual const unsigned char* GetSet(std::uint64_t index) const = 0;
  // The rank of k ascending squares, all among the mapping's N squares; other input gives
  // an unspecified rank.
  virtual std::uint64_t GetIndex(const unsigned char* squares) const = 0;

 protected:
  CMappingCombinationIndexIntoSetBase() = default;
  CMappingCombinationIndexIntoSetBase(const CMappingCombinationIndexIntoSetBase&) = delete;
  CMappingCombinationIndexIntoSetBase& operator=(const CMappingCombinationIndexIntoSetBase&) =
      delete;
};
