#pragma once
#include <cstdint>

#include "registers/ChessboardRegister.h"
#include "registers/DoubtfulStore.h"

// A member of the aggregated register: the doubtful answers found under one heuristics
// selection. Its count is that of its doubtful store; room is asked of the owner, which
// budgets all members together. All selections use the same kind of member, <0>.
template <int nKind>
class TTemporaryChessboardRegister : public TChessboardRegister<bool> {
 public:
  static constexpr std::size_t kBuckets = std::size_t{1} << 12;

  TTemporaryChessboardRegister(std::uint32_t nLimit, TChessboardRegister<bool>& aggregate)
      : TChessboardRegister<bool>(nLimit, &aggregate) {}

  std::uint32_t GetElementsIn() const override { return doubtful.Count(); }

  CDoubtfulStore& Doubtful() { return doubtful; }
  const CDoubtfulStore& Doubtful() const { return doubtful; }
  // Stops filing sub-problems below four plies, as the owner's eviction decides.
  void StopRegisteringFewMovers() { bRegisterFewMovers.store(false, std::memory_order_relaxed); }
  void SetMaxElements(std::uint32_t nLimit) {
    nMaxElements.store(nLimit, std::memory_order_relaxed);
  }

 private:
  CDoubtfulStore doubtful{kBuckets};
};
