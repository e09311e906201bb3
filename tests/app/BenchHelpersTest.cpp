// The median timing and the published-key check that the benchmarks rest on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SolvingFixtures.h"
#include "app/MedianTiming.h"
#include "app/PublishedKeys.h"
#include "core/ChessException.h"

namespace {

TEST(MedianTiming, MiddleValueOrMeanOfTheTwoMiddleOnes) {
  const std::pair<std::vector<double>, double> cases[] = {
      {{}, 0}, {{5}, 5}, {{3, 1, 2}, 2}, {{4, 1, 3, 2}, 2.5}, {{9, 9, 1, 1}, 5}, {{7, 1}, 4},
  };
  for (const auto& [values, median] : cases) EXPECT_DOUBLE_EQ(Median(values), median);
}

TEST(MedianTiming, RunsAreTimedByTheGivenClock) {
  // Runs of 3, 1 and 2 seconds.
  const std::vector<double> readings{10, 13, 20, 21, 30, 32};
  std::size_t nRead = 0;
  int nRuns = 0;
  const double median = MedianSeconds(
      3, [&] { ++nRuns; }, [&] { return readings.at(nRead++); });
  EXPECT_EQ(nRuns, 3);
  EXPECT_EQ(nRead, readings.size());
  EXPECT_DOUBLE_EQ(median, 2);
}

std::vector<TMove> Moves(const std::vector<const char*>& texts) {
  std::vector<TMove> moves;
  for (const char* text : texts) moves.push_back(MoveOf(text));
  return moves;
}

TEST(PublishedKeys, FoundKeysMustBeThePublishedSetInAnyOrder) {
  struct TCase {
    const char* szPublished;
    std::vector<const char*> found;
    bool bMatches;
  };
  const TCase cases[] = {
      {"Qh5-a5", {"Qh5-a5"}, true},
      {"Ka1-b2,Rb1-e1", {"Rb1-e1", "Ka1-b2"}, true},
      {"Ka1-b2, Rb1-e1", {"Ka1-b2", "Rb1-e1"}, true},
      {"Ka1-b2,Rb1-e1", {"Ka1-b2"}, false},
      {"Qh5-a5", {}, false},
      {"Qh5-a5", {"Qh5-a5", "Qh5-h4"}, false},
      {"d7-d8Q", {"d7-d8Q"}, true},
      {"d7-d8Q", {"d7-d8R"}, false},
      {"e4:d5", {"e4-d5"}, true},  // captures may be written either way
      {"0-0-0", {"Ke1-c1"}, true},
  };
  for (const TCase& c : cases)
    EXPECT_EQ(MatchesPublishedKeys(Moves(c.found), ReadPublishedKeys(c.szPublished)), c.bMatches)
        << c.szPublished;
  EXPECT_THROW(ReadPublishedKeys("Qh5"), ChessException);
}

}  // namespace
