#include "problems/SafeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

namespace safefile {
namespace {

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

  bool Create(const TFileCalls& calls) {
    std::vector<char> pattern(name.begin(), name.end());
    pattern.push_back('\0');
    fd = calls.makeTemp(pattern.data());
    name = pattern.data();
    return fd >= 0;
  }

  // The new file keeps the permissions of the one it replaces.
  void CopyMode(const std::string& target) {
    struct stat info {};
    ::fchmod(fd, ::stat(target.c_str(), &info) == 0 ? info.st_mode & 07777 : 0644);
  }

  bool WriteAll(const TFileCalls& calls, std::string_view content) {
    while (!content.empty()) {
      const ssize_t n = calls.write(fd, content.data(), content.size());
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) {
        if (n == 0) errno = ENOSPC;
        return false;
      }
      content.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
  }

  bool SyncAndClose(const TFileCalls& calls) {
    if (calls.sync(fd) != 0) return false;
    const int closing = fd;
    fd = -1;
    return ::close(closing) == 0;
  }

  bool RenameTo(const TFileCalls& calls, const std::string& target) {
    bRenamed = calls.rename(name.c_str(), target.c_str()) == 0;
    return bRenamed;
  }

 private:
  std::string name;
  int fd = -1;
  bool bRenamed = false;
};

}  // namespace

const TFileCalls& SystemCalls() {
  static const TFileCalls calls{::mkstemp, ::write, ::fsync, ::rename};
  return calls;
}

std::optional<std::string> Save(const std::string& path, std::string_view content,
                                const TFileCalls& calls) {
  const std::string target = ResolvedTarget(path);
  CTempFile temp(target);
  if (!temp.Create(calls)) return "Error opening file: " + path;
  temp.CopyMode(target);
  if (!temp.WriteAll(calls, content) || !temp.SyncAndClose(calls) ||
      !temp.RenameTo(calls, target)) {
    return "Error writing file: " + path + ": " + std::strerror(errno);
  }
  SyncFolderOf(target);
  return std::nullopt;
}

}  // namespace safefile
