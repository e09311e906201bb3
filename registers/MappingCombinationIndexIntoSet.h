#pragma once
#include <cstdint>
#include <memory>
#include <type_traits>

#include "registers/MappingCombinationIndexIntoSetBase.h"

namespace combination_index {

inline constexpr unsigned kMaxSquares = 64;
inline constexpr unsigned kMaxPieces = 5;

// counts[n][k][d]: among the k-sets of n consecutive squares, how many start on one of the
// first d of them, i.e. the sum over i < d of C(n - 1 - i, k - 1). A plain array: the ranks
// are computed on the hot path of table lookups, also in unoptimised builds.
struct TSetsBeforeTable {
  std::uint64_t counts[kMaxSquares + 1][kMaxPieces + 1][kMaxSquares + 1];
};
consteval TSetsBeforeTable MakeSetsBeforeTable() {
  std::uint64_t choose[kMaxSquares + 1][kMaxPieces + 1] = {};
  for (unsigned n = 0; n <= kMaxSquares; ++n) {
    choose[n][0] = 1;
    for (unsigned k = 1; k <= kMaxPieces && n > 0; ++k) {
      choose[n][k] = choose[n - 1][k - 1] + choose[n - 1][k];
    }
  }
  TSetsBeforeTable table{};
  for (unsigned n = 1; n <= kMaxSquares; ++n) {
    for (unsigned k = 1; k <= kMaxPieces; ++k) {
      for (unsigned d = 1; d <= n; ++d) {
        table.counts[n][k][d] = table.counts[n][k][d - 1] + choose[n - d][k - 1];
      }
    }
  }
  return table;
}
inline constexpr TSetsBeforeTable kSetsBefore = MakeSetsBeforeTable();

// The rank of k ascending squares taken from the n squares first, first + 1, ...: each
// square but the last two adds the sets that start lower, and the remaining squares are
// then ranked among those after it; the last two have a closed form.
template <unsigned n, unsigned k, unsigned first>
inline std::uint64_t RankOfSet(const unsigned char* squares) {
  static_assert(k >= 2 && k <= kMaxPieces && n <= kMaxSquares);
  std::uint64_t rank = 0;
  unsigned nLeft = n, start = first;
  for (unsigned i = 0; i + 2 < k; ++i) {
    const unsigned d = squares[i] - start;
    rank += kSetsBefore.counts[nLeft][k - i][d];
    nLeft -= d + 1;
    start = squares[i] + 1u;
  }
  // The product is even, so the halving is exact.
  const std::uint64_t a = squares[k - 2] - start, b = squares[k - 1] - start;
  return rank + ((2 * nLeft - 1 - a) * a) / 2 + b - a - 1;
}

}  // namespace combination_index

// The mapping for k like pieces on the N squares F, F + 1, ..., F + N - 1. Each instance
// holds all C(N, k) sets, k bytes each, in rank order, so both directions take constant time.
// Instances are built on first use (the five-piece whole-board one holds 38 MB) and shared
// by the whole process; Instance() may be called from any thread.
template <unsigned N, unsigned k, typename TSquare, unsigned F>
class CMappingCombinationIndexIntoSet final : public CMappingCombinationIndexIntoSetBase {
  static_assert(std::is_same_v<TSquare, unsigned char>, "squares are held as bytes");
  static_assert(k >= 2 && k <= combination_index::kMaxPieces && F + N <= 64);

 public:
  static const CMappingCombinationIndexIntoSet& Instance() {
    static const CMappingCombinationIndexIntoSet instance;
    return instance;
  }

  std::uint64_t GetCount() const override { return kCount; }
  const TSquare* GetSet(std::uint64_t index) const override { return sets.get() + index * k; }
  std::uint64_t GetIndex(const TSquare* squares) const override {
    return combination_index::RankOfSet<N, k, F>(squares);
  }

  static constexpr std::uint64_t kCount = combination_index::kSetsBefore.counts[N][k][N];

 private:
  CMappingCombinationIndexIntoSet();
  std::unique_ptr<TSquare[]> sets;
};

// The instances precalculated data uses: the whole board, and the squares 8 to 55 where
// pawns can stand, each for two to five like pieces.
extern template class CMappingCombinationIndexIntoSet<64, 2, unsigned char, 0>;
extern template class CMappingCombinationIndexIntoSet<64, 3, unsigned char, 0>;
extern template class CMappingCombinationIndexIntoSet<64, 4, unsigned char, 0>;
extern template class CMappingCombinationIndexIntoSet<64, 5, unsigned char, 0>;
extern template class CMappingCombinationIndexIntoSet<48, 2, unsigned char, 8>;
extern template class CMappingCombinationIndexIntoSet<48, 3, unsigned char, 8>;
extern template class CMappingCombinationIndexIntoSet<48, 4, unsigned char, 8>;
extern template class CMappingCombinationIndexIntoSet<48, 5, unsigned char, 8>;

// The shared instance for k like pieces (2 to 5) on the whole board or on the pawn squares,
// for callers that learn k at run time; other k throw std::out_of_range.
const CMappingCombinationIndexIntoSetBase& GetCombinationMapping(bool bPawnSquares, unsigned k);
