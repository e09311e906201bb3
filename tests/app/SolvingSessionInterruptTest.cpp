// Ctrl+C and SIGTERM: the watcher that turns them into a stop, and "longmate solve" ending
// cleanly on them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <future>
#include <string>
#include <utility>

#include "SolvingFixtures.h"
#include "app/TempFolder.h"
#include "app/platform/InterruptWatch.h"

namespace {

using ::testing::HasSubstr;

TEST(SolvingSessionInterrupt, ASignalReachesTheWatcherAndTheHandlersComeBack) {
  for (int nSignal : {SIGINT, SIGTERM}) {
    struct sigaction before = {};
    sigaction(nSignal, nullptr, &before);
    std::promise<int> caught;
    {
      const platform::CInterruptWatch watch([&](int n) { caught.set_value(n); });
      std::raise(nSignal);
      EXPECT_EQ(caught.get_future().get(), nSignal);
    }
    struct sigaction after = {};
    sigaction(nSignal, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
  }
}

// The test programs are built one folder below the command line program.
std::filesystem::path LongmatePath() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "longmate";
}

// "longmate solve" of a long problem in folder, its standard output read through a pipe.
// The shell tells its process id first and then becomes the solve.
class CSolveProcess {
 public:
  CSolveProcess(const std::filesystem::path& folder, const std::string& fen)
      : output(
            popen(("cd '" + folder.string() + "' && echo $$ && exec '" + LongmatePath().string() +
                   "' solve --quiet --fen '" + fen + "' --mate 10 2> err.txt")
                      .c_str(),
                  "r")) {
    ReadUntilLine("");
    pid = std::stoi(text);
  }
  ~CSolveProcess() {
    if (!output) return;
    kill(pid, SIGKILL);  // a test that failed half-way leaves no solve behind
    pclose(output);
  }
  // Reads the output up to the end of a line starting with prefix, or of the first line
  // when prefix is empty; false at the end of the output.
  bool ReadUntilLine(const std::string& prefix) {
    char line[512];
    while (std::fgets(line, sizeof line, output)) {
      text += line;
      if (std::string(line).starts_with(prefix)) return true;
    }
    return false;
  }
  // Sends the signal, reads the rest and returns the exit status, or -1 when the process
  // did not exit by itself.
  int Signal(int nSignal) {
    kill(pid, nSignal);
    while (ReadUntilLine("")) {
    }
    const int nStatus = pclose(std::exchange(output, nullptr));
    return WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1;
  }
  const std::string& Text() const { return text; }

 private:
  std::FILE* output;
  pid_t pid = -1;
  std::string text;
};

TEST(SolvingSessionInterrupt, SolveEndsCleanlyOnCtrlCAndTerminate) {
  if (!std::filesystem::exists(LongmatePath())) GTEST_SKIP() << "longmate is not built";
  const std::string longFen = ReferenceProblemFen("moremovers.tsv", "mt-04273");
  const struct {
    int nSignal;
    int nStatus;
    const char* szTerminalLine;
  } cases[] = {
      {SIGINT, 130, "Solving stopped by signal 2 (Ctrl+C)"},
      {SIGTERM, 143, "Solving stopped by signal 15 (terminate)"},
  };
  for (const auto& c : cases) {
    CTempFolder folder;
    CSolveProcess solve(folder.Path(), longFen);
    // The heading comes once the solve runs.
    ASSERT_TRUE(solve.ReadUntilLine("Problem 1 #10:")) << solve.Text();
    EXPECT_EQ(solve.Signal(c.nSignal), c.nStatus) << ReadTextFile(folder / "err.txt");
    EXPECT_THAT(solve.Text(), HasSubstr("Thread stopped\nEngine stopped: 1\n"));
    EXPECT_THAT(solve.Text(), HasSubstr("Stopped by the user: problem 1 not finished\n"));
    EXPECT_THAT(solve.Text(), ::testing::Not(HasSubstr("No solution found")));
    EXPECT_THAT(ReadTextFile(folder / "err.txt"), HasSubstr(c.szTerminalLine));
    const std::string log = ReadTextFile(folder / "chessGUI.log");
    EXPECT_THAT(log, HasSubstr("Engine stopped: 1 ("));
    EXPECT_THAT(log, HasSubstr("Program close ("));
  }
}

}  // namespace
