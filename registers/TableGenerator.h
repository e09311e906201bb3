#pragma once
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <vector>

#include "registers/EndgameTable.h"
#include "registers/TableLinks.h"
#include "registers/TablePlacement.h"

// Computes a table by retrograde analysis. Positions are settled in rounds n = 1, 2, ...:
// White positions with a move to a Black position of value n - 1 get n (found by retracting
// White's moves from those Black positions); every Black position keeps a count of its
// replies still open, lowered by retracting Black's moves from the White positions just
// settled, and gets its value when the count reaches 0. Captures and promotions lead into
// tables generated before, whose values seed both sides. What is left open at the end is
// "no mate". Rounds are shared among nThreads threads. A stop requested through the token ends
// the generation within a few thousand positions, without a table.
class CTableGenerator {
 public:
  using TProgress = std::function<void(double fraction)>;

  CTableGenerator(const TTableMaterial& material, const CTableLinks::TFindTable& findTable,
                  int nThreads);
  // Null when stopped.
  std::unique_ptr<TEndgameTable> Generate(const TProgress& progress = {},
                                          std::stop_token stop = {});

 private:
  // A White move that is a double step next to a black pawn: its value is that of the
  // Black position without the en passant right, raised by what the capture leaves.
  struct TWhiteStep {
    std::uint64_t white, black;
    std::uint8_t captureValue;
    bool bOnlyCapture;  // Black has no other legal move
  };
  // The same for a Black double step next to a white pawn.
  struct TBlackStep {
    std::uint64_t black, white;
    std::uint8_t captureValue;
  };

  void Seed(std::uint64_t begin, std::uint64_t end);
  void SeedWhite(const TTablePlacement& p, std::uint64_t i);
  void SeedBlack(const TTablePlacement& p, std::uint64_t i);
  bool RunRound(std::uint8_t n);
  // Calls onPredecessor(p) for each position p from which a move of mover (not a capture
  // nor a promotion) leads to a position whose value is value; sums what it returns.
  template <typename F>
  std::uint64_t ForEachPredecessor(const std::vector<std::uint8_t>& values, std::uint8_t value,
                                   PieceCode mover, F onPredecessor);
  std::uint64_t SpreadToWhite(std::uint8_t n);
  std::uint64_t SpreadToBlack(std::uint8_t n);
  std::uint64_t SettleWhiteSteps(std::uint8_t n);
  std::uint64_t SettleBlackSteps(std::uint8_t n);
  bool IsSteppedBlack(std::uint64_t i) const;
  void NotePending(std::uint8_t value);
  void SetBlack(std::uint64_t i, std::uint8_t value);
  // Looked at every kStopCheckPositions positions of a loop over the table.
  static constexpr std::uint64_t kStopCheckPositions = 4096;
  bool StopAt(std::uint64_t i) const {
    return i % kStopCheckPositions == 0 && stop.stop_requested();
  }

  TTableMaterial material;
  TTableIndex index;
  CTableLinks links;
  int nThreads;
  std::stop_token stop;
  // During generation White's 0 means open; Black's open positions hold kNoMate with a
  // non-zero count (or a pending double step).
  std::vector<std::uint8_t> white, black;
  std::vector<std::uint8_t> whiteSeed;   // White's best value through a capture or promotion
  std::vector<std::uint8_t> openCounts;  // Black's replies within the set still open
  std::vector<std::uint8_t> blackFloor;  // Black's best value through captures and promotions
  std::vector<TWhiteStep> whiteSteps;
  std::vector<TBlackStep> blackSteps;  // sorted by Black position
  std::mutex stepsMutex;
  std::atomic<std::uint8_t> maxPending{0};  // the highest value that may still be settled
  std::atomic<std::uint64_t> nSettled{0};   // Black positions with a value
  std::atomic<std::uint64_t> nWhiteSettled{0};
  std::atomic<std::uint64_t> nLegalPositions{0};  // of either side to move
};
