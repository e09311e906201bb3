#pragma once
// Runs "longmate", built one folder above the test programs, in a folder of the test's.
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "TempFolder.h"

struct TProgramRun {
  int nStatus = -1;
  std::string out, err;
};

inline std::filesystem::path LongmateProgramPath() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "longmate";
}

// The exit status and the output streams of "longmate arguments" run in folder.
inline TProgramRun RunLongmate(const CTempFolder& folder, const std::string& arguments) {
  const std::string command = "cd '" + folder.Path().string() + "' && '" +
                              LongmateProgramPath().string() + "' " + arguments +
                              " > out.txt 2> err.txt";
  const int nWaitStatus = std::system(command.c_str());
  return {WIFEXITED(nWaitStatus) ? WEXITSTATUS(nWaitStatus) : -1, ReadTextFile(folder / "out.txt"),
          ReadTextFile(folder / "err.txt")};
}
