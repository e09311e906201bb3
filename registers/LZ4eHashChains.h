#pragma once
#include <cstdint>
#include <memory>
#include <vector>

// The LZ4e encoder's match candidates: for each of 65536 hashes of a position's 4-byte word,
// the positions seen with that hash, oldest first. A chain keeps at most 4096 positions; a
// full chain drops its oldest ones down to the newest 4064 before taking one more, so it is
// cut once every 32 insertions. Each entry keeps its word beside its position, so that
// walking a chain compares words without touching the input.
class CLZ4eHashChains {
 public:
  static constexpr std::uint32_t kMaxLength = 4096;
  static constexpr std::uint32_t kLengthAfterCut = 4064;

  // Allocates the 65536 chain heads for up to nPositions insertions; may throw
  // std::bad_alloc (as may Insert).
  explicit CLZ4eHashChains(std::size_t nPositions);

  static std::uint32_t Hash(std::uint32_t word) { return ((word >> 15) ^ word) & 0xFFFF; }

  void Insert(std::uint32_t position, std::uint32_t word);
  // Starts loading the chain of word, which the caller will soon need.
  void Prefetch(std::uint32_t word) const { __builtin_prefetch(&chains[Hash(word)]); }
  // Drops from every chain the positions below oldest.
  void DropBefore(std::uint32_t oldest);
  // Calls visit(position, word) from the newest entry of the word's chain to the oldest,
  // until visit returns false.
  template <typename Visit>
  void ForEachNewestFirst(std::uint32_t word, Visit visit) const;

 private:
  // A ring of up to kMaxLength entries (word << 32 | position) starting at start. Its storage
  // doubles as it fills and wraps only once it has reached kMaxLength, so below that the
  // entries lie in order from index 0.
  struct TChain {
    std::uint64_t* entries = nullptr;
    std::uint16_t capacity = 0, start = 0, count = 0;
  };
  static constexpr std::uint32_t kRingMask = kMaxLength - 1;
  static constexpr std::size_t kMaxChunkEntries = std::size_t{1} << 18;

  void Grow(TChain& chain);

  std::unique_ptr<TChain[]> chains;
  // Chain storage is carved from large chunks, which are freed together: most chains are
  // short, and one allocation each would cost more than the search. Small inputs get small
  // chunks, so that compressing a few bytes does not touch megabytes.
  std::vector<std::unique_ptr<std::uint64_t[]>> chunks;
  const std::size_t nChunkEntries;
  std::size_t nChunkUsed;
};

template <typename Visit>
void CLZ4eHashChains::ForEachNewestFirst(std::uint32_t word, Visit visit) const {
  const TChain& chain = chains[Hash(word)];
  for (std::uint32_t i = chain.count; i-- > 0;) {
    const std::uint64_t entry = chain.entries[(chain.start + i) & kRingMask];
    if (!visit(static_cast<std::uint32_t>(entry), static_cast<std::uint32_t>(entry >> 32))) {
      return;
    }
  }
}
