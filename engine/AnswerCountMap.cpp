#include "engine/AnswerCountMap.h"

#include "core/ChessException.h"

void CAnswerCountMap::Add(int nMoves, TMove key) {
  TAnswerCountEntry& entry = entries[nMoves];
  ++entry.nCount;
  entry.moves.push_back(key.Code());
}

int CAnswerCountMap::GetAnswerCountFromMap(TMove move) const {
  for (const auto& [nMoves, entry] : entries)
    for (std::uint32_t code : entry.moves)
      if (TMove::FromCode(code).SameMove(move)) return entry.nCount;
  throw ChessException("Error in GetAnswerCountFromMap!");
}
