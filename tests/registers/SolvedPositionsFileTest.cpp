#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "RegisterTestSupport.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "registers/ChessboardRegister.h"
#include "registers/SolvedPositionsFile.h"

using registertest::Key;
using registertest::TRecord;

namespace {

using TRegister = TChessboardRegister<bool>;

TRecord Record(std::uint32_t keyNumber, std::uint16_t n, std::uint32_t answer,
               std::uint16_t marker = 0, std::uint32_t heuristics = 0) {
  return {Key(keyNumber), {n, marker, heuristics, answer}};
}

}  // namespace

TEST(SolvedPositionsFile, RecordsGoToTheOperationOfTheirParity) {
  registertest::CTempFile file("parity");
  registertest::WriteRecords(file.path, {Record(1, 7, 0x0201, 17, 0x40), Record(2, 6, 0),
                                         Record(3, 9, 0), Record(4, 4, 1)});
  TRegister reg(100);
  EXPECT_EQ(reg.LoadSolvedPositions(file.path), 4u);
  EXPECT_EQ(reg.FindAnswer(9, Key(1)), 1);
  EXPECT_EQ(reg.FindDefenceAnswer(8, Key(2)), 0);
  EXPECT_EQ(reg.FindAnswer(7, Key(3)), 0);
  EXPECT_EQ(reg.FindDefenceAnswer(4, Key(4)), 1);
  EXPECT_EQ(reg.GetElementsIn(), 2u);  // only White-to-move entries count

  // The stored marker is replaced, the heuristics word kept, the answer cut to its low byte.
  reg.SaveSolvedPositions(file.path);
  const auto saved = registertest::ReadRecords(file.path);
  ASSERT_EQ(saved.size(), 4u);
  for (const TRecord& record : saved) {
    EXPECT_EQ(record.info.marker, 972);
    EXPECT_EQ(record.info.heuristics, record.key == Key(1) ? 0x40u : 0u);
    EXPECT_EQ(record.info.answer, record.key == Key(1) || record.key == Key(4) ? 1u : 0u);
  }
}

TEST(SolvedPositionsFile, ReadingStopsAtAShortRecordAndDoesNotPrune) {
  registertest::CTempFile file("short");
  registertest::WriteRecords(file.path, {Record(1, 9, 1), Record(1, 5, 1), Record(2, 7, 1)}, 75);
  TRegister reg(100);
  EXPECT_EQ(reg.LoadSolvedPositions(file.path), 3u);
  EXPECT_EQ(reg.GetElementsIn(), 3u);  // the entry under 9 stays beside the one under 5
  EXPECT_TRUE(reg.IsCoherencyPruning());
  reg.Insert(7, Key(1), 1);  // known already: nothing changes
  reg.Insert(3, Key(1), 1);  // pruning is back: 5 and 9 give way
  EXPECT_EQ(reg.GetElementsIn(), 2u);
}

TEST(SolvedPositionsFile, IncoherentFileThrowsAndPruningIsRestored) {
  registertest::CTempFile file("incoherent");
  registertest::WriteRecords(file.path, {Record(1, 5, 1), Record(1, 7, 0)});
  TRegister reg(100);
  EXPECT_THROW(reg.LoadSolvedPositions(file.path), ChessException);
  EXPECT_TRUE(reg.IsCoherencyPruning());
}

