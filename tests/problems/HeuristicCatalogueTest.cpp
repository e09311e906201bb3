#include <gtest/gtest.h>

#include <bit>

#include "problems/HeuristicCatalogue.h"

namespace {

TEST(HeuristicCatalogue, SingleNamedBitsHaveNamesAndEverythingElsePrintsDots) {
  EXPECT_EQ(heuristics::NameOfBit(0x1), "SH_AREKINGSNEAR");
  EXPECT_EQ(heuristics::NameOfBit(0x40000), "SH_KEYFIELD");
  EXPECT_EQ(heuristics::NameOfBit(0x80000000), "SH_ZUGZWANG");
  for (std::uint32_t mask : {0x0u, 0x100u, 0x10000000u, 0x20000000u, 0x3u, 0xFFFFFFFFu}) {
    EXPECT_EQ(heuristics::NameOfBit(mask), "...") << std::hex << mask;
  }
}

TEST(HeuristicCatalogue, NamesAndBitsMatchBothWays) {
  std::uint32_t seen = 0;
  for (const auto& entry : heuristics::Catalogue()) {
    EXPECT_EQ(std::popcount(entry.bit), 1) << entry.name;
    EXPECT_EQ(seen & entry.bit, 0u) << entry.name;
    seen |= entry.bit;
    EXPECT_EQ(heuristics::IndexOfName(entry.name), std::countr_zero(entry.bit));
  }
  EXPECT_EQ(heuristics::Catalogue().size(), 29u);
  EXPECT_EQ(heuristics::IndexOfName("sh_3movestomate"), 21);
  EXPECT_EQ(heuristics::IndexOfName("SH_DONTLETKINGMOVE"), -1);
}

}  // namespace
