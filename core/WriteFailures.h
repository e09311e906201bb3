#pragma once
// The files whose writes failed, each told once. A log that cannot be written loses its
// lines while the solve goes on; its user is told so a single time, not at every line.
// Writers of any thread may note failures at the same time.
#include <functional>
#include <mutex>
#include <set>
#include <string>

class CWriteFailures {
 public:
  using TReport = std::function<void(const std::string& message)>;

  explicit CWriteFailures(TReport onFirstFailure) : report(std::move(onFirstFailure)) {}

  // Passes the message on unless a failure of path was passed on before.
  void Note(const std::string& path, const std::string& message);

 private:
  const TReport report;
  std::mutex mutex;
  std::set<std::string> reported;  // under mutex
};
