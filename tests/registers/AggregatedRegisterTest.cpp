#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "RegisterTestSupport.h"
#include "registers/AggregatedTemporaryChessboardRegister.h"

using registertest::CTempFile;
using registertest::Key;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

using TAggregate = TAggregatedTemporaryChessboardRegister;
constexpr std::uint32_t kHeuristics = 0x200, kParams = 7;
constexpr THeuristicsKey kSelection = MakeHeuristicsKey(kHeuristics, kParams);
constexpr bool kCut = false;

std::vector<std::string> ReadLines(const std::filesystem::path& path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// The move counts the aggregate was asked to remove, in order, as its log tells.
std::vector<int> RemovedMoveCounts(const std::vector<std::string>& lines) {
  const std::string start =
      "TAggregatedTemporaryChessboardRegister::RemoveNMovers start., msg params: ";
  std::vector<int> counts;
  for (const std::string& line : lines)
    if (line.rfind(start, 0) == 0) counts.push_back(std::stoi(line.substr(start.size())));
  return counts;
}

void FillWhite(TAggregate& reg, std::uint16_t n, std::uint32_t nKeys, std::uint32_t firstKey) {
  for (std::uint32_t i = 0; i < nKeys; ++i) reg.Insert(n, Key(firstKey + i), 1);
}

}  // namespace

