#pragma once
#include <atomic>
#include <cstdint>

#include "registers/ChessboardRegister.h"
#include "registers/ChessboardRegisterItem.h"

// Where a pass files the positions it left doubtful, so that it does not search them again.
// A doubtful answer holds only for the heuristics it was found under: they are part of the
// key, and a pass under other heuristics (or none) never sees it.
struct THeuristicsKey {
  std::uint32_t mask = 0;
  std::uint32_t params = 0;
};

class IDoubtfulStore {
 public:
  virtual ~IDoubtfulStore() = default;
  // Whether White, to move in the position of key with plies left, was found doubtful under
  // heuristics with at least as many plies.
  virtual bool FindDoubtful(std::uint16_t plies, const TChessboardRegisterItem& key,
                            const THeuristicsKey& heuristics) const = 0;
  virtual void StoreDoubtful(std::uint16_t plies, const TChessboardRegisterItem& key,
                             const THeuristicsKey& heuristics) = 0;
};

// Doubtful answers kept in a register of proved answers, under keys that no position has:
// the heuristics and a mark fill bytes that position keys leave empty. Filed as "no mate"
// under those keys, an answer covers fewer plies as well, as the register's answers do.
class CRegisterDoubtfulStore final : public IDoubtfulStore {
 public:
  explicit CRegisterDoubtfulStore(TChessboardRegister<bool>& reg) : registerOfAnswers(reg) {}
  bool FindDoubtful(std::uint16_t plies, const TChessboardRegisterItem& key,
                    const THeuristicsKey& heuristics) const override;
  void StoreDoubtful(std::uint16_t plies, const TChessboardRegisterItem& key,
                     const THeuristicsKey& heuristics) override;
  // Doubtful answers filed so far (the register may have dropped some since).
  std::uint32_t StoredCount() const { return nStored.load(std::memory_order_relaxed); }

  // The key a doubtful answer is filed under.
  static TChessboardRegisterItem DoubtfulKey(const TChessboardRegisterItem& key,
                                             const THeuristicsKey& heuristics);

 private:
  TChessboardRegister<bool>& registerOfAnswers;
  std::atomic<std::uint32_t> nStored{0};
};
