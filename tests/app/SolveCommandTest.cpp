// The exit statuses of "longmate solve", run as a program beside the test program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>

#include "SolvingFixtures.h"
#include "app/TempFolder.h"

namespace {

// The test programs are built one folder below the command line program.
std::filesystem::path LongmatePath() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "longmate";
}

constexpr const char* kCollection =
    "1 #2\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n\tAnswer: Qh5-a5\n}\n"
    "2 #2 NoMirror\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n\tAnswer: Qh5-h4\n}\n"
    "3 s#2\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n}\n";

TEST(SolveCommand, ExitStatuses) {
  if (!std::filesystem::exists(LongmatePath())) GTEST_SKIP() << "longmate is not built";
  CTempFolder folder;
  WriteTextFile(folder / "problems.cp", kCollection);
  const std::string longFen = ReferenceProblemFen("moremovers.tsv", "mt-04273");
  const struct {
    std::string arguments;
    int nStatus;
    const char* szOutput;  // a line the output must hold
  } cases[] = {
      {"problems.cp --problem 1,3", 0, "Answer Qh5-a5: matched"},
      {"problems.cp --problem 3", 0, "Problem 3 skipped: not a direct mate"},
      {"problems.cp", 1, "Answer Qh5-h4: MISMATCHED"},
      {"--fen '" + longFen + "' --mate 10 --time-limit 1", 1,
       "Time limit of 1 s reached: problem 1 not finished"},
      {"missing.cp", 2, ""},
      {"problems.cp --problem 4", 2, ""},
      {"problems.cp --threads 32^3", 2, ""},
      {"--fen 8/8/8 --mate 2", 2, ""},
      {"--fen 4k3/8/8/8/8/8/8/4RK2 --mate 2", 2, ""},  // Black in check
  };
  for (const auto& c : cases) {
    const std::string command = "cd '" + folder.Path().string() + "' && '" +
                                LongmatePath().string() + "' solve --quiet " + c.arguments +
                                " > out.txt 2> err.txt";
    const int nWaitStatus = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(nWaitStatus)) << c.arguments;
    EXPECT_EQ(WEXITSTATUS(nWaitStatus), c.nStatus) << c.arguments << "\n"
                                                   << ReadTextFile(folder / "err.txt");
    EXPECT_THAT(ReadTextFile(folder / "out.txt"), ::testing::HasSubstr(c.szOutput)) << c.arguments;
  }
}

}  // namespace
