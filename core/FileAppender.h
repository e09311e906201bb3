#pragma once
#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

#include "core/FileCalls.h"

// Appending to a log. A text goes in whole or not at all: a write that fails cuts the file
// back to its length before, so a full disk loses the line but never leaves half of it
// before the next one. The messages are those of a save ("Error opening file: ...",
// "Error writing file: ...: the disk is full").
namespace safefile {

class CFileAppender {
 public:
  explicit CFileAppender(std::string path);
  ~CFileAppender();
  CFileAppender(const CFileAppender&) = delete;
  CFileAppender& operator=(const CFileAppender&) = delete;

  // Opens or creates the file.
  bool Open();
  bool Append(std::string_view text);
  bool Close();
  bool IsOpen() const { return fd >= 0; }
  const std::string& Path() const { return path; }

  // The message of the last failure.
  const std::string& Error() const { return error; }

 private:
  bool Fail(bool bOpening);
  void CutBack(off_t nLength) const;

  std::string path;
  std::string error;
  int fd = -1;
};

// Opens path, appends text and closes it. Returns the error text, nothing on success.
std::optional<std::string> AppendToFile(const std::string& path, std::string_view text);

}  // namespace safefile
