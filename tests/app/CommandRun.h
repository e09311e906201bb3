#pragma once
// Runs "longmate" as a program beside the test program, as a user would.
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "TempFolder.h"

// The test programs are built one folder below the command line program.
inline std::filesystem::path LongmatePath() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "longmate";
}

struct TRun {
  int nStatus = -1;
  std::string out, err;
};

// Runs longmate with the arguments in folder; returns the exit status and the output streams.
inline TRun RunLongmate(const std::filesystem::path& folder, const std::string& arguments) {
  const std::string command = "cd '" + folder.string() + "' && '" + LongmatePath().string() + "' " +
                              arguments + " > out.txt 2> err.txt";
  const int nWaitStatus = std::system(command.c_str());
  return {WIFEXITED(nWaitStatus) ? WEXITSTATUS(nWaitStatus) : -1, ReadTextFile(folder / "out.txt"),
          ReadTextFile(folder / "err.txt")};
}
