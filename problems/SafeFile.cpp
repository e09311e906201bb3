#include "problems/SafeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

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

int MakeTemp(char* pattern) {
  return FaultInjected() ? -1 : ::mkstemp(pattern);
}

ssize_t WriteSome(int fd, const char* data, std::size_t size) {
  if (FaultInjected()) return -1;
  return ::write(fd, data, faultSeam ? std::min(size, faultSeam->nMaxWriteBytes) : size);
}

int Sync(int fd) {
  return FaultInjected() ? -1 : ::fsync(fd);
}

// The descriptor is closed even when the seam fails the call, as the system does.
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

// A link is followed so that the file it names is replaced, not the link.
std::string ResolvedTarget(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_symlink(path, error)) {
    const std::filesystem::path target = std::filesystem::canonical(path, error);
    if (!error) return target.string();
  }
  return path;
}

void SyncFolderOf(const std::string& path) {
  std::string folder = std::filesystem::path(path).parent_path().string();
  if (folder.empty()) folder = ".";
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd < 0) return;
  ::fsync(fd);  // the rename is already done; a folder that cannot be synced still holds it
  ::close(fd);
}

class CTempFile {
 public:
  explicit CTempFile(const std::string& target) : name(target + ".tmp-XXXXXX") {}
  ~CTempFile() {
    if (fd >= 0) ::close(fd);
    if (!bRenamed) ::unlink(name.c_str());
  }

  bool Create() {
    std::vector<char> pattern(name.begin(), name.end());
    pattern.push_back('\0');
    fd = MakeTemp(pattern.data());
    name = pattern.data();
    return fd >= 0;
  }

  // The new file keeps the permissions of the one it replaces.
  void CopyMode(const std::string& target) {
    struct stat info {};
    ::fchmod(fd, ::stat(target.c_str(), &info) == 0 ? info.st_mode & 07777 : 0644);
  }

  bool WriteAll(std::string_view content) {
    while (!content.empty()) {
      const ssize_t n = WriteSome(fd, content.data(), content.size());
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) {
        if (n == 0) errno = ENOSPC;
        return false;
      }
      content.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
  }

  bool SyncAndClose() {
    if (Sync(fd) != 0) return false;
    const int closing = fd;
    fd = -1;
    return Close(closing) == 0;
  }

  bool RenameTo(const std::string& target) {
    bRenamed = Rename(name.c_str(), target.c_str()) == 0;
    return bRenamed;
  }

 private:
  std::string name;
  int fd = -1;
  bool bRenamed = false;
};

}  // namespace

void SetFaultSeam(TFaultSeam* seam) {
  faultSeam = seam;
}

std::optional<std::string> Save(const std::string& path, std::string_view content) {
  const std::string target = ResolvedTarget(path);
  CTempFile temp(target);
  if (!temp.Create()) return "Error opening file: " + path;
  temp.CopyMode(target);
  if (!temp.WriteAll(content) || !temp.SyncAndClose() || !temp.RenameTo(target)) {
    return "Error writing file: " + path + ": " + std::strerror(errno);
  }
  SyncFolderOf(target);
  return std::nullopt;
}

}  // namespace safefile
