#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RegisterTestSupport.h"
#include "core/ChessException.h"
#include "registers/ChessboardRegister.h"

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
}
