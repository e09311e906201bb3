#include "registers/LZ4eHashChains.h"

#include <algorithm>

CLZ4eHashChains::CLZ4eHashChains(std::size_t nPositions)
    : chains(std::make_unique<TChain[]>(std::size_t{1} << 16)),
      nChunkEntries(std::clamp<std::size_t>(2 * nPositions, kMaxLength, kMaxChunkEntries)),
      nChunkUsed(nChunkEntries) {}

void CLZ4eHashChains::Insert(std::uint32_t position, std::uint32_t word) {
  TChain& chain = chains[Hash(word)];
  if (chain.count == kMaxLength) {
    chain.start =
        static_cast<std::uint16_t>((chain.start + kMaxLength - kLengthAfterCut) & kRingMask);
    chain.count = kLengthAfterCut;
  } else if (chain.count == chain.capacity) {
    Grow(chain);
  }
  chain.entries[(chain.start + chain.count) & kRingMask] = std::uint64_t{word} << 32 | position;
  ++chain.count;
}

// Only a chain below full size grows, so its entries lie from index 0.
void CLZ4eHashChains::Grow(TChain& chain) {
  const auto capacity = static_cast<std::uint16_t>(chain.capacity == 0 ? 8 : 2 * chain.capacity);
  if (nChunkUsed + capacity > nChunkEntries) {
    chunks.push_back(std::make_unique_for_overwrite<std::uint64_t[]>(nChunkEntries));
    nChunkUsed = 0;
  }
  std::uint64_t* entries = chunks.back().get() + nChunkUsed;
  nChunkUsed += capacity;
  std::copy(chain.entries, chain.entries + chain.count, entries);
  chain.entries = entries;
  chain.capacity = capacity;
}

void CLZ4eHashChains::DropBefore(std::uint32_t oldest) {
  for (std::size_t h = 0; h < (std::size_t{1} << 16); ++h) {
    TChain& chain = chains[h];
    std::uint32_t nDropped = 0;
    while (nDropped < chain.count &&
           static_cast<std::uint32_t>(chain.entries[(chain.start + nDropped) & kRingMask]) <
               oldest) {
      ++nDropped;
    }
    if (nDropped == 0) continue;
    chain.count = static_cast<std::uint16_t>(chain.count - nDropped);
    if (chain.capacity == kMaxLength) {
      chain.start = static_cast<std::uint16_t>((chain.start + nDropped) & kRingMask);
    } else {
      // Storage below full size never wraps: keep its entries at the front.
      std::copy(chain.entries + nDropped, chain.entries + nDropped + chain.count, chain.entries);
    }
  }
}
