// Ctrl+C and SIGTERM: the watcher that turns them into a stop, and "longmate solve" ending
// cleanly on them.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <future>
#include <string>

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
class CSolveProcess {
 public:
  CSolveProcess(const std::filesystem::path& folder, const std::string& fen) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("pipe");
    const std::string program = LongmatePath().string();
    const std::string errors = (folder / "err.txt").string();
    pid = fork();
    if (pid == 0) {  // only what is safe after fork until exec
      const int errorFile = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
      if (chdir(folder.c_str()) != 0 || dup2(ends[1], 1) < 0 || dup2(errorFile, 2) < 0) _exit(99);
      close(ends[0]);
      execl(program.c_str(), program.c_str(), "solve", "--quiet", "--fen", fen.c_str(), "--mate",
            "10", static_cast<char*>(nullptr));
      _exit(98);
    }
    close(ends[1]);
    output = fdopen(ends[0], "r");
  }
  ~CSolveProcess() {
    if (output) std::fclose(output);
  }
  // Reads the output until a line starting with prefix, or to its end without one; returns
  // whether the line came.
  bool ReadUntilLine(const std::string& prefix) {
    char line[512];
    while (std::fgets(line, sizeof line, output)) {
      text += line;
      if (!prefix.empty() && std::string(line).starts_with(prefix)) return true;
    }
    return false;
  }
  // Sends the signal, reads the rest and returns the exit status, or -1 when the process
  // did not exit by itself.
  int Signal(int nSignal) {
    kill(pid, nSignal);
    ReadUntilLine("");
    int nStatus = 0;
    waitpid(pid, &nStatus, 0);
    return WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1;
  }
  const std::string& Text() const { return text; }

 private:
  pid_t pid = -1;
  std::FILE* output = nullptr;
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
