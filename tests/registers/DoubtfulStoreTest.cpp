#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include "RegisterTestSupport.h"
#include "registers/DoubtfulStore.h"
#include "registers/SubproblemRegisterInfo.h"

using registertest::Key;

namespace {

struct TRecording {
  std::uint16_t n;
  bool bMate;
};

}  // namespace

TEST(DoubtfulStore, AnswersFollowWhatWasRecordedForTheSideToMove) {
  constexpr bool kMate = true, kCut = false;
  struct TCase {
    std::vector<TRecording> recordings;
    std::uint16_t n;
    std::uint8_t expected;
  } cases[] = {
      {{}, 7, kRegisterUnknown},
      {{{7, kCut}}, 7, kDoubtfulCut},
      {{{7, kCut}}, 5, kDoubtfulCut},  // cut at 7 plies: nothing better is known for fewer
      {{{7, kCut}}, 9, kRegisterUnknown},
      {{{7, kCut}, {11, kCut}, {9, kCut}}, 11, kDoubtfulCut},  // the longest cut is kept
      {{{7, kMate}}, 9, kDoubtfulMate},
      {{{7, kMate}}, 5, kRegisterUnknown},
      {{{9, kMate}, {5, kMate}}, 5, kDoubtfulMate},  // the shortest mate is kept
      {{{5, kMate}, {9, kCut}}, 7, kDoubtfulMate},
      {{{9, kMate}, {7, kCut}}, 5, kDoubtfulCut},
      {{{7, kCut}}, 6, kRegisterUnknown},  // White's element says nothing of Black to move
      {{{6, kCut}}, 7, kRegisterUnknown},
      {{{6, kCut}, {7, kMate}}, 4, kDoubtfulCut},
      {{{6, kCut}, {7, kMate}}, 9, kDoubtfulMate},
  };
  for (const TCase& test : cases) {
    CDoubtfulStore store(64);
    for (const TRecording& recording : test.recordings)
      store.Record(recording.n, Key(1), recording.bMate);
    EXPECT_EQ(store.Find(test.n, Key(1)), test.expected) << "query " << test.n;
    EXPECT_EQ(store.Find(test.n, Key(2)), kRegisterUnknown);
  }
}

TEST(DoubtfulStore, CountsKeysPerSideToMove) {
  CDoubtfulStore store(64);
  EXPECT_TRUE(store.Record(7, Key(1), false));
  EXPECT_FALSE(store.Record(9, Key(1), true));  // widens the element
  EXPECT_TRUE(store.Record(6, Key(1), false));  // Black to move: an element of its own
  EXPECT_TRUE(store.Record(7, Key(2), false));
  EXPECT_EQ(store.Count(), 3u);
}

// Every bucket kind: with one bucket the elements pile up into an array, then a tree.
TEST(DoubtfulStore, SweepAndClearWorkOnArraysAndTrees) {
  for (const std::uint32_t nKeys : {5u, std::uint32_t{CDoubtfulStore::kMaxArrayElements} + 20}) {
    for (const std::size_t nBuckets : {std::size_t{1}, std::size_t{1024}}) {
      CDoubtfulStore store(nBuckets);
      // Key i: a cut of 2i + 3 plies; odd keys also a mate in 3.
      for (std::uint32_t i = 0; i < nKeys; ++i) {
        store.Record(static_cast<std::uint16_t>(2 * i + 3), Key(i), false);
        if (i % 2 == 1) store.Record(3, Key(i), true);
      }
      ASSERT_EQ(store.Count(), nKeys);
      for (std::uint32_t i = 0; i < nKeys; ++i)
        ASSERT_EQ(store.Find(3, Key(i)), i % 2 == 1 ? kDoubtfulMate : kDoubtfulCut) << i;

      // Mates up to 3 and cuts up to 9 plies go: keys 0 to 3.
      EXPECT_EQ(store.Sweep(3, 9), 4u);
      std::vector<std::uint32_t> left;
      store.ForEach([&](const TDoubtfulElement& element) {
        left.push_back(static_cast<std::uint32_t>(element.nMovesNoMate - 3) / 2);
      });
      std::sort(left.begin(), left.end());
      ASSERT_EQ(left.size(), nKeys - 4);
      for (std::uint32_t i = 4; i < nKeys; ++i) {
        EXPECT_EQ(left[i - 4], i);
        EXPECT_NE(store.Find(2 * i + 3, Key(i)), kRegisterUnknown) << i;
      }
      EXPECT_EQ(store.Find(3, Key(2)), kRegisterUnknown);
      EXPECT_EQ(store.Sweep(0, 0), 0u);  // every element left has a count above 0

      EXPECT_EQ(store.Clear(false), nKeys - 4);
      EXPECT_EQ(store.Count(), 0u);
      EXPECT_EQ(store.Find(11, Key(4)), kRegisterUnknown);
      EXPECT_TRUE(store.Record(5, Key(4), false));  // the buckets come back
      EXPECT_EQ(store.Find(5, Key(4)), kDoubtfulCut);
    }
  }
}

namespace {
TChessboardRegisterItem KeyWithFirstWord(std::uint64_t word) {
  TChessboardRegisterItem key;
  std::memcpy(key.bytes, &word, sizeof word);
  return key;
}
}  // namespace

TEST(DoubtfulStore, KeysAreOrderedWordByWordAndTransitively) {
  const TChessboardRegisterItem zero, quarter = KeyWithFirstWord(std::uint64_t{1} << 62),
                                      beyondHalf = KeyWithFirstWord((std::uint64_t{1} << 63) + 1);
  TChessboardRegisterItem secondWord;
  secondWord.bytes[8] = 1;
  EXPECT_FALSE(RegisterItemBefore(zero, zero));
  EXPECT_TRUE(RegisterItemBefore(zero, secondWord));
  EXPECT_FALSE(RegisterItemBefore(secondWord, zero));
  // A wrapping difference would order these three in a circle.
  EXPECT_TRUE(RegisterItemBefore(zero, quarter));
  EXPECT_TRUE(RegisterItemBefore(quarter, beyondHalf));
  EXPECT_TRUE(RegisterItemBefore(zero, beyondHalf));
  EXPECT_FALSE(RegisterItemBefore(beyondHalf, zero));
}

TEST(DoubtfulStore, ATreeBucketKeepsKeysFromTheWholeWordRange) {
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    CDoubtfulStore store(1);  // every key in one bucket, a tree after 16
    std::mt19937_64 random(seed);
    std::vector<TChessboardRegisterItem> keys;
    for (int i = 0; i < 200; ++i) keys.push_back(KeyWithFirstWord(random()));
    for (const auto& key : keys) store.Record(9, key, false);
    EXPECT_EQ(store.Count(), keys.size()) << seed;
    for (const auto& key : keys) EXPECT_EQ(store.Find(9, key), kDoubtfulCut) << seed;
    EXPECT_EQ(store.Sweep(9, 9), keys.size()) << seed;
  }
}
