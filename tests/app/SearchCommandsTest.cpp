// "longmate find" and "longmate regress" run as programs: their exit statuses, and the files
// they only read left as they were.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "CommandRun.h"

namespace {

using ::testing::HasSubstr;

constexpr const char* kCollection =
    "1 #2\n{\n\tDescription: S. Loyd 1859\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n"
    "\tAnswer: Qh5-a5\n}\n"
    "2 #2 NoMirror\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n\tAnswer: Qh5-h4\n}\n"
    "3 s#2\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n}\n"
    "4\n{\n\tFEN: 4k3/8/8/8/8/8/8/4K3\n}\n";

class SearchCommands : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(LongmatePath())) GTEST_SKIP() << "longmate is not built";
    WriteTextFile(folder / "problems.cp", kCollection);
    WriteTextFile(folder / "broken.cp", "1 #2\n{\n\tFEN: 8/8/8\n}\n");
    WriteTextFile(
        folder / "list.txt",
        "seen: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - 0 1\nnot: 8/8/8/8/8/8/8/K1k5\n");
  }
  TRun Run(const std::string& arguments) const { return RunLongmate(folder.Path(), arguments); }

  CTempFolder folder;
};

TEST_F(SearchCommands, ExitStatusesAndMessages) {
  const auto time = std::filesystem::last_write_time(folder / "problems.cp");
  const struct {
    const char* szArguments;
    int nStatus;
    const char* szOut;  // held by the output, or by the error stream when the status is 2
  } cases[] = {
      {"find problems.cp --text loyd", 0, "Found problems that match criteria: 1"},
      {"find problems.cp --text nothing-like-it", 1, "No problem found"},
      {"find problems.cp --mate 2 --pieces 16", 0, "Found problems that match criteria: 3"},
      {"find problems.cp --fens-from list.txt", 0, "1 of 2 FEN codes of list.txt found"},
      {"find problems.cp --similar 1", 0, "Found similar problems: 2"},
      {"find problems.cp --mate 5..3", 2, "Improper number of moves"},
      {"find problems.cp --black-pawns 3..x", 2, "Improper number of black pawns on chessboard."},
      {"find problems.cp --fen 8/8/8", 2, "Improper FEN code."},
      {"find problems.cp --regex --text '('", 2, "Improper regular expression"},
      {"find problems.cp --heuristic SH_NOSUCHTHING", 2, "SH_NOSUCHTHING"},
      {"find problems.cp --heuristic SH_AREKINGSNEAR:often", 2, "often"},
      {"find problems.cp --similar 99", 2, "no problem 99"},
      {"find problems.cp --fens-from missing.txt", 2, "missing.txt"},
      {"find missing.cp", 2, "missing.cp"},
      {"find broken.cp", 2, "broken.cp"},
      {"regress problems.cp --problem 1 --quiet", 0, "Test #1 ok"},
      {"regress problems.cp --problem 2,1 --quiet", 1, "Test #2 failed:"},
      {"regress problems.cp --problem 4 --quiet", 0, "Passed 0, failed 0, skipped 1"},
      {"regress problems.cp --problem 3 --quiet", 0, "Prob.#3 No solution"},
      {"regress problems.cp --problem 7", 2, "No problem 7"},
      {"regress problems.cp --threads 0", 2, "--threads"},
      {"regress broken.cp", 2, "broken.cp"},
      {"regress", 2, "file"},
      {"bench find --problems 0", 2, "--problems"},
  };
  for (const auto& c : cases) {
    const TRun run = Run(c.szArguments);
    EXPECT_EQ(run.nStatus, c.nStatus) << c.szArguments << "\n" << run.err;
    EXPECT_THAT(c.nStatus == 2 ? run.err : run.out, HasSubstr(c.szOut)) << c.szArguments;
  }
  EXPECT_EQ(ReadTextFile(folder / "problems.cp"), kCollection);
  EXPECT_EQ(std::filesystem::last_write_time(folder / "problems.cp"), time);
  EXPECT_THAT(ReadTextFile(folder / "RegressionTest.log"), HasSubstr("Prob.#3"));
}

}  // namespace
