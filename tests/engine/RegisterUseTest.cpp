// The search's use of the register: a register too small to hold a solve, and the solved
// positions saved for a problem and read back by a register that starts afresh.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "DirectMateRows.h"
#include "core/ChessboardId.h"
#include "engine/MateSolver.h"
#include "engine/RegisterBinding.h"
#include "registers/SolvedPositionsFile.h"

namespace {

// A few hundred entries: the register is full almost at once and evicts all the time, so
// that lookups keep missing what was filed a moment ago.
constexpr std::uint32_t kTinyRegister = 300;

struct TSolve {
  std::vector<std::string> keys;  // sorted
  std::uint64_t nPositions = 0;
};

TSolve SolveAll(const TChessboard& root, int nMoves, TChessboardRegister<bool>& reg,
                int nThreads = 1) {
  CMateSolver solver(root, nMoves, {.nThreads = nThreads, .nMaxSolutions = 0, .pRegister = &reg});
  const TRootOutcome outcome = solver.Run();
  return {matetest::Texts(root, outcome.keys, true), outcome.nPositions};
}

TEST(RegisterUse, TinyRegisterGivesThePublishedKeys) {
  int nSolved = 0;
  for (const auto& row : matetest::QuickRows(0.06, 3)) {
    const TChessboard root = matetest::Root(row);
    for (int nThreads : {1, 2}) {
      TChessboardRegister<bool> reg(kTinyRegister);
      EXPECT_EQ(SolveAll(root, matetest::Moves(row), reg, nThreads).keys,
                matetest::PublishedKeys(row))
          << row.at("id") << ", " << nThreads << " threads";
      EXPECT_LE(reg.GetPeakElementsIn(), kTinyRegister + nThreads) << row.at("id");
    }
    ++nSolved;
  }
  EXPECT_GE(nSolved, 15);
}

// A working folder of its own, removed with everything in it.
class CWorkingFolder {
 public:
  CWorkingFolder()
      : path(std::filesystem::temp_directory_path() /
             ("longmate-" + std::to_string(::getpid()) + "-register")) {
    std::filesystem::create_directories(path);
  }
  ~CWorkingFolder() { std::filesystem::remove_all(path); }
  const std::filesystem::path path;
};

// Appends a record that contradicts the first White-to-move record of the file: the same
// key not mated within two more plies.
void AppendContradiction(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  char record[76];
  TRegisterInfo info;
  do {
    ASSERT_TRUE(in.read(record, sizeof record));
    std::memcpy(&info, record + 64, sizeof info);
  } while ((info.nMoves & 1) == 0 || (info.answer & 0xFF) != 1);
  in.close();
  info.nMoves = static_cast<std::uint16_t>(info.nMoves + 2);
  info.answer = 0;
  std::memcpy(record + 64, &info, sizeof info);
  std::ofstream(file, std::ios::binary | std::ios::app).write(record, sizeof record);
}

// A solve, a save, and registers of later runs bound to the same problem: what they read
// back makes the next solve cheaper and changes no key; a damaged file costs only speed.
TEST(RegisterUse, SavedPositionsSpeedUpTheNextRun) {
  const testdata::TRow row = matetest::Row("anon-4");
  const TChessboard root = matetest::Root(row);
  const int nMoves = matetest::Moves(row);
  const CWorkingFolder folder;
  const std::filesystem::path file = folder.path / solvedpositions::FileName(TChessboardId(root));

  TChessboardRegister<bool> first(1'000'000);
  EXPECT_TRUE(BindRegisterToProblem(first, root, folder.path));
  const TSolve fresh = SolveAll(root, nMoves, first);
  ASSERT_EQ(fresh.keys, matetest::PublishedKeys(row));
  EXPECT_FALSE(BindRegisterToProblem(first, root, folder.path));  // the same problem: kept
  const auto nSaved = first.SaveBoundProblem();
  ASSERT_TRUE(nSaved.has_value());
  EXPECT_EQ(std::filesystem::file_size(file), *nSaved * 76);
  const std::filesystem::path saved = folder.path / "saved.cspdb";
  std::filesystem::copy_file(file, saved);

  const struct {
    const char* name;
    void (*damage)(const std::filesystem::path&);
    bool bFaster;
  } runs[] = {
      {"as saved", [](const std::filesystem::path&) {}, true},
      {"cut inside a record",
       [](const std::filesystem::path& f) {
         std::filesystem::resize_file(f, std::filesystem::file_size(f) - 30);
       },
       true},
      {"contradicting itself", AppendContradiction, false},
  };
  for (const auto& run : runs) {
    std::filesystem::copy_file(saved, file, std::filesystem::copy_options::overwrite_existing);
    run.damage(file);
    TChessboardRegister<bool> later(1'000'000);
    EXPECT_TRUE(BindRegisterToProblem(later, root, folder.path)) << run.name;
    EXPECT_EQ(later.GetElementsIn() > 0, run.bFaster) << run.name;
    const TSolve again = SolveAll(root, nMoves, later);
    EXPECT_EQ(again.keys, fresh.keys) << run.name;
    if (run.bFaster) {
      EXPECT_LT(again.nPositions * 4, fresh.nPositions) << run.name;
    } else {
      EXPECT_EQ(again.nPositions, fresh.nPositions) << run.name;
    }
  }
}

}  // namespace