TEST(AggregatedRegister, CountsExactOwnAndMemberElements) {
  TAggregate reg(100);
  reg.Insert(5, Key(1), 1);
  reg.Insert(7, Key(2), 0);
  reg.InsertDefence(6, Key(3), 1);  // Black's entries take memory too: counted
  reg.InsertDoubtful(0, 9, Key(4), kCut);
  reg.InsertDoubtful(kSelection, 9, Key(4), kCut);
  reg.InsertDoubtful(kSelection, 8, Key(4), kCut);
  reg.InsertDoubtful(kSelection, 11, Key(4), kCut);  // widens the White element
  EXPECT_EQ(reg.GetElementsIn(), 6u);
  EXPECT_EQ(reg.GetDoubtfulElementsIn(), 2u);
  EXPECT_EQ(reg.GetOwnDoubtfulElementsIn(), 1u);
  EXPECT_EQ(reg.FindDoubtful(kSelection, 11, Key(4)), kDoubtfulCut);
  EXPECT_EQ(reg.FindDoubtful(MakeHeuristicsKey(kHeuristics, 8), 9, Key(4)), kRegisterUnknown);
  EXPECT_EQ(reg.FindAnswer(5, Key(1)), 1);  // the exact path is the inherited one

  reg.Clear(true);
  EXPECT_EQ(reg.GetElementsIn(), 0u);
  EXPECT_EQ(reg.GetDoubtfulElementsIn(), 0u);
  EXPECT_EQ(reg.FindAnswer(5, Key(1)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDoubtful(kSelection, 9, Key(4)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDoubtful(0, 9, Key(4)), kRegisterUnknown);
  reg.InsertDoubtful(kSelection, 9, Key(5), kCut);  // the member is still there to take it
  EXPECT_EQ(reg.GetElementsIn(), 1u);
}

TEST(AggregatedRegister, SelectionIsDroppedOnlyWhenNoSearchUsesIt) {
  TAggregate reg(100);
  reg.AddDoubtfulUser(kHeuristics, kParams);
  reg.AddDoubtfulUser(kHeuristics, kParams);
  for (std::uint32_t i = 0; i < 3; ++i) reg.InsertDoubtful(kSelection, 9, Key(i), kCut);
  reg.InsertDoubtful(MakeHeuristicsKey(1, 0), 9, Key(9), kCut);  // never registered: idle

  EXPECT_EQ(reg.RemoveIdleDoubtful(), 1u);
  EXPECT_EQ(reg.RemoveDoubtful(kHeuristics, kParams), 0u);  // one user left
  EXPECT_EQ(reg.RemoveIdleDoubtful(), 0u);
  EXPECT_EQ(reg.RemoveDoubtful(kHeuristics, kParams), 0u);  // no user left, kept for reuse
  EXPECT_EQ(reg.FindDoubtful(kSelection, 9, Key(0)), kDoubtfulCut);
  EXPECT_EQ(reg.GetDoubtfulElementsIn(), 3u);

  EXPECT_EQ(reg.RemoveIdleDoubtful(), 3u);
  EXPECT_EQ(reg.FindDoubtful(kSelection, 9, Key(0)), kRegisterUnknown);
  EXPECT_EQ(reg.GetDoubtfulElementsIn(), 0u);
  EXPECT_EQ(reg.RemoveDoubtful(kHeuristics, kParams), 0u);
}

TEST(AggregatedRegister, MembersKeepCutsTwoPliesLongerThanTheOwnStore) {
  struct TCase {
    std::uint16_t nRecorded;
    bool bMate;
    std::uint16_t nRemoved;
    bool bOwnSurvives, bMemberSurvives;
  } cases[] = {
      {4, kCut, 5, false, true},  // 4 > 5 - 2
      {4, kCut, 6, false, false}, {3, kCut, 4, false, true},
      {5, kCut, 7, false, false}, {5, true, 5, false, false},  // mates go at n in both
      {5, true, 4, true, true},   {1, kCut, 1, false, true},  // below 2 the member's cut limit is 0
  };
  for (const TCase& test : cases) {
    TAggregate reg(100);
    reg.AddDoubtfulUser(kHeuristics, kParams);
    reg.InsertDoubtful(0, test.nRecorded, Key(1), test.bMate);
    reg.InsertDoubtful(kSelection, test.nRecorded, Key(1), test.bMate);
    const std::uint32_t nGone = reg.RemoveNMovers(test.nRemoved);
    EXPECT_EQ(nGone, (test.bOwnSurvives ? 0u : 1u) + (test.bMemberSurvives ? 0u : 1u));
    EXPECT_EQ(reg.FindDoubtful(0, test.nRecorded, Key(1)) != kRegisterUnknown, test.bOwnSurvives)
        << test.nRecorded << " " << test.nRemoved;
    EXPECT_EQ(reg.FindDoubtful(kSelection, test.nRecorded, Key(1)) != kRegisterUnknown,
              test.bMemberSurvives)
        << test.nRecorded << " " << test.nRemoved;
    EXPECT_EQ(reg.GetDoubtfulElementsIn(), test.bMemberSurvives ? 1u : 0u);
  }
}

TEST(AggregatedEviction, GoesFromIdleSelectionsToThreeMoversToPairsOfLongerOnes) {
  CTempFile log("eviction-order");
  TAggregate reg(28);
  reg.SetRegisterLog(log.path);
  reg.AddDoubtfulUser(kHeuristics, kParams);
  for (std::uint32_t i = 0; i < 2; ++i)
    reg.InsertDoubtful(MakeHeuristicsKey(1, 0), 21, Key(i), kCut);
  reg.InsertDoubtful(kSelection, 21, Key(50), kCut);
  FillWhite(reg, 3, 2, 100);
  for (std::uint32_t i = 0; i < 4; ++i) reg.InsertDefence(4, Key(200 + i), 0);
  FillWhite(reg, 5, 4, 300);
  FillWhite(reg, 7, 6, 400);
  FillWhite(reg, 9, 9, 500);
  ASSERT_EQ(reg.GetElementsIn(), 28u);

  // The idle selection and the three-movers free 4, less than a fifth; (5, 4) goes too.
  reg.Insert(11, Key(600), 1);
  const std::vector<std::string> lines = ReadLines(log.path);
  EXPECT_THAT(RemovedMoveCounts(lines), ElementsAre(3, 5, 4));
  EXPECT_EQ(reg.FindDoubtful(MakeHeuristicsKey(1, 0), 21, Key(0)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDoubtful(kSelection, 21, Key(50)), kDoubtfulCut);
  EXPECT_EQ(reg.FindAnswer(3, Key(100)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDefenceAnswer(4, Key(200)), kRegisterUnknown);
  EXPECT_EQ(reg.FindAnswer(5, Key(300)), kRegisterUnknown);
  EXPECT_EQ(reg.FindAnswer(7, Key(400)), 1);
  EXPECT_EQ(reg.FindAnswer(11, Key(600)), 1);
  EXPECT_EQ(reg.GetElementsIn(), 17u);
  EXPECT_THAT(lines, Contains("EmptySomeDataWhenRegisterFull complete, msg params: 0, 0"));
  EXPECT_THAT(lines, Not(Contains("!!!! EmptySomeDataWhenRegisterFull failed., msg params: 0, 0")));

  // Two three-movers were under a third of the budget: nothing below four plies is filed
  // any more, by the aggregate or its members.
  EXPECT_FALSE(reg.RegistersFewMovers());
  reg.Insert(3, Key(700), 1);
  reg.InsertDoubtful(kSelection, 3, Key(701), kCut);
  reg.InsertDoubtful(0, 2, Key(702), kCut);
  EXPECT_EQ(reg.FindAnswer(3, Key(700)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDoubtful(kSelection, 3, Key(701)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDoubtful(0, 2, Key(702)), kRegisterUnknown);
}

TEST(AggregatedEviction, StopsAt255WithTheFailureLine) {
  CTempFile log("eviction-failure");
  TAggregate reg(4);
  reg.SetRegisterLog(log.path);
  FillWhite(reg, 301, 4, 0);  // beyond the reach of eviction
  reg.InsertDoubtful(0, 5, Key(9), kCut);
  EXPECT_EQ(reg.FindDoubtful(0, 5, Key(9)), kRegisterUnknown);  // dropped: no room
  const std::vector<std::string> lines = ReadLines(log.path);
  const std::vector<int> counts = RemovedMoveCounts(lines);
  ASSERT_EQ(counts.size(), 1u + 2u * 126u);
  EXPECT_EQ(counts[0], 3);
  EXPECT_THAT(std::vector<int>(counts.end() - 4, counts.end()), ElementsAre(253, 252, 255, 254));
  ASSERT_GE(lines.size(), 6u);
  EXPECT_THAT(std::vector<std::string>(lines.begin(), lines.begin() + 2),
              ElementsAre("EmptySomeDataWhenRegisterFull started, msg params: 0, 0",
                          "\t\t\tElementsIn= 4, DoubtfulElementsIn=0"));
  EXPECT_THAT(std::vector<std::string>(lines.end() - 4, lines.end()),
              ElementsAre("!!!! EmptySomeDataWhenRegisterFull failed., msg params: 0, 0",
                          "\t\t\tElementsIn= 4, DoubtfulElementsIn=0",
                          "EmptySomeDataWhenRegisterFull complete, msg params: 0, 0",
                          "\t\t\tElementsIn= 4, DoubtfulElementsIn=0"));
}

TEST(AggregatedEviction, ForcedCallWithAQuarterFreeDoesNothing) {
  CTempFile log("eviction-forced");
  TAggregate reg(20);
  reg.SetRegisterLog(log.path);
  FillWhite(reg, 5, 15, 0);
  reg.EmptySomeDataWhenRegisterFull(true);
  EXPECT_EQ(reg.GetElementsIn(), 15u);
  EXPECT_THAT(ReadLines(log.path),
              ElementsAre("EmptySomeDataWhenRegisterFull started, msg params: 1, 0",
                          "\t\t\tElementsIn= 15, DoubtfulElementsIn=0"));
  // The skipped call did not count as a run, so this one is not merged into it.
  reg.EmptySomeDataWhenRegisterFull(false);
  EXPECT_EQ(reg.GetElementsIn(), 0u);
}

TEST(AggregatedEviction, CallsWithin16MsAreMerged) {
  TAggregate reg(10);
  FillWhite(reg, 5, 10, 0);
  reg.EmptySomeDataWhenRegisterFull(false);
  EXPECT_EQ(reg.GetElementsIn(), 0u);
  FillWhite(reg, 5, 10, 100);
  reg.EmptySomeDataWhenRegisterFull(false);
  EXPECT_EQ(reg.GetElementsIn(), 10u);
}

TEST(AggregatedRegister, LimitsFollowTheQuota) {
  constexpr std::uint64_t kGiB = 1ULL << 30;
  TAggregate reg(10);
  reg.InsertDoubtful(kSelection, 9, Key(1), kCut);
  reg.SetMemoryLimits(16 * kGiB, 96);
  EXPECT_EQ(reg.MaxElements(), 765460u);
  // Doubtful answers are budgeted by the aggregate: with the new limit there is room.
  for (std::uint32_t i = 2; i < 40; ++i) reg.InsertDoubtful(kSelection, 9, Key(i), kCut);
  EXPECT_EQ(reg.GetDoubtfulElementsIn(), 39u);
}
