#pragma once
#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

// Saving that never leaves a half-written file: the text goes to a temporary file in
// the same folder, is flushed to the disk, and only then replaces the old file by a
// rename. On any failure the old file stays as it was and the temporary file is removed.
namespace safefile {

// The system calls a save makes; tests replace them to simulate failures.
struct TFileCalls {
  int (*makeTemp)(char* pattern);  // mkstemp
  ssize_t (*write)(int fd, const void* data, size_t size);
  int (*sync)(int fd);
  int (*rename)(const char* from, const char* to);
};
const TFileCalls& SystemCalls();

// Writes content to path. Returns the error text, nothing on success: "Error opening
// file: " and the path when no file can be created beside it, otherwise "Error writing
// file: ", the path and the system's reason.
std::optional<std::string> Save(const std::string& path, std::string_view content,
                                const TFileCalls& calls = SystemCalls());

}  // namespace safefile
