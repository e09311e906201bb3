#pragma once
#include <cerrno>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

// Saving that never leaves a half-written file: the text goes to a temporary file in
// the same folder, is flushed to the disk, and only then replaces the old file by a
// rename. On any failure the old file stays as it was and the temporary file is removed.
namespace safefile {

// Writes content to path. Returns the error text, nothing on success: "Error opening
// file: " and the path when no file can be created beside it, otherwise "Error writing
// file: ", the path and the system's reason.
std::optional<std::string> Save(const std::string& path, std::string_view content);

// A test hook standing in for a failing system. A save counts its operations: creating the
// temporary file, each write, the flush to the disk, the close and the rename. The operation
// numbered nFailingOperation fails with nErrno as if the system had refused it.
struct TFaultSeam {
  int nFailingOperation = 0;  // counted from 1; 0 fails none
  int nErrno = EIO;
  // Writes take at most this many bytes, as the system may do, so that one save makes
  // several writes.
  std::size_t nMaxWriteBytes = std::numeric_limits<std::size_t>::max();
  int nOperations = 0;  // the operations counted so far
};

// Puts the seam under the saves of the calling thread; nullptr takes it away.
void SetFaultSeam(TFaultSeam* seam);

}  // namespace safefile
