#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/FirstMoveQueue.h"

namespace {

// A queue of n first moves; the queue never looks into the positions.
void Fill(CFirstMoveQueue& queue, int n) {
  for (int i = 0; i < n; ++i) queue.Add(TChessboard{});
}

// The moves the workers take, in turn, as "2 1" (sorted indexes).
std::string Taken(CFirstMoveQueue& queue) {
  std::string text;
  for (int index = queue.Take(0); index >= 0; index = queue.Take(0))
    text += (text.empty() ? "" : " ") + std::to_string(index);
  return text;
}

constexpr TFirstMoveRecord kOpen{};
constexpr TFirstMoveRecord kRefuted{.bSettled = true, .result = mate::kNoMate};
constexpr TFirstMoveRecord kCut{.bSettled = true, .result = mate::kDoubtful};
constexpr TFirstMoveRecord kKey{.bSettled = true, .result = mate::kMate};

TEST(FirstMoveQueue, AResumedTurnSkipsTheSettledMovesInTheSortedOrder) {
  const struct {
    const char* name;
    int nKeysWanted;
    std::vector<TFirstMoveRecord> records;
    const char* taken;
    double shareDone;
  } cases[] = {
      {"a first turn takes the sorted order", 0, {}, "0 1 2 3", 0.0},
      {"settled moves stay settled", 0, {kRefuted, kOpen, kCut, kOpen}, "1 3", 0.5},
      {"open moves keep their place", 0, {kOpen, kOpen, kRefuted, kOpen}, "0 1 3", 0.25},
      {"a key settled earlier drops the moves after it", 1, {kOpen, kKey, kOpen, kOpen}, "0", 0.75},
      {"records of another root are ignored", 0, {kRefuted}, "0 1 2 3", 0.0},
  };
  for (const auto& c : cases) {
    CFirstMoveQueue queue;
    Fill(queue, 4);
    queue.SetKeysWanted(c.nKeysWanted);
    queue.ResumeFrom(c.records);
    EXPECT_DOUBLE_EQ(queue.ShareDone(), c.shareDone) << c.name;
    EXPECT_EQ(Taken(queue), c.taken) << c.name;
  }
}

TEST(FirstMoveQueue, RecordsTellSettledFromCutMoves) {
  CFirstMoveQueue queue;
  Fill(queue, 4);
  ASSERT_EQ(queue.Take(0), 0);
  ASSERT_EQ(queue.Take(1), 1);
  ASSERT_EQ(queue.Take(0), 2);
  queue.Settle(0, mate::kDoubtful, false);  // cut by a heuristic: final for the pass
  queue.Settle(1, mate::kDoubtful, true);   // cut by the end of the turn
  queue.Settle(2, mate::kNoMate, false);
  const std::vector<TFirstMoveRecord> records = queue.Records();
  ASSERT_EQ(records.size(), 4u);
  EXPECT_TRUE(records[0].bSettled);
  EXPECT_EQ(records[0].result, mate::kDoubtful);
  EXPECT_FALSE(records[1].bSettled);
  EXPECT_TRUE(records[2].bSettled);
  EXPECT_EQ(records[2].result, mate::kNoMate);
  EXPECT_FALSE(records[3].bSettled);  // never taken

  CFirstMoveQueue next;
  Fill(next, 4);
  next.ResumeFrom(records);
  EXPECT_EQ(Taken(next), "1 3");
}

}  // namespace
