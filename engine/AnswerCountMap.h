#pragma once
#include <cstdint>
#include <map>
#include <vector>

#include "core/Move.h"

// The root's record of answers: entries keyed by the number of moves within which their
// keys mate, each holding how many keys it has and which.
struct TAnswerCountEntry {
  int nCount = 0;
  std::vector<std::uint32_t> moves;
};

class CAnswerCountMap {
 public:
  void Add(int nMoves, TMove key);
  // The count of the entry holding move (from, to and promotion type compared);
  // throws ChessException "Error in GetAnswerCountFromMap!" when none holds it.
  int GetAnswerCountFromMap(TMove move) const;
  const std::map<int, TAnswerCountEntry>& Entries() const { return entries; }

 private:
  std::map<int, TAnswerCountEntry> entries;
};
