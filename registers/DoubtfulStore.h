#pragma once
#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <shared_mutex>
#include <vector>

#include "registers/ChessboardRegisterItem.h"

// What a search under a restricting heuristics selection learnt of one position: such
// answers hold only for that selection. Both counts are plies of the same parity (odd:
// White to move, even: Black to move), so one key can have an element per side to move.
struct TDoubtfulElement {
  TChessboardRegisterItem key;
  // Fewest plies in which White was seen to mate; 0 when never.
  std::uint16_t nMovesMate = 0;
  // Most plies for which the search was cut without an answer; 0 when never.
  std::uint16_t nMovesNoMate = 0;

  bool IsWhiteToMove() const { return ((nMovesMate | nMovesNoMate) & 1) != 0; }
};

// Lookup answers of a doubtful store, beside kRegisterUnknown.
constexpr std::uint8_t kDoubtfulMate = 1;
constexpr std::uint8_t kDoubtfulCut = 255;  // the search must return doubtful here

// Keys ordered as eight unsigned 64-bit words, first word first. The sign of the wrapping
// difference would not do: it is not transitive (0 < 2^62 < 2^63 + 1 < 0), and a tree
// bucket built on it loses keys and, in time, its own structure.
bool RegisterItemBefore(const TChessboardRegisterItem& a, const TChessboardRegisterItem& b);

// A hash table of doubtful elements under one lock. A bucket is empty, a short array, or,
// once it holds more than kMaxArrayElements, an ordered tree; the bucket word tells which by
// its top bit. Elements are removed by sweeps that start where the previous one stopped.
class CDoubtfulStore {
 public:
  static constexpr std::size_t kMaxArrayElements = 16;

  // The buckets are allocated by the first element recorded, and again after a clear that
  // freed them.
  explicit CDoubtfulStore(std::size_t nBuckets);
  ~CDoubtfulStore();
  CDoubtfulStore(const CDoubtfulStore&) = delete;
  CDoubtfulStore& operator=(const CDoubtfulStore&) = delete;

  std::uint32_t Count() const { return nElements.load(std::memory_order_relaxed); }

  // For n plies: kDoubtfulMate when a mate within n was seen, kDoubtfulCut when a search of
  // n plies or more was cut, kRegisterUnknown otherwise.
  std::uint8_t Find(std::uint16_t n, const TChessboardRegisterItem& key) const;
  // Notes a mate within n plies or a cut search of n plies; returns whether an element was
  // added (rather than an existing one widened). May throw std::bad_alloc, leaving the
  // store as it was.
  bool Record(std::uint16_t n, const TChessboardRegisterItem& key, bool bMate);
  // Removes the elements with nMovesMate <= nMateLimit and nMovesNoMate <= nNoMateLimit,
  // sweeping every bucket once from the one after the cursor; returns how many went.
  std::uint32_t Sweep(std::uint16_t nMateLimit, std::uint16_t nNoMateLimit);
  // Frees every bucket. Every 1024 buckets, when a progress callback is given and at least
  // 600 ms have passed since its last call, the count drops by what was freed so far and the
  // callback runs, so that a display of the count falls while a large store empties.
  // Returns how many elements went.
  std::uint32_t Clear(bool bKeepBuckets, const std::function<void()>& progress = nullptr);
  // Every element, in no particular order, under the lock.
  void ForEach(const std::function<void(const TDoubtfulElement&)>& visit) const;

 private:
  struct TTreeKey {
    TChessboardRegisterItem key;
    bool bWhiteToMove;
    bool operator<(const TTreeKey& other) const;
  };
  struct TCounts {
    std::uint16_t nMovesMate = 0;
    std::uint16_t nMovesNoMate = 0;
  };
  using TArray = std::vector<TDoubtfulElement>;
  using TTree = std::map<TTreeKey, TCounts>;
  static constexpr std::uintptr_t kTreeBit = std::uintptr_t{1} << (sizeof(std::uintptr_t) * 8 - 1);

  std::size_t BucketOf(const TChessboardRegisterItem& key) const;
  static TArray* ArrayOf(std::uintptr_t word) {
    return (word & kTreeBit) == 0 ? reinterpret_cast<TArray*>(word) : nullptr;
  }
  static TTree* TreeOf(std::uintptr_t word) {
    return (word & kTreeBit) != 0 ? reinterpret_cast<TTree*>(word & ~kTreeBit) : nullptr;
  }
  static void FreeBucket(std::uintptr_t& word);
  // Removes the matching elements of one bucket; returns how many.
  static std::uint32_t SweepBucket(std::uintptr_t& word, std::uint16_t nMateLimit,
                                   std::uint16_t nNoMateLimit);
  // Turns a full array bucket into a tree.
  static void GrowIntoTree(std::uintptr_t& word);

  mutable std::shared_mutex mutex;
  const std::size_t nBucketCount;       // a power of two
  std::vector<std::uintptr_t> buckets;  // empty, or nBucketCount words
  std::size_t nCursor = 0;              // under mutex
  std::atomic<std::uint32_t> nElements{0};
};
