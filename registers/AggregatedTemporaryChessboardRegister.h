#pragma once
#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <shared_mutex>

#include "core/WriteFailures.h"
#include "registers/ChessboardRegister.h"
#include "registers/DoubtfulStore.h"
#include "registers/TemporaryChessboardRegister.h"

// A heuristics selection: the heuristics word in the low 32 bits, its parameters word in
// the high 32 bits. 0 is the search without heuristics, whose doubtful answers (cuts made by
// quick mode) the aggregate keeps in a store of its own.
using THeuristicsKey = std::uint64_t;
constexpr THeuristicsKey MakeHeuristicsKey(std::uint32_t heuristics, std::uint32_t params) {
  return (static_cast<std::uint64_t>(params) << 32) | heuristics;
}

// The one register a solve hands to its search: the exact answers, the doubtful answers of
// every heuristics selection in use, and the memory budget of them all. When the budget is
// reached it discards the least valuable entries first: doubtful answers of selections no
// search uses, then the shortest sub-problems, then ever longer ones, two move counts at a
// time.
class TAggregatedTemporaryChessboardRegister : public TChessboardRegister<bool> {
 public:
  using TMember = TTemporaryChessboardRegister<0>;
  static constexpr std::size_t kOwnBuckets = std::size_t{1} << 16;

  explicit TAggregatedTemporaryChessboardRegister(std::uint32_t nLimit);
  ~TAggregatedTemporaryChessboardRegister() override;

  // Exact entries of either side to move, the aggregate's own doubtful ones and those of all
  // members.
  std::uint32_t GetElementsIn() const override;
  std::uint32_t GetDoubtfulElementsIn() const override;
  std::uint32_t GetOwnDoubtfulElementsIn() const { return own.Count(); }
  // Drops the members no search uses; returns how many elements went with them.
  virtual std::uint32_t RemoveIdleDoubtful();

  // Frees room: idle selections first, then move counts 3, (5, 4), (7, 6) ... until enough
  // went (more when forced) or a fifth of the budget is free. Runs closer than 16 ms are
  // merged; a forced run with a quarter free does nothing. Never throws.
  void EmptySomeDataWhenRegisterFull(bool bForce) override;
  // Removes exact entries of up to n plies and doubtful elements whose counts are both up to
  // n (in members: mates up to n, cuts up to n - 2); returns how many went.
  std::uint32_t RemoveNMovers(std::uint16_t n);
  // Registers one more user of a selection, which keeps its member from idle removal.
  void AddDoubtfulUser(std::uint32_t heuristics, std::uint32_t params);
  // Releases one use of a selection; a selection without users drops its member. Returns
  // how many elements were dropped.
  std::uint32_t RemoveDoubtful(std::uint32_t heuristics, std::uint32_t params);
  // The entry limit for a quota in MiB of a machine with this much memory, for the
  // aggregate and every member.
  void SetMemoryLimits(std::uint64_t nTotalMemoryBytes, std::uint64_t nQuotaMiB);
  // Empties exact and doubtful stores; the members stay with their users. Unless
  // bKeepBuckets, the doubtful buckets are freed as well.
  void Clear(bool bKeepBuckets);
  void Clear() override { Clear(false); }

  // Doubtful answers of a selection for n plies: kDoubtfulMate, kDoubtfulCut or
  // kRegisterUnknown.
  std::uint8_t FindDoubtful(THeuristicsKey selection, std::uint16_t n,
                            const TChessboardRegisterItem& key) const;
  // Notes that under the selection White mates within n plies (bMate) or that the search of
  // n plies was cut. Dropped silently when the register is full, as exact answers are.
  void InsertDoubtful(THeuristicsKey selection, std::uint16_t n, const TChessboardRegisterItem& key,
                      bool bMate);
  // Every doubtful element with its selection, under the stores' locks.
  void ForEachDoubtful(
      const std::function<void(THeuristicsKey, const TDoubtfulElement&)>& visit) const;

  // Appends every message to this file, two lines each; an empty path writes nothing. A
  // message the file does not take is lost, and failures is told (when given).
  void SetRegisterLog(std::filesystem::path file, CWriteFailures* failures = nullptr);
  // Called now and then while a large register is cleared, after its counts have fallen.
  void SetClearProgress(std::function<void()> progress) { clearProgress = std::move(progress); }

 protected:
  void WriteRegisterLog(const char* message) override { Log(message, 0, 0); }

 private:
  void Log(const char* message, std::int64_t first, std::int64_t second);
  std::uint32_t RemoveDoubtfulLocked(THeuristicsKey selection);
  // Records into a member's store, counting what it adds.
  void RecordIn(CDoubtfulStore& target, std::uint16_t n, const TChessboardRegisterItem& key,
                bool bMate);
  // Step 6 and 7 of an eviction: the short sub-problems, then longer ones.
  std::uint32_t RemoveShortSubproblems(bool bForce, std::uint32_t nRemoved, bool bEnough);
  void StopRegisteringFewMovers();

  CDoubtfulStore own{kOwnBuckets};
  mutable std::shared_mutex mapMutex;  // guards the two maps
  std::map<THeuristicsKey, std::unique_ptr<TMember>> members;
  std::map<THeuristicsKey, std::uint32_t> users;
  std::optional<std::chrono::steady_clock::time_point> lastEviction;  // under the eviction lock
  std::mutex logMutex;
  std::filesystem::path logFile;          // under logMutex
  CWriteFailures* logFailures = nullptr;  // under logMutex
  std::function<void()> clearProgress;
};
