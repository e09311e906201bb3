#include "engine/DoubtfulStore.h"

#include <cstring>

namespace {
// Position keys use bytes 0 to 32; the heuristics go behind them with a mark no key has.
constexpr int kHeuristicsOffset = 40;
constexpr int kMarkOffset = 48;
constexpr std::uint8_t kDoubtfulMark = 0xD0;
}  // namespace

TChessboardRegisterItem CRegisterDoubtfulStore::DoubtfulKey(const TChessboardRegisterItem& key,
                                                            const THeuristicsKey& heuristics) {
  TChessboardRegisterItem doubtful = key;
  std::memcpy(doubtful.bytes + kHeuristicsOffset, &heuristics.mask, sizeof heuristics.mask);
  std::memcpy(doubtful.bytes + kHeuristicsOffset + 4, &heuristics.params, sizeof heuristics.params);
  doubtful.bytes[kMarkOffset] = kDoubtfulMark;
  return doubtful;
}

bool CRegisterDoubtfulStore::FindDoubtful(std::uint16_t plies, const TChessboardRegisterItem& key,
                                          const THeuristicsKey& heuristics) const {
  return registerOfAnswers.FindAnswer(plies, DoubtfulKey(key, heuristics)) == 0;
}

void CRegisterDoubtfulStore::StoreDoubtful(std::uint16_t plies, const TChessboardRegisterItem& key,
                                           const THeuristicsKey& heuristics) {
  registerOfAnswers.Insert(plies, DoubtfulKey(key, heuristics), 0, &heuristics.mask);
  nStored.fetch_add(1, std::memory_order_relaxed);
}
