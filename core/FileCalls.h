#pragma once
// The system calls behind every file the program writes, with a test hook standing in for a
// failing system, and the messages that name a file that cannot be written.
#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace safefile {

// A test hook standing in for a failing system. The writers count their operations: creating
// or opening a file, each write, the flush to the disk, the close and the rename. The operation
// numbered nFailingOperation fails with nErrno as if the system had refused it; ENOSPC is a
// full disk.
struct TFaultSeam {
  int nFailingOperation = 0;  // counted from 1; 0 fails none
  int nErrno = EIO;
  // Writes take at most this many bytes, as the system may do, so that one save makes
  // several writes.
  std::size_t nMaxWriteBytes = std::numeric_limits<std::size_t>::max();
  int nOperations = 0;  // the operations counted so far
};

// Puts the seam under the file operations of the calling thread; nullptr takes it away.
void SetFaultSeam(TFaultSeam* seam);

// "Error opening file: <path>", with ": the disk is full" when it is.
std::string OpeningError(const std::string& path, int nErrno);
// "Error writing file: <path>: " and the system's reason, "the disk is full" for a full disk.
std::string WritingError(const std::string& path, int nErrno);

namespace calls {
// Each returns what the system call does, -1 with errno set when the seam fails it.
int MakeTemp(char* pattern);
int OpenForAppend(const char* path);
ssize_t WriteSome(int fd, const char* data, std::size_t size);
ssize_t WriteSomeAt(int fd, const char* data, std::size_t size, std::uint64_t nOffset);
int Sync(int fd);
// The descriptor is closed even when the seam fails the call, as the system does.
int Close(int fd);
int Rename(const char* from, const char* to);
}  // namespace calls

}  // namespace safefile
