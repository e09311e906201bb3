#pragma once
#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <vector>

#include "registers/ChessboardRegisterItem.h"
#include "registers/RegisterLanguage.h"
#include "registers/RegisterShards.h"
#include "registers/SubproblemRegisterInfo.h"

template <typename TAnswer>
class TChessboardRegister;

// The temporary register of proved sub-problem answers, shared by all search threads of a
// solve. Under odd move counts it keeps whether White, to move, mates within that many
// plies; under even ones whether Black has a defence. Both answers are monotone in the
// move count, so one entry answers a whole range of questions. Only White-to-move entries
// are counted against nMaxElements. Registers grouped under an owner ask the owner for the
// count and for room; a register without an owner answers for itself.
template <>
class TChessboardRegister<bool> {
 public:
  // The owner, when given, must outlive the register.
  explicit TChessboardRegister(std::uint32_t nMaxElements,
                               TChessboardRegister<bool>* owner = nullptr);
  virtual ~TChessboardRegister() = default;
  TChessboardRegister(const TChessboardRegister&) = delete;
  TChessboardRegister& operator=(const TChessboardRegister&) = delete;

  // Entry limit for a quota in MiB: the quota (never more than the memory there is) times
  // 0.73, at 96 bytes an entry.
  static std::uint32_t MaxElementsForQuota(std::uint64_t nTotalMemoryBytes,
                                           std::uint64_t nQuotaMiB);
  // Entry limit when the register may take nPercent of the physical memory.
  static std::uint32_t MaxElementsForPercent(std::uint64_t nTotalMemoryBytes,
                                             std::uint32_t nPercent);

  virtual std::uint32_t GetElementsIn() const;
  virtual std::uint32_t GetDoubtfulElementsIn() const;

  // Odd n: 1 when White mates within n, 0 when it does not, kRegisterUnknown otherwise.
  std::uint8_t FindAnswer(std::uint16_t n, const TChessboardRegisterItem& key) const;
  // Even n: 1 when Black has a defence within n, 0 when it has none, kRegisterUnknown otherwise.
  std::uint8_t FindDefenceAnswer(std::uint16_t n, const TChessboardRegisterItem& key) const;
  // File a proved answer (only its low byte counts). A full register drops it silently; an
  // answer that contradicts a known one throws ChessException. heuristics may be null.
  void Insert(std::uint16_t n, const TChessboardRegisterItem& key, std::uint32_t answer,
              const std::uint32_t* heuristics = nullptr, bool bCompact = false);
  void InsertDefence(std::uint16_t n, const TChessboardRegisterItem& key, std::uint32_t answer,
                     const std::uint32_t* heuristics = nullptr, bool bCompact = false);

  // Frees room once the limit is reached: drops the shortest sub-problems first (move counts
  // up to 3, then up to 5, 7, ...) until a fifth of the limit is free. Calls closer than
  // 16 ms after the previous run are merged into it; a forced call with a quarter free
  // does nothing. When the three-movers were under a third of the limit, they are not
  // worth their room: the register stops filing move counts below 4.
  virtual void EmptySomeDataWhenRegisterFull(bool bForce);
  // Empties the register; it is then bound to no problem.
  virtual void Clear();
  void Compact();
  // The language of the messages the register throws; English until told otherwise.
  void SetLanguage(ERegisterLanguage value) { language.store(value, std::memory_order_relaxed); }

  // Binds the register to a problem: when problemKey differs from the one held, empties the
  // register and reads the problem's solved-positions file. Returns whether it did. A file
  // whose records contradict each other proves nothing: the register is left empty.
  bool BindToProblem(const TChessboardRegisterItem& problemKey,
                     const std::filesystem::path& solvedPositionsFile);
  // Binds the register to a problem without emptying it: what it holds was read for that
  // problem from elsewhere.
  void AdoptProblem(const TChessboardRegisterItem& problemKey,
                    const std::filesystem::path& solvedPositionsFile);
  // Writes every entry to the file of the problem bound last, replacing it as a whole and
  // creating its folder; returns how many were written, nothing when no problem is bound.
  // Throws ChessException naming the file when it cannot; the earlier file then stays whole.
  std::optional<std::uint64_t> SaveBoundProblem() const;
  // Reads 76-byte records (key, information) until a short read; returns how many were
  // filed. A missing file reads as empty; records that no register writes (move count 0,
  // answer neither 0 nor 1) are passed over. Contradicting records throw ChessException.
  std::uint64_t LoadSolvedPositions(const std::filesystem::path& file);
  // Writes every entry in the same record format, replacing the file only when the new one
  // is whole; returns how many were written. Throws as SaveBoundProblem.
  std::uint64_t SaveSolvedPositions(const std::filesystem::path& file) const;

  // Calls visit(key, info) for every exact entry, a part of the store at a time under its lock.
  template <typename Visitor>
  void ForEachEntry(Visitor visit) const {
    store.ForEach(visit);
  }
  // Off while entries known to be coherent are read in, which then need no pruning.
  void SetCoherencyPruning(bool bOn) { bCoherencyPruning.store(bOn, std::memory_order_relaxed); }

  std::uint32_t MaxElements() const { return nMaxElements.load(std::memory_order_relaxed); }
  bool RegistersFewMovers() const { return bRegisterFewMovers.load(std::memory_order_relaxed); }
  bool IsCoherencyPruning() const { return bCoherencyPruning.load(std::memory_order_relaxed); }
  // Highest count of White-to-move entries held at any time.
  std::uint32_t GetPeakElementsIn() const {
    return nPeakElementsIn.load(std::memory_order_relaxed);
  }

 protected:
  // Receives the register's diagnostic lines; the grouping register writes them to its log.
  virtual void WriteRegisterLog(const char* message);
  // Whether the counted register (the owner, if any) has room, after freeing some if not.
  bool HasRoom();
  std::uint32_t FreeRoom() const;
  // Erases the exact entries of move counts up to n; returns how many went.
  std::uint64_t RemoveExactUpTo(std::uint16_t n) { return store.RemoveUpTo(n); }
  // Exact entries with Black to move, which ElementsIn leaves out.
  std::uint32_t BlackToMoveElementsIn() const { return store.BlackToMoveCount(); }

  std::atomic<std::uint32_t> ElementsIn{0};
  std::atomic<std::uint32_t> DoubtfulElementsIn{0};
  std::atomic<std::uint32_t> nMaxElements;
  std::atomic<bool> bRegisterFewMovers{true};
  std::atomic<bool> bCoherencyPruning{true};
  TChessboardRegister<bool>* const owner;

 private:
  void InsertAnswer(std::uint16_t n, const TChessboardRegisterItem& key, std::uint32_t answer,
                    const std::uint32_t* heuristics, bool bCompact, bool bDefence);
  // Longest move count that eviction must drop, with all shorter ones, to free a fifth.
  std::uint16_t EvictionLimit(const std::vector<std::uint64_t>& countByMoves) const;
  void RaisePeak(std::uint32_t nElements);

  CRegisterShards store{ElementsIn};
  std::atomic<std::uint32_t> nPeakElementsIn{0};
  std::mutex evictionMutex;
  std::optional<std::chrono::steady_clock::time_point> lastEviction;  // under evictionMutex
  std::optional<TChessboardRegisterItem> boundProblem;
  std::atomic<ERegisterLanguage> language{ERegisterLanguage::English};
  std::filesystem::path boundFile;
};
