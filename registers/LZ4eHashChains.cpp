#include "registers/LZ4eHashChains.h"

#include <algorithm>

CLZ4eHashChains::CLZ4eHashChains() : chains(std::size_t{1} << 16) {}

void CLZ4eHashChains::Insert(std::uint32_t position, std::uint32_t word) {
  TChain& chain = chains[Hash(word)];
  if (chain.count == kMaxLength) {
    chain.start = (chain.start + kMaxLength - kLengthAfterCut) & kRingMask;
    chain.count = kLengthAfterCut;
  } else if (chain.count == chain.entries.size()) {
    chain.entries.resize(
        std::min<std::size_t>(kMaxLength, std::max<std::size_t>(8, 2 * chain.count)));
  }
  chain.entries[(chain.start + chain.count) & kRingMask] = std::uint64_t{word} << 32 | position;
  ++chain.count;
}

void CLZ4eHashChains::DropBefore(std::uint32_t oldest) {
  for (TChain& chain : chains) {
    std::uint32_t nDropped = 0;
    while (nDropped < chain.count &&
           static_cast<std::uint32_t>(chain.entries[(chain.start + nDropped) & kRingMask]) <
               oldest) {
      ++nDropped;
    }
    if (nDropped == 0) continue;
    chain.count -= nDropped;
    if (chain.entries.size() == kMaxLength) {
      chain.start = (chain.start + nDropped) & kRingMask;
    } else {
      // A storage below full size never wraps: keep its entries at the front.
      std::copy(chain.entries.begin() + nDropped, chain.entries.begin() + nDropped + chain.count,
                chain.entries.begin());
    }
  }
}
