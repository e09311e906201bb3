#include <gtest/gtest.h>

#include <map>
#include <random>

#include "RegisterTestSupport.h"
#include "registers/RegisterTable.h"

using registertest::Key;

namespace {

std::uint16_t MovesOf(std::uint32_t keyNumber) {
  return static_cast<std::uint16_t>(1 + keyNumber % 40);
}

// Checks that the table holds exactly the model's keys, each with its one entry.
void ExpectSameKeys(const CRegisterTable& table, const std::map<std::uint32_t, bool>& model) {
  ASSERT_EQ(table.Size(), model.size());
  std::size_t nVisited = 0;
  table.ForEach([&](const TChessboardRegisterItem&, const CRegisterEntries&) { ++nVisited; });
  EXPECT_EQ(nVisited, model.size());
  for (const auto& [number, answer] : model) {
    const CRegisterEntries* entries = table.Find(Key(number), HashRegisterItem(Key(number)));
    ASSERT_NE(entries, nullptr) << number;
    ASSERT_EQ(entries->end() - entries->begin(), 1);
    EXPECT_EQ(entries->begin()->nMoves, MovesOf(number));
    EXPECT_EQ(entries->begin()->answer, answer ? 1u : 0u);
  }
}

}  // namespace

// Random filings, sweeps and compactions against a map: growth, Robin Hood shifts, backward
// shift erasure and wrap-around at the end of the slot array all happen many times over.
TEST(RegisterTable, AgreesWithAMapThroughGrowthSweepsAndCompaction) {
  CRegisterTable table;
  std::map<std::uint32_t, bool> model;
  std::mt19937 random(20240611);
  for (int round = 0; round < 20000; ++round) {
    const std::uint32_t number = random() % 2000;
    const std::uint32_t choice = random() % 64;
    const TChessboardRegisterItem key = Key(number);
    if (choice < 61) {
      CRegisterEntries& entries = table.FindOrAdd(key, HashRegisterItem(key));
      ASSERT_EQ(entries.Empty(), model.count(number) == 0) << "round " << round;
      if (entries.Empty()) {
        entries.Add({MovesOf(number), kRegisterMarker, 0, number & 1});
        model[number] = (number & 1) != 0;
      }
    } else if (choice < 63) {
      const std::uint16_t limit = MovesOf(number) / 4;
      table.UpdateAll([limit](CRegisterEntries& entries) { entries.RemoveUpTo(limit); });
      std::erase_if(model, [limit](const auto& item) { return MovesOf(item.first) <= limit; });
    } else {
      table.Compact();
    }
    if (round % 5000 == 0) ExpectSameKeys(table, model);
  }
  ExpectSameKeys(table, model);
  table.Clear();
  EXPECT_EQ(table.Find(Key(1), HashRegisterItem(Key(1))), nullptr);
}
