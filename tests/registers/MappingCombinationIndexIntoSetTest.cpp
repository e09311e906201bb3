#include <gtest/gtest.h>

#include <stdexcept>

#include "registers/MappingCombinationIndexIntoSet.h"

namespace {

struct TInstance {
  bool bPawnSquares;
  unsigned k;
  unsigned nSquares, first;
  std::uint64_t nSets;
};

class CombinationMapping : public testing::TestWithParam<TInstance> {};

// A set of k ascending squares of the range that follows the previous set in lexicographic
// order. Plain loops: the test visits 7.6 million sets in unoptimised builds.
bool IsNextSet(const unsigned char* set, const unsigned char* previous, const TInstance& instance) {
  if (set[0] < instance.first || set[instance.k - 1] >= instance.first + instance.nSquares) {
    return false;
  }
  for (unsigned i = 1; i < instance.k; ++i) {
    if (set[i - 1] >= set[i]) return false;
  }
  if (previous == nullptr) return true;
  unsigned i = 0;
  while (i < instance.k && set[i] == previous[i]) ++i;
  return i < instance.k && set[i] > previous[i];
}

// With C(N, k) sets, each following the one before, the table holds every set once in rank
// order, and GetIndex has to give back each set's place.
TEST_P(CombinationMapping, EverySetIsStoredInRankOrderAndRanksBackToItsPlace) {
  const TInstance& instance = GetParam();
  const auto& mapping = GetCombinationMapping(instance.bPawnSquares, instance.k);
  ASSERT_EQ(mapping.GetCount(), instance.nSets);
  const unsigned char* previous = nullptr;
  std::uint64_t nFailures = 0;
  for (std::uint64_t rank = 0; rank < mapping.GetCount() && nFailures < 10; ++rank) {
    const unsigned char* set = mapping.GetSet(rank);
    if (!IsNextSet(set, previous, instance) || mapping.GetIndex(set) != rank) {
      ++nFailures;
      ADD_FAILURE() << "rank " << rank;
    }
    previous = set;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Instances, CombinationMapping,
    testing::Values(TInstance{false, 2, 64, 0, 2016}, TInstance{false, 3, 64, 0, 41664},
                    TInstance{false, 4, 64, 0, 635376}, TInstance{false, 5, 64, 0, 7624512},
                    TInstance{true, 2, 48, 8, 1128}, TInstance{true, 3, 48, 8, 17296},
                    TInstance{true, 4, 48, 8, 194580}, TInstance{true, 5, 48, 8, 1712304}));

TEST(CombinationMappingEdges, FirstAndLastPairsOfEachRange) {
  struct TCase {
    bool bPawnSquares;
    unsigned char squares[2];
    std::uint64_t rank;
  };
  const TCase cases[] = {
      {false, {0, 1}, 0}, {false, {62, 63}, 2015}, {false, {0, 63}, 62}, {false, {1, 2}, 63},
      {true, {8, 9}, 0},  {true, {54, 55}, 1127},  {true, {8, 55}, 46},  {true, {9, 10}, 47},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(GetCombinationMapping(c.bPawnSquares, 2).GetIndex(c.squares), c.rank)
        << int(c.squares[0]) << " " << int(c.squares[1]);
  }
}

TEST(CombinationMappingEdges, OneProcessWideInstancePerMappingAndNoneOutsideTwoToFive) {
  EXPECT_EQ(&GetCombinationMapping(false, 3),
            &(CMappingCombinationIndexIntoSet<64, 3, unsigned char, 0>::Instance()));
  EXPECT_EQ(&GetCombinationMapping(true, 4),
            &(CMappingCombinationIndexIntoSet<48, 4, unsigned char, 8>::Instance()));
  for (unsigned k : {0u, 1u, 6u, 0xFFFFFFFAu}) {
    EXPECT_THROW(GetCombinationMapping(false, k), std::out_of_range) << k;
    EXPECT_THROW(GetCombinationMapping(true, k), std::out_of_range) << k;
  }
}

}  // namespace
