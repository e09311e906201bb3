#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RegisterTestSupport.h"
#include "registers/ChessboardRegister.h"

using registertest::Key;

namespace {

using TRegister = TChessboardRegister<bool>;

// Stands in for the grouping register: reports a chosen count and records what it is asked.
class CFakeOwner : public TRegister {
 public:
  CFakeOwner() : TRegister(10) {}
  std::uint32_t GetElementsIn() const override { return nReported; }
  void EmptySomeDataWhenRegisterFull(bool bForce) override { forcedFlags.push_back(bForce); }
  std::uint32_t nReported = 0;
  std::vector<bool> forcedFlags;
};

// Keeps the log lines a standalone register writes.
class CLoggingRegister : public TRegister {
 public:
  using TRegister::TRegister;
  std::vector<std::string> lines;

 protected:
  void WriteRegisterLog(const char* message) override { lines.emplace_back(message); }
};

void FillWhite(TRegister& reg, std::uint16_t n, std::uint32_t nKeys, std::uint32_t firstKey) {
  for (std::uint32_t i = 0; i < nKeys; ++i) reg.Insert(n, Key(firstKey + i), 1);
}

}  // namespace

TEST(RegisterQuota, LimitFollowsTheQuotaAndTheMemoryThereIs) {
  constexpr std::uint64_t kGiB = 1ULL << 30;
  EXPECT_EQ(TRegister::MaxElementsForQuota(16 * kGiB, 96), 765460u);
  EXPECT_EQ(TRegister::MaxElementsForQuota(64 << 20, 96), 510306u);  // quota above the memory
  EXPECT_EQ(TRegister::MaxElementsForQuota(16 * kGiB, 0), 0u);
  EXPECT_EQ(TRegister::MaxElementsForPercent(16 * kGiB, 20), 26121338u);  // 3276 MiB
  EXPECT_EQ(TRegister::MaxElementsForPercent(1ULL << 50, 100), 0xFFFFFFFFu);
}

TEST(RegisterEviction, ShortestSubproblemsGoFirst) {
  TRegister reg(20);
  FillWhite(reg, 3, 2, 100);
  for (std::uint32_t i = 0; i < 4; ++i) reg.InsertDefence(4, Key(200 + i), 0);
  FillWhite(reg, 5, 4, 300);
  FillWhite(reg, 7, 6, 400);
  FillWhite(reg, 9, 8, 500);
  ASSERT_EQ(reg.GetElementsIn(), 20u);

  // Dropping the three-movers frees 2 of the 4 needed; the five- and four-movers go too.
  reg.Insert(11, Key(600), 1);
  EXPECT_EQ(reg.FindAnswer(3, Key(100)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDefenceAnswer(4, Key(200)), kRegisterUnknown);
  EXPECT_EQ(reg.FindAnswer(5, Key(300)), kRegisterUnknown);
  EXPECT_EQ(reg.FindAnswer(7, Key(400)), 1);
  EXPECT_EQ(reg.FindAnswer(11, Key(600)), 1);
  EXPECT_EQ(reg.GetElementsIn(), 15u);
  EXPECT_EQ(reg.GetPeakElementsIn(), 20u);

  // Two three-movers were under a third of the limit: short sub-problems are no longer kept.
  EXPECT_FALSE(reg.RegistersFewMovers());
  reg.Insert(3, Key(700), 1);
  reg.InsertDefence(2, Key(701), 1);
  EXPECT_EQ(reg.FindAnswer(3, Key(700)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDefenceAnswer(2, Key(701)), kRegisterUnknown);
}

TEST(RegisterEviction, FullRegisterDropsNewEntriesSilently) {
  CLoggingRegister reg(4);
  FillWhite(reg, 301, 4, 0);  // beyond the reach of eviction
  EXPECT_NO_THROW(reg.Insert(5, Key(9), 1));
  EXPECT_EQ(reg.FindAnswer(5, Key(9)), kRegisterUnknown);
  EXPECT_EQ(reg.GetElementsIn(), 4u);
  EXPECT_THAT(reg.lines, testing::ElementsAre("!!!! EmptySomeDataWhenRegisterFull failed."));
}

TEST(RegisterEviction, MemberAsksItsOwnerForCountAndRoom) {
  CFakeOwner owner;
  TRegister member(10, &owner);
  owner.nReported = 10;
  member.Insert(5, Key(1), 1);
  EXPECT_EQ(member.FindAnswer(5, Key(1)), kRegisterUnknown);
  EXPECT_EQ(owner.forcedFlags, std::vector<bool>{false});

  owner.nReported = 9;
  member.Insert(5, Key(1), 1);
  EXPECT_EQ(member.FindAnswer(5, Key(1)), 1);
  EXPECT_EQ(owner.forcedFlags.size(), 1u);
}

TEST(RegisterEviction, CallsWithin16MsAreMerged) {
  TRegister reg(10);
  FillWhite(reg, 5, 10, 0);
  reg.EmptySomeDataWhenRegisterFull(false);
  EXPECT_EQ(reg.GetElementsIn(), 0u);
  FillWhite(reg, 5, 10, 100);
  reg.EmptySomeDataWhenRegisterFull(false);
  EXPECT_EQ(reg.GetElementsIn(), 10u);
}

TEST(RegisterEviction, ForcedCallWithAQuarterFreeDoesNothing) {
  TRegister reg(20);
  FillWhite(reg, 5, 5, 0);
  reg.EmptySomeDataWhenRegisterFull(true);
  EXPECT_TRUE(reg.RegistersFewMovers());
  EXPECT_EQ(reg.GetElementsIn(), 5u);
  // The skipped call did not count as a run, so this one is not merged into it.
  reg.EmptySomeDataWhenRegisterFull(false);
  EXPECT_FALSE(reg.RegistersFewMovers());
  EXPECT_EQ(reg.GetElementsIn(), 5u);
}
