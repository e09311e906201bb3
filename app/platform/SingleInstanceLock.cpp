#include "app/platform/SingleInstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace platform {

CSingleInstanceLock::CSingleInstanceLock(const std::filesystem::path& lockFile) {
  // Each object opens its own file description, so two locks conflict even
  // inside one process; the kernel drops the lock when the process ends.
  const int fd = open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (fd < 0) return;  // an unwritable folder: run as the only instance we can tell
  if (flock(fd, LOCK_EX | LOCK_NB) == 0) {
    m_fd = fd;
    return;
  }
  m_bSecondInstance = errno == EWOULDBLOCK;
  close(fd);
}

CSingleInstanceLock::~CSingleInstanceLock() {
  if (m_fd < 0) return;
  flock(m_fd, LOCK_UN);
  close(m_fd);
}

}  // namespace platform
