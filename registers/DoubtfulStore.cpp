#include "registers/DoubtfulStore.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstring>
#include <mutex>

#include "registers/SubproblemRegisterInfo.h"

namespace {
using Clock = std::chrono::steady_clock;
// A clear reports its progress this often at most, and looks at the clock every so many buckets.
constexpr auto kClearProgressInterval = std::chrono::milliseconds(600);
constexpr std::size_t kClearProgressStride = 1024;

bool IsOdd(std::uint16_t n) {
  return (n & 1) != 0;
}

bool Matches(const TDoubtfulElement& element, std::uint16_t nMateLimit,
             std::uint16_t nNoMateLimit) {
  return element.nMovesMate <= nMateLimit && element.nMovesNoMate <= nNoMateLimit;
}

std::uint8_t Answer(std::uint16_t nMovesMate, std::uint16_t nMovesNoMate, std::uint16_t n) {
  if (nMovesMate != 0 && nMovesMate <= n) return kDoubtfulMate;
  if (nMovesNoMate >= n) return kDoubtfulCut;
  return kRegisterUnknown;
}

void Widen(std::uint16_t& nMovesMate, std::uint16_t& nMovesNoMate, std::uint16_t n, bool bMate) {
  if (bMate)
    nMovesMate = nMovesMate == 0 ? n : std::min(nMovesMate, n);
  else
    nMovesNoMate = std::max(nMovesNoMate, n);
}
}  // namespace

bool RegisterItemBefore(const TChessboardRegisterItem& a, const TChessboardRegisterItem& b) {
  for (int i = 0; i < 8; ++i) {
    std::uint64_t wordA, wordB;
    std::memcpy(&wordA, a.bytes + 8 * i, sizeof wordA);
    std::memcpy(&wordB, b.bytes + 8 * i, sizeof wordB);
    if (wordA != wordB) return wordA < wordB;
  }
  return false;
}

bool CDoubtfulStore::TTreeKey::operator<(const TTreeKey& other) const {
  if (bWhiteToMove != other.bWhiteToMove) return bWhiteToMove < other.bWhiteToMove;
  return RegisterItemBefore(key, other.key);
}

CDoubtfulStore::CDoubtfulStore(std::size_t nBuckets)
    : nBucketCount(std::bit_ceil(std::max<std::size_t>(nBuckets, 1))) {}

CDoubtfulStore::~CDoubtfulStore() {
  for (std::uintptr_t& word : buckets) FreeBucket(word);
}

std::size_t CDoubtfulStore::BucketOf(const TChessboardRegisterItem& key) const {
  return static_cast<std::size_t>(HashRegisterItem(key)) & (nBucketCount - 1);
}

void CDoubtfulStore::FreeBucket(std::uintptr_t& word) {
  if (TTree* tree = TreeOf(word))
    delete tree;
  else
    delete ArrayOf(word);
  word = 0;
}

std::uint8_t CDoubtfulStore::Find(std::uint16_t n, const TChessboardRegisterItem& key) const {
  const bool bWhiteToMove = IsOdd(n);
  std::shared_lock lock(mutex);
  if (buckets.empty()) return kRegisterUnknown;
  const std::uintptr_t word = buckets[BucketOf(key)];
  if (const TTree* tree = TreeOf(word)) {
    const auto found = tree->find(TTreeKey{key, bWhiteToMove});
    return found == tree->end() ? kRegisterUnknown
                                : Answer(found->second.nMovesMate, found->second.nMovesNoMate, n);
  }
  if (const TArray* array = ArrayOf(word)) {
    for (const TDoubtfulElement& element : *array)
      if (element.IsWhiteToMove() == bWhiteToMove && element.key == key)
        return Answer(element.nMovesMate, element.nMovesNoMate, n);
  }
  return kRegisterUnknown;
}

bool CDoubtfulStore::Record(std::uint16_t n, const TChessboardRegisterItem& key, bool bMate) {
  const bool bWhiteToMove = IsOdd(n);
  std::unique_lock lock(mutex);
  if (buckets.empty()) buckets.assign(nBucketCount, 0);
  std::uintptr_t& word = buckets[BucketOf(key)];
  if (TArray* array = ArrayOf(word)) {
    for (TDoubtfulElement& element : *array) {
      if (element.IsWhiteToMove() == bWhiteToMove && element.key == key) {
        Widen(element.nMovesMate, element.nMovesNoMate, n, bMate);
        return false;
      }
    }
    if (array->size() >= kMaxArrayElements) GrowIntoTree(word);
  }
  if (TTree* tree = TreeOf(word)) {
    const auto [place, bAdded] = tree->try_emplace(TTreeKey{key, bWhiteToMove});
    Widen(place->second.nMovesMate, place->second.nMovesNoMate, n, bMate);
    if (bAdded) nElements.fetch_add(1, std::memory_order_relaxed);
    return bAdded;
  }
  TDoubtfulElement element{key, 0, 0};
  Widen(element.nMovesMate, element.nMovesNoMate, n, bMate);
  if (word == 0) {
    auto array = std::make_unique<TArray>();
    array->reserve(2);
    array->push_back(element);
    word = reinterpret_cast<std::uintptr_t>(array.release());
  } else {
    ArrayOf(word)->push_back(element);
  }
  nElements.fetch_add(1, std::memory_order_relaxed);
  return true;
}

