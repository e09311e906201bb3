#include <gtest/gtest.h>

#include "TestData.h"
#include "core/Perft.h"

// The shallow rows of the reference perft table; the deep ones run in `longmate bench perft`.
TEST(Perft, MatchesReferenceCountsAtShallowDepths) {
  int nChecked = 0;
  for (const auto& row : testdata::ReadTsv("perft.tsv")) {
    const std::uint64_t nExpected = std::stoull(row.at("nodes"));
    if (nExpected > 500'000) continue;
    const int depth = std::stoi(row.at("depth"));
    const perft::CPerftPosition position(row.at("fen"), depth);
    EXPECT_EQ(perft::Perft(position.Root(), depth), nExpected)
        << row.at("name") << " depth " << depth;
    ++nChecked;
  }
  EXPECT_GE(nChecked, 20);
}

TEST(Perft, DivideSumsToTheTotal) {
  const perft::CPerftPosition position(
      "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1", 2);
  std::uint64_t total = 0;
  const auto counts = perft::Divide(position.Root(), 2);
  for (const auto& entry : counts) total += entry.second;
  EXPECT_EQ(counts.size(), 48u);
  EXPECT_EQ(total, 2039u);
}

// Twenty-six queens give one side more moves than any legal game (265): every buffer sized
// for one side's moves must hold them (the sanitizer build catches an overflow).
TEST(Perft, OverfullPositionsFitTheMoveBuffers) {
  for (const char* fenText : {"QQQQQQnk/Q4Q1n/Q5QQ/Q6Q/Q6Q/Q6Q/Q6Q/KQQQQQQQ w - - 0 1",
                              "kqqqqqqq/q6q/q6q/q6q/q6q/q5qq/q4q1N/qqqqqqNK b - - 0 1"}) {
    const perft::CPerftPosition position(fenText, 1);
    EXPECT_EQ(perft::Perft(position.Root(), 1), 265u) << fenText;
  }
}
