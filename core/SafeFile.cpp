#include "core/SafeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
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
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);  // the rename is already done; a folder that cannot be synced still holds it
  ::close(fd);
}

// Writes every byte, through as many partial writes as the system makes.
template <typename TWriteSome>
bool WriteAll(const char* data, std::size_t nBytes, TWriteSome writeSome) {
  while (nBytes > 0) {
    const ssize_t n = writeSome(data, nBytes);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      if (n == 0) errno = ENOSPC;
      return false;
    }
    data += n;
    nBytes -= static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

CFileWriter::CFileWriter(std::string name) : path(std::move(name)) {}

CFileWriter::~CFileWriter() {
  Drop();
}

void CFileWriter::Drop() {
  if (fd >= 0) ::close(fd);
  fd = -1;
  if (!tempName.empty()) ::unlink(tempName.c_str());
  tempName.clear();
}

bool CFileWriter::Fail(bool bOpening) {
  const int nErrno = errno;
  if (error.empty()) error = bOpening ? OpeningError(path, nErrno) : WritingError(path, nErrno);
  Drop();
  return false;
}

bool CFileWriter::Begin() {
  target = ResolvedTarget(path);
  std::string name = target + ".tmp-XXXXXX";
  std::vector<char> pattern(name.begin(), name.end());
  pattern.push_back('\0');
  fd = calls::MakeTemp(pattern.data());
  if (fd < 0) return Fail(true);
  tempName = pattern.data();
  // The new file keeps the permissions of the one it replaces.
  struct stat info {};
  ::fchmod(fd, ::stat(target.c_str(), &info) == 0 ? info.st_mode & 07777 : 0644);
  return true;
}

bool CFileWriter::Write(const void* data, std::size_t nBytes) {
  if (fd < 0) return false;
  const auto writeSome = [this](const char* bytes, std::size_t n) {
    return calls::WriteSome(fd, bytes, n);
  };
  return WriteAll(static_cast<const char*>(data), nBytes, writeSome) || Fail(false);
}

bool CFileWriter::WriteAt(std::uint64_t nOffset, const void* data, std::size_t nBytes) {
  if (fd < 0) return false;
  const char* start = static_cast<const char*>(data);
  const auto writeSomeAt = [&](const char* bytes, std::size_t n) {
    return calls::WriteSomeAt(fd, bytes, n, nOffset + static_cast<std::uint64_t>(bytes - start));
  };
  return WriteAll(start, nBytes, writeSomeAt) || Fail(false);
}

bool CFileWriter::Commit() {
  if (fd < 0) return false;
  if (calls::Sync(fd) != 0) return Fail(false);
  const int closing = fd;
  fd = -1;
  if (calls::Close(closing) != 0) return Fail(false);
  if (calls::Rename(tempName.c_str(), target.c_str()) != 0) return Fail(false);
  tempName.clear();
  SyncFolderOf(target);
  return true;
}

std::optional<std::string> Save(const std::string& path, std::string_view content) {
  CFileWriter writer(path);
  if (writer.Begin() && writer.Write(content) && writer.Commit()) return std::nullopt;
  return writer.Error();
}

}  // namespace safefile
