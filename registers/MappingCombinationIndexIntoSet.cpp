#include "registers/MappingCombinationIndexIntoSet.h"

#include <algorithm>
#include <stdexcept>
#include <string>

template <unsigned N, unsigned k, typename TSquare, unsigned F>
CMappingCombinationIndexIntoSet<N, k, TSquare, F>::CMappingCombinationIndexIntoSet()
    : sets(std::make_unique_for_overwrite<TSquare[]>(kCount * k)) {
  // Lexicographic enumeration: start from F, F + 1, ...; the next set raises the last square
  // that can still rise and lays the ones after it right behind it.
  TSquare set[k];
  for (unsigned i = 0; i < k; ++i) set[i] = static_cast<TSquare>(F + i);
  for (std::uint64_t rank = 0; rank < kCount; ++rank) {
    std::copy(set, set + k, sets.get() + rank * k);
    int i = k - 1;
    while (i >= 0 && set[i] == F + N - k + static_cast<unsigned>(i)) --i;
    if (i < 0) break;
    ++set[i];
    for (unsigned j = i + 1; j < k; ++j) set[j] = static_cast<TSquare>(set[j - 1] + 1);
  }
}

template class CMappingCombinationIndexIntoSet<64, 2, unsigned char, 0>;
template class CMappingCombinationIndexIntoSet<64, 3, unsigned char, 0>;
template class CMappingCombinationIndexIntoSet<64, 4, unsigned char, 0>;
template class CMappingCombinationIndexIntoSet<64, 5, unsigned char, 0>;
template class CMappingCombinationIndexIntoSet<48, 2, unsigned char, 8>;
template class CMappingCombinationIndexIntoSet<48, 3, unsigned char, 8>;
template class CMappingCombinationIndexIntoSet<48, 4, unsigned char, 8>;
template class CMappingCombinationIndexIntoSet<48, 5, unsigned char, 8>;

namespace {
template <unsigned N, unsigned k, unsigned F>
const CMappingCombinationIndexIntoSetBase& InstanceOf() {
  return CMappingCombinationIndexIntoSet<N, k, unsigned char, F>::Instance();
}
}  // namespace

const CMappingCombinationIndexIntoSetBase& GetCombinationMapping(bool bPawnSquares, unsigned k) {
  using TInstanceOf = const CMappingCombinationIndexIntoSetBase& (*)();
  static constexpr TInstanceOf kInstances[2][4] = {
      {&InstanceOf<64, 2, 0>, &InstanceOf<64, 3, 0>, &InstanceOf<64, 4, 0>, &InstanceOf<64, 5, 0>},
      {&InstanceOf<48, 2, 8>, &InstanceOf<48, 3, 8>, &InstanceOf<48, 4, 8>, &InstanceOf<48, 5, 8>}};
  if (k < 2 || k > combination_index::kMaxPieces) {
    throw std::out_of_range("no combination mapping for " + std::to_string(k) + " pieces");
  }
  return kInstances[bPawnSquares ? 1 : 0][k - 2]();
}
