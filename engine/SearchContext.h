#pragma once
#include <atomic>
#include <cstdint>

#include "engine/WhiteMoveHints.h"
#include "registers/ChessboardRegister.h"
#include "registers/TableProbe.h"

// Run states written by the session and polled by every Black node.
namespace runstate {
constexpr std::uint8_t kRun = 0;
constexpr std::uint8_t kPause = 1;
constexpr std::uint8_t kStop = 2;
}  // namespace runstate

// What the threads of one solve share: the run state, the register and the pass settings.
struct SearchContext {
  std::atomic<std::uint8_t> runState{runstate::kRun};
  TChessboardRegister<bool>* pRegister = nullptr;
  // The problem's sort indications for White's moves; null when it gives none.
  const CWhiteMoveHints* pHints = nullptr;
  // Exact values of small endings; null when the solve has no tables.
  CTableProbe* pTables = nullptr;
  // 1 in the passes with heuristics (an open repetition is doubtful), 2 in the exact pass.
  std::uint8_t passNumber = 2;
  // Skip a pawn's other promotions to the same square once one of them is mated. Unsound
  // for under-promotions that check or stalemate, so the exact solver leaves it off.
  bool bRemoveDuplicatePromotions = false;
  // Cut a line that returns to a position already on it (see CMateSearch). The exact pass
  // does better without: a depth-limited line ends anyway, and only uncut answers can be
  // filed in the register, which perpetual checks would otherwise keep from filling.
  bool bCutRepetitions = false;

  // Set once the root has all the keys it wants: the other workers may give up.
  std::atomic<bool> bAbandon{false};

  bool IsStopping() const {
    return runState.load(std::memory_order_relaxed) >= runstate::kStop ||
           bAbandon.load(std::memory_order_relaxed);
  }
};
