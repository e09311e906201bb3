#pragma once
#include <atomic>
#include <cstdint>

#include "registers/ChessboardRegister.h"

// Run states written by the session and polled by every Black node.
namespace runstate {
constexpr std::uint8_t kRun = 0;
constexpr std::uint8_t kPause = 1;
constexpr std::uint8_t kStop = 2;
}  // namespace runstate

// What the threads of one solve share: the run state, the register and the search settings.
struct SearchContext {
  std::atomic<std::uint8_t> runState{runstate::kRun};
  TChessboardRegister<bool>* pRegister = nullptr;
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
