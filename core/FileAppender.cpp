#include "core/FileAppender.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace safefile {

CFileAppender::CFileAppender(std::string name) : path(std::move(name)) {}

CFileAppender::~CFileAppender() {
  if (fd >= 0) ::close(fd);
}

bool CFileAppender::Fail(bool bOpening) {
  const int nErrno = errno;
  error = bOpening ? OpeningError(path, nErrno) : WritingError(path, nErrno);
  return false;
}

// Drops the part of a failed text that did reach the file. A file that cannot be cut keeps it;
// the message of the failure tells all the same.
void CFileAppender::CutBack(off_t nLength) const {
  [[maybe_unused]] const int nCut = ::ftruncate(fd, nLength);
}

bool CFileAppender::Open() {
  if (fd >= 0) return true;
  fd = calls::OpenForAppend(path.c_str());
  return fd >= 0 || Fail(true);
}

bool CFileAppender::Append(std::string_view text) {
  if (fd < 0) return false;
  struct stat before {};
  const bool bKnownLength = ::fstat(fd, &before) == 0;
  while (!text.empty()) {
    const ssize_t n = calls::WriteSome(fd, text.data(), text.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      if (n == 0) errno = ENOSPC;
      const int nErrno = errno;
      if (bKnownLength) CutBack(before.st_size);
      errno = nErrno;
      return Fail(false);
    }
    text.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

bool CFileAppender::Close() {
  if (fd < 0) return true;
  const int closing = fd;
  fd = -1;
  return calls::Close(closing) == 0 || Fail(false);
}

std::optional<std::string> AppendToFile(const std::string& path, std::string_view text) {
  CFileAppender appender(path);
  if (appender.Open() && appender.Append(text) && appender.Close()) return std::nullopt;
  return appender.Error();
}

}  // namespace safefile
