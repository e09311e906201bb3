#pragma once
// The log of a regression run: one line (or a few) per problem, appended as the run goes so
// that a run cut short still leaves what it did. Every append opens and closes the file; a
// file that cannot be written loses the line and the run goes on.
#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

class CRegressionLog {
 public:
  static constexpr const char* kFileName = "RegressionTest.log";
  static constexpr const char* kBackupSuffix = ".BAK";

  using TSleep = std::function<void(std::chrono::milliseconds)>;

  // The log in folder; sleep waits between the retries of a rotation (the real clock's when
  // not given).
  explicit CRegressionLog(const std::filesystem::path& folder, TSleep sleep = nullptr);

  // Appends text whole or not at all; returns the error text of a failure.
  std::optional<std::string> Append(const std::string& text) const;
  // Renames the log to its backup, replacing an older backup. A rename that fails (the file
  // held open by someone else) is retried after 0, 100 and 200 ms; after that the run goes on
  // and appends to the old log. Returns whether the log is gone. No log is nothing to do.
  bool Rotate() const;
  const std::filesystem::path& Path() const { return path; }

 private:
  std::filesystem::path path;
  TSleep sleep;
};
