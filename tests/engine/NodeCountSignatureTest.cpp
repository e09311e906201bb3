// The node-count signature of the search: how many positions a single-threaded solve for all
// keys makes in a few fixed problems, from a fresh register. Move ordering, pruning and the
// use of the register all show in these numbers, so a change to any of them changes the
// signature and gets reviewed as a number, beside the keys that other tests check.
//
// To update it after an intended change: run
//   build/debug/tests/engine_tests --gtest_filter='NodeCountSignature.*'
// which fails and prints the new table; paste it over kSignature below and say in the commit
// message why the counts moved (and by how much the total fell or rose).
#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>

#include "DirectMateRows.h"
#include "engine/MateSolver.h"

namespace {

struct TSignatureRow {
  const char* id;           // a row of directmates.tsv
  const char* indications;  // sort indications given to the solve, "" for none
  std::uint64_t nPositions;
};

constexpr TSignatureRow kSignature[] = {
    {"loyd-1859", "", 165},         {"makaronets-2019", "", 9850},  {"pyreg-cast-07", "", 11001},
    {"nomate-mt-00187", "", 45792}, {"anon-4", "", 60298},          {"anon-4", "~1. Rd5-c5", 60290},
    {"mt-00167", "", 15123},        {"loyd-excelsior", "", 176218}, {"mt-00386", "", 46062},
};

// Far more than these solves file: no entry is ever evicted, which would make the counts
// depend on timing.
constexpr std::uint32_t kRoomyRegister = 4'000'000;

TEST(NodeCountSignature, PositionsOfFixedSolvesAreAsRecorded) {
  std::ostringstream table;
  bool bChanged = false;
  for (const TSignatureRow& row : kSignature) {
    const testdata::TRow data = matetest::Row(row.id);
    const TChessboard root = matetest::Root(data);
    TChessboardRegister<bool> reg(kRoomyRegister);
    CMateSolver solver(root, matetest::Moves(data),
                       {.nThreads = 1,
                        .nMaxSolutions = 0,
                        .pRegister = &reg,
                        .sortIndications = sortindication::ParseList(row.indications)});
    const TRootOutcome outcome = solver.Run();
    ASSERT_EQ(matetest::Texts(root, outcome.keys, true), matetest::PublishedKeys(data)) << row.id;
    ASSERT_LT(reg.GetPeakElementsIn(), kRoomyRegister / 2) << row.id;
    bChanged = bChanged || outcome.nPositions != row.nPositions;
    table << "    {\"" << row.id << "\", \"" << row.indications << "\", " << outcome.nPositions
          << "},\n";
  }
  EXPECT_FALSE(bChanged) << "The node-count signature changed; if that is intended, the new "
                            "kSignature is:\n"
                         << table.str();
}

}  // namespace
