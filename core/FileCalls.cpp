#include "core/FileCalls.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace safefile {
namespace {

thread_local TFaultSeam* faultSeam = nullptr;

// Counts the operation; true when the seam fails it, with errno set.
bool FaultInjected() {
  if (faultSeam == nullptr || ++faultSeam->nOperations != faultSeam->nFailingOperation)
    return false;
  errno = faultSeam->nErrno;
  return true;
}

std::size_t WriteSize(std::size_t size) {
  return faultSeam ? std::min(size, faultSeam->nMaxWriteBytes) : size;
}

bool IsDiskFull(int nErrno) {
  return nErrno == ENOSPC || nErrno == EDQUOT;
}

}  // namespace

void SetFaultSeam(TFaultSeam* seam) {
  faultSeam = seam;
}

std::string OpeningError(const std::string& path, int nErrno) {
  return "Error opening file: " + path + (IsDiskFull(nErrno) ? ": the disk is full" : "");
}

std::string WritingError(const std::string& path, int nErrno) {
  return "Error writing file: " + path + ": " +
         (IsDiskFull(nErrno) ? std::string("the disk is full") : std::strerror(nErrno));
}

namespace calls {

int MakeTemp(char* pattern) {
  return FaultInjected() ? -1 : ::mkstemp(pattern);
}

int OpenForAppend(const char* path) {
  return FaultInjected() ? -1 : ::open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
}

ssize_t WriteSome(int fd, const char* data, std::size_t size) {
  return FaultInjected() ? -1 : ::write(fd, data, WriteSize(size));
}

ssize_t WriteSomeAt(int fd, const char* data, std::size_t size, std::uint64_t nOffset) {
  return FaultInjected() ? -1 : ::pwrite(fd, data, WriteSize(size), static_cast<off_t>(nOffset));
}

int Sync(int fd) {
  return FaultInjected() ? -1 : ::fsync(fd);
}

int Close(int fd) {
  const bool bFail = FaultInjected();
  const int nInjected = errno;
  if (::close(fd) != 0) return -1;
  if (bFail) errno = nInjected;
  return bFail ? -1 : 0;
}

int Rename(const char* from, const char* to) {
  return FaultInjected() ? -1 : ::rename(from, to);
}

}  // namespace calls
}  // namespace safefile
