#pragma once
// The problems now being solved, one entry per solve, shared by every solving thread of the
// process. Solves of one problem are named "<number>_<suffix>" so that all of them answer to
// the problem's number: an entry's key is its name cut before the first underscore.
#include <atomic>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

class SolvingRegistry {
 public:
  // "12" for "12_1"; the whole name when it has no underscore.
  static std::string_view KeyOf(std::string_view name);

  // Enters a solve with the number of threads that run for it.
  void Add(const std::string& name, int nThreads);
  // Takes out the first entry whose key matches the key of name, counting its threads down
  // first. Returns whether one was found.
  bool Remove(std::string_view name);
  bool Contains(std::string_view name) const;
  // Threads still counted for the first entry with the key of name.
  std::optional<int> ThreadsRunning(std::string_view name) const;
  std::size_t Size() const;

 private:
  struct TEntry {
    std::string name;
    std::atomic<int> nThreads;
  };
  using TEntries = std::deque<std::unique_ptr<TEntry>>;

  TEntries::const_iterator FindLocked(std::string_view name) const;

  mutable std::mutex mutex;
  TEntries entries;
};

// The registry of this process.
SolvingRegistry& GetSolvingRegistry();
