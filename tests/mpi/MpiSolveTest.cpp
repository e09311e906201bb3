// A problem's first moves shared over three ranks of an MPI job on this machine give the keys
// of a plain solve: the published keys of direct mates with one key, two keys, castling, en
// passant and promotion among the first moves.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "ProgramRun.h"
#include "TestData.h"

namespace {

const std::set<std::string> kProblems = {"loyd-1859",      "meson-203807", "pyreg-bp-02",
                                         "pyreg-cast-01",  "pyreg-ep-01",  "pyreg-stip-a2",
                                         "makaronets-2019"};

// Each problem's keys as the solve printed them, in no particular order.
std::map<int, std::set<std::string>> KeysPrinted(const std::string& out) {
  std::map<int, std::set<std::string>> keys;
  std::istringstream lines(out);
  int nProblem = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("Problem ")) nProblem = std::atoi(line.c_str() + 8);
    if (!line.starts_with("Keys: ")) continue;
    std::istringstream words(line.substr(6));
    for (std::string key; words >> key;) keys[nProblem].insert(key);
  }
  return keys;
}

// The chosen rows of the direct mates as a problem file, and their published keys.
std::string ProblemFile(std::map<int, std::set<std::string>>& published) {
  std::string cp = "UTF-8\n";
  int id = 0;
  for (const testdata::TRow& row : testdata::ReadTsv("directmates.tsv")) {
    if (!kProblems.contains(row.at("id"))) continue;
    cp += "\n" + std::to_string(++id) + " #" + row.at("n") +
          "\n{\n\tFEN: " + row.at("fen").substr(0, row.at("fen").find(' ')) + "\n}\n";
    for (const std::string& key : testdata::Split(row.at("keys"), " ,")) published[id].insert(key);
  }
  return cp;
}

TEST(MpiSolve, ThreeRanksGiveTheKeysOfOneProcess) {
  const CTempFolder folder;
  std::map<int, std::set<std::string>> published;
  WriteTextFile(folder / "problems.cp", ProblemFile(published));
  ASSERT_EQ(published.size(), kProblems.size());
  const TProgramRun plain = RunLongmate(folder, "solve problems.cp --all --threads 1 --quiet");
  ASSERT_EQ(plain.nStatus, 0) << plain.out << plain.err;
  EXPECT_EQ(KeysPrinted(plain.out), published) << plain.out;

  // Open MPI's own allocations outlive the job: the leak check is not ours to make there.
  const std::string command =
      "cd '" + folder.Path().string() +
      "' && OMPI_ALLOW_RUN_AS_ROOT=1 OMPI_ALLOW_RUN_AS_ROOT_CONFIRM=1 "
      "ASAN_OPTIONS=detect_leaks=0 mpirun -n 3 --oversubscribe '" +
      LongmateProgramPath().string() +
      "' solve problems.cp --all --threads 1 --quiet --mpi > mpi.txt 2> mpi-err.txt";
  const int nStatus = std::system(command.c_str());
  const std::string out = ReadTextFile(folder / "mpi.txt");
  ASSERT_EQ(nStatus, 0) << out << ReadTextFile(folder / "mpi-err.txt");
  EXPECT_EQ(KeysPrinted(out), KeysPrinted(plain.out)) << out;
  // The leader alone prints the summary.
  EXPECT_EQ(out.find("Solved "), out.rfind("Solved ")) << out;
}

}  // namespace
