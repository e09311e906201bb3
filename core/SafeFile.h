#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/FileCalls.h"

// Saving that never leaves a half-written file: the bytes go to a temporary file in the same
// folder, are flushed to the disk, and only then replace the old file by a rename. On any
// failure the old file stays as it was and the temporary file is removed.
namespace safefile {

// A file written piece by piece: Begin creates the temporary file, Write and WriteAt fill
// it, Commit puts it in the place of the old file. A writer dropped before its Commit removes
// the temporary file. After the first failure every call fails and Error keeps the message:
// "Error opening file: " and the path when no file can be created beside it, otherwise
// "Error writing file: ", the path and the system's reason ("the disk is full" for a full
// disk).
class CFileWriter {
 public:
  explicit CFileWriter(std::string path);
  ~CFileWriter();
  CFileWriter(const CFileWriter&) = delete;
  CFileWriter& operator=(const CFileWriter&) = delete;

  bool Begin();
  bool Write(const void* data, std::size_t nBytes);
  bool Write(std::string_view bytes) { return Write(bytes.data(), bytes.size()); }
  // Overwrites bytes already written, such as a header filled in once the rest is known.
  bool WriteAt(std::uint64_t nOffset, const void* data, std::size_t nBytes);
  bool Commit();

  const std::string& Error() const { return error; }

 private:
  bool Fail(bool bOpening);
  void Drop();

  std::string path;    // as the caller named it, for the messages
  std::string target;  // the file replaced: a link is followed
  std::string tempName;
  std::string error;
  int fd = -1;
};

// Writes content to path with a CFileWriter. Returns its error text, nothing on success.
std::optional<std::string> Save(const std::string& path, std::string_view content);

}  // namespace safefile
