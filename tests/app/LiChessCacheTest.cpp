// The tablebase answers kept per problem: lines read back as written, files of another
// version set aside, damaged lines skipped, and a read-only copy that never writes.
#include <gtest/gtest.h>

#include "TempFolder.h"
#include "app/LiChessCache.h"

namespace {

using namespace lichess;

constexpr const char* kFen = "8/6KP/8/8/8/8/7p/4k3 w - - 0 1";

CLiChess Answer(std::vector<CLiChessMove> moves) {
  CLiChess answer{.value = kWin, .dtm = 17, .dtz = 1};
  answer.nMoves = static_cast<int>(moves.size());
  answer.moves = std::move(moves);
  return answer;
}

TEST(LiChessCache, LinesReadBackAsWritten) {
  const CLiChess answers[] = {
      CLiChess{},
      CLiChess{.value = kDraw, .dtm = kNoDtm, .dtz = 0, .nMoves = kMalformedMoves},
      Answer({{.from = 55, .to = 63, .promotion = 12, .value = kLoss, .dtm = -16, .dtz = 2},
              {.from = 54, .to = 53, .value = kDraw, .dtm = kNoDtm, .dtz = kNoDtz},
              {.from = 52, .to = 60, .promotion = 16, .value = kUnknown, .dtm = 0, .dtz = 254},
              {.from = 0, .to = 1, .promotion = 8, .value = kWin, .dtm = 3, .dtz = 0},
              {.from = 8, .to = 0, .promotion = 4, .value = kLoss, .dtm = -1, .dtz = 1}}),
  };
  for (const CLiChess& answer : answers) {
    const std::string line = CLiChessCache::Line(kFen, answer);
    const auto read = CLiChessCache::ReadLine(line);
    ASSERT_TRUE(read) << line;
    EXPECT_EQ(read->first, kFen);
    EXPECT_EQ(read->second, answer) << line;
  }
}

TEST(LiChessCache, DamagedLinesAreRefused) {
  const std::string good = CLiChessCache::Line(kFen, Answer({{.from = 55, .to = 63, .dtm = 5}}));
  ASSERT_TRUE(CLiChessCache::ReadLine(good));
  const std::string damaged[] = {
      good.substr(0, good.size() - 3),              // cut inside a move
      "8/8/8/8/8/8/8/K1k5 w - - 0 1\t1 2 3",        // no count
      std::string(kFen) + "\t1 17 1 2 h7h8:1:2:3",  // fewer moves than counted
      std::string(kFen) + "\t3 17 1 0",             // no such value
      std::string(kFen) + "\t1 17 300 0",           // dtz beyond a byte
      std::string(kFen) + "\t1 17 1 1 h9h8:1:2:3",
      std::string(kFen) + "\t1 17 1 1 h7h8k:1:2:3",
      std::string(kFen) + " 1 17 1 0",  // no tab
  };
  for (const std::string& line : damaged) EXPECT_FALSE(CLiChessCache::ReadLine(line)) << line;
}

TEST(LiChessCache, KeepsAnswersAcrossCopies) {
  CTempFolder folder;
  const auto file = folder / "SavedTmpSyzygyData" / "x.lichess";
  {
    CLiChessCache cache(file, false);
    EXPECT_FALSE(cache.Store(kFen, Answer({})));
    EXPECT_FALSE(cache.Store("8/8/8/8/8/8/8/K1k5 b - - 0 1", CLiChess{}));
  }
  CLiChessCache reread(file, false);
  EXPECT_EQ(reread.Size(), 2u);
  EXPECT_EQ(reread.Find(kFen), Answer({}));
  EXPECT_FALSE(reread.Find("8/8/8/8/8/8/8/K1k5 w - - 0 1"));
  // A line cut short at the end (a crash while writing) loses only itself.
  WriteTextFile(file, ReadTextFile(file) + std::string(kFen).substr(0, 9));
  EXPECT_EQ(CLiChessCache(file, false).Size(), 2u);
}

TEST(LiChessCache, ReadOnlyCopiesNeverWrite) {
  CTempFolder folder;
  const auto file = folder / "x.lichess";
  CLiChessCache(file, false).Store(kFen, Answer({}));
  const std::string before = ReadTextFile(file);
  CLiChessCache readOnly(file, true);
  EXPECT_FALSE(readOnly.Store("8/8/8/8/8/8/8/K1k5 b - - 0 1", CLiChess{}));
  EXPECT_EQ(readOnly.Size(), 2u);  // kept for this copy's own use
  EXPECT_EQ(ReadTextFile(file), before);
  CLiChessCache(folder / "none.lichess", true).Store(kFen, CLiChess{});
  EXPECT_FALSE(std::filesystem::exists(folder / "none.lichess"));
}

TEST(LiChessCache, AnotherVersionIsReplaced) {
  CTempFolder folder;
  const auto file = folder / "x.lichess";
  WriteTextFile(file,
                "Longmate tablebase answers 0\n" + CLiChessCache::Line(kFen, Answer({})) + "\n");
  CLiChessCache cache(file, false);
  EXPECT_EQ(cache.Size(), 0u);
  cache.Store(kFen, CLiChess{});
  EXPECT_EQ(ReadTextFile(file),
            std::string(CLiChessCache::kVersionLine) + "\n" + CLiChessCache::Line(kFen, {}) + "\n");
}

}  // namespace