void CDoubtfulStore::GrowIntoTree(std::uintptr_t& word) {
  auto tree = std::make_unique<TTree>();
  for (const TDoubtfulElement& element : *ArrayOf(word))
    tree->emplace(TTreeKey{element.key, element.IsWhiteToMove()},
                  TCounts{element.nMovesMate, element.nMovesNoMate});
  delete ArrayOf(word);
  word = reinterpret_cast<std::uintptr_t>(tree.release()) | kTreeBit;
}

std::uint32_t CDoubtfulStore::SweepBucket(std::uintptr_t& word, std::uint16_t nMateLimit,
                                          std::uint16_t nNoMateLimit) {
  std::uint32_t nRemoved = 0;
  if (TTree* tree = TreeOf(word)) {
    for (auto it = tree->begin(); it != tree->end();) {
      const TDoubtfulElement element{it->first.key, it->second.nMovesMate, it->second.nMovesNoMate};
      if (Matches(element, nMateLimit, nNoMateLimit)) {
        it = tree->erase(it);
        ++nRemoved;
      } else {
        ++it;
      }
    }
    if (tree->empty()) FreeBucket(word);
  } else if (TArray* array = ArrayOf(word)) {
    // The elements behind a removed one move forward to close the gap.
    const auto kept = std::remove_if(array->begin(), array->end(), [&](const auto& element) {
      return Matches(element, nMateLimit, nNoMateLimit);
    });
    nRemoved = static_cast<std::uint32_t>(array->end() - kept);
    array->erase(kept, array->end());
    if (array->empty()) FreeBucket(word);
  }
  return nRemoved;
}

std::uint32_t CDoubtfulStore::Sweep(std::uint16_t nMateLimit, std::uint16_t nNoMateLimit) {
  std::unique_lock lock(mutex);
  const std::size_t nBuckets = buckets.size();
  if (nBuckets == 0) return 0;
  std::uint32_t nRemoved = 0;
  std::size_t bucket = nCursor;
  for (std::size_t i = 0; i < nBuckets; ++i) {
    bucket = bucket + 1 == nBuckets ? 0 : bucket + 1;
    if (buckets[bucket] != 0) nRemoved += SweepBucket(buckets[bucket], nMateLimit, nNoMateLimit);
  }
  nCursor = bucket + 1 == nBuckets ? 0 : bucket + 1;
  nElements.fetch_sub(nRemoved, std::memory_order_relaxed);
  return nRemoved;
}

std::uint32_t CDoubtfulStore::Clear(bool bKeepBuckets, const std::function<void()>& progress) {
  std::unique_lock lock(mutex);
  std::uint32_t nFreedSinceReport = 0, nFreed = 0;
  Clock::time_point lastReport = Clock::now();
  for (std::size_t bucket = 0; bucket < buckets.size(); ++bucket) {
    std::uintptr_t& word = buckets[bucket];
    if (TTree* tree = TreeOf(word))
      nFreedSinceReport += static_cast<std::uint32_t>(tree->size());
    else if (TArray* array = ArrayOf(word))
      nFreedSinceReport += static_cast<std::uint32_t>(array->size());
    FreeBucket(word);
    if (progress && bucket % kClearProgressStride == kClearProgressStride - 1 &&
        Clock::now() - lastReport >= kClearProgressInterval) {
      nElements.fetch_sub(nFreedSinceReport, std::memory_order_relaxed);
      nFreed += nFreedSinceReport;
      nFreedSinceReport = 0;
      progress();
      lastReport = Clock::now();
    }
  }
  if (!bKeepBuckets) buckets = std::vector<std::uintptr_t>();
  nElements.store(0, std::memory_order_relaxed);
  return nFreed + nFreedSinceReport;
}

void CDoubtfulStore::ForEach(const std::function<void(const TDoubtfulElement&)>& visit) const {
  std::shared_lock lock(mutex);
  for (const std::uintptr_t word : buckets) {
    if (const TTree* tree = TreeOf(word)) {
      for (const auto& [treeKey, counts] : *tree)
        visit(TDoubtfulElement{treeKey.key, counts.nMovesMate, counts.nMovesNoMate});
    } else if (const TArray* array = ArrayOf(word)) {
      for (const TDoubtfulElement& element : *array) visit(element);
    }
  }
}