// What binding makes of files that are not what a save writes: what can be trusted is
// kept, and a file whose records contradict each other is dropped as a whole.
TEST(SolvedPositionsFile, BindingCopesWithDamagedFiles) {
  const struct {
    const char* name;
    std::vector<TRecord> records;
    std::size_t nTailBytes;
    std::uint32_t nWhiteEntries;
  } cases[] = {
      {"cut inside the first record", {}, 40, 0},
      {"cut inside the last record", {Record(1, 5, 1), Record(2, 7, 0)}, 75, 2},
      // Move count 0 and answers other than yes or no come from no register.
      {"implausible records",
       {Record(1, 0, 1), Record(2, 5, 2), Record(3, 5, 0x103), Record(4, 7, 0)},
       0,
       1},
      {"contradicting records", {Record(1, 5, 1), Record(2, 9, 0), Record(1, 7, 0)}, 0, 0},
  };
  for (const auto& c : cases) {
    registertest::CTempFile file("damaged");
    registertest::WriteRecords(file.path, c.records, c.nTailBytes);
    TRegister reg(100);
    reg.Insert(9, Key(60), 1);
    EXPECT_TRUE(reg.BindToProblem(Key(50), file.path)) << c.name;
    EXPECT_EQ(reg.GetElementsIn(), c.nWhiteEntries) << c.name;
    EXPECT_EQ(reg.FindAnswer(9, Key(60)), kRegisterUnknown) << c.name;
    EXPECT_TRUE(reg.IsCoherencyPruning()) << c.name;
    EXPECT_FALSE(reg.BindToProblem(Key(50), file.path)) << c.name << ": still bound";
  }
}

// The save of the bound problem, read back by a register that starts afresh.
TEST(SolvedPositionsFile, SavedProblemIsReadBackByAFreshRegister) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("longmate-" + std::to_string(::getpid()) + "-save");
  const std::filesystem::path file = folder / "SolvedProblemsDB" / "problem.cspdb";
  TRegister first(100);
  EXPECT_EQ(first.SaveBoundProblem(), std::nullopt);  // bound to no problem: nothing to name
  first.BindToProblem(Key(50), file);
  first.Insert(5, Key(1), 1);
  first.Insert(9, Key(2), 0);
  first.InsertDefence(6, Key(3), 1);
  EXPECT_EQ(first.SaveBoundProblem(), 3u);  // the folder is made on the way

  TRegister second(100);
  second.BindToProblem(Key(50), file);
  EXPECT_EQ(second.FindAnswer(7, Key(1)), 1);
  EXPECT_EQ(second.FindAnswer(9, Key(2)), 0);
  EXPECT_EQ(second.FindDefenceAnswer(4, Key(3)), 1);
  EXPECT_EQ(std::filesystem::directory_iterator(file.parent_path())->path(), file);  // no leftovers
  std::filesystem::remove_all(folder);
}

TEST(SolvedPositionsFile, NamedAfterThePlacementInTheirFolder) {
  TChessboard board;
  ClearChessboard(board);
  ASSERT_TRUE(fen::ReadFen(board, "4k3/8/8/8/8/8/8/4K3"));
  EXPECT_EQ(solvedpositions::FileName(TChessboardId(board)),
            std::filesystem::path("SolvedProblemsDB/g000000000M0.72.cspdb"));
}

TEST(SolvedPositionsFile, BindingReadsOnlyForANewProblem) {
  registertest::CTempFile file("bind");
  registertest::WriteRecords(file.path, {Record(1, 5, 1)});
  TRegister reg(100);
  EXPECT_EQ(reg.LoadSolvedPositions("/nonexistent/solved.cspdb"), 0u);
  reg.Insert(7, Key(2), 0);
  EXPECT_TRUE(reg.BindToProblem(Key(50), file.path));
  EXPECT_EQ(reg.FindAnswer(7, Key(2)), kRegisterUnknown);  // emptied before reading
  EXPECT_EQ(reg.FindAnswer(5, Key(1)), 1);

  reg.Insert(7, Key(2), 0);
  EXPECT_FALSE(reg.BindToProblem(Key(50), file.path));
  EXPECT_EQ(reg.FindAnswer(7, Key(2)), 0);
  EXPECT_TRUE(reg.BindToProblem(Key(51), "/nonexistent/solved.cspdb"));
  EXPECT_EQ(reg.GetElementsIn(), 0u);

  // An emptied register holds no problem: binding to the same one reads its file again.
  reg.Clear();
  EXPECT_TRUE(reg.BindToProblem(Key(51), file.path));
  EXPECT_EQ(reg.FindAnswer(5, Key(1)), 1);
}
