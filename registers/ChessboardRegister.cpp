#include "registers/ChessboardRegister.h"

#include <algorithm>
#include <limits>
#include <string>

#include "core/ChessException.h"

namespace {
// Share of the quota given to entries, and the memory one entry is reckoned to cost.
constexpr double kEntryBudgetShare = 0.73;
constexpr std::uint64_t kBytesPerEntry = 96;
// Evictions asked for this soon after the last one are served by it.
constexpr auto kEvictionMergeWindow = std::chrono::milliseconds(16);
// Eviction never reaches beyond this move count.
constexpr std::uint16_t kLastEvictedMoves = 255;

std::string IncoherenceText(bool bDefence, ERegisterLanguage language) {
  if (language == ERegisterLanguage::English)
    return "Incoherent information in TChessboardRegister::Insert()";
  return bDefence ? "Sprzeczna informacja w TChessboardRegister::InsertDefence()"
                  : "Sprzeczna informacja w TChessboardRegister::Insert()";
}
}  // namespace

TChessboardRegister<bool>::TChessboardRegister(std::uint32_t nLimit,
                                               TChessboardRegister<bool>* aggregate)
    : nMaxElements(nLimit), owner(aggregate) {}

std::uint32_t TChessboardRegister<bool>::MaxElementsForQuota(std::uint64_t nTotalMemoryBytes,
                                                             std::uint64_t nQuotaMiB) {
  const bool bQuotaFits = nQuotaMiB <= (std::numeric_limits<std::uint64_t>::max() >> 20);
  const std::uint64_t nQuotaBytes =
      bQuotaFits ? std::min(nTotalMemoryBytes, nQuotaMiB << 20) : nTotalMemoryBytes;
  const auto nBudget =
      static_cast<std::uint64_t>(static_cast<double>(nQuotaBytes) * kEntryBudgetShare);
  return static_cast<std::uint32_t>(
      std::min<std::uint64_t>(nBudget / kBytesPerEntry, std::numeric_limits<std::uint32_t>::max()));
}

std::uint32_t TChessboardRegister<bool>::MaxElementsForPercent(std::uint64_t nTotalMemoryBytes,
                                                               std::uint32_t nPercent) {
  return MaxElementsForQuota(nTotalMemoryBytes, (nTotalMemoryBytes >> 20) * nPercent / 100);
}

std::uint32_t TChessboardRegister<bool>::GetElementsIn() const {
  return ElementsIn.load(std::memory_order_relaxed);
}

std::uint32_t TChessboardRegister<bool>::GetDoubtfulElementsIn() const {
  return DoubtfulElementsIn.load(std::memory_order_relaxed);
}

std::uint8_t TChessboardRegister<bool>::FindAnswer(std::uint16_t n,
                                                   const TChessboardRegisterItem& key) const {
  return store.Find(key, n, false);
}

std::uint8_t TChessboardRegister<bool>::FindDefenceAnswer(
    std::uint16_t n, const TChessboardRegisterItem& key) const {
  return store.Find(key, n, true);
}

void TChessboardRegister<bool>::Insert(std::uint16_t n, const TChessboardRegisterItem& key,
                                       std::uint32_t answer, const std::uint32_t* heuristics,
                                       bool bCompact) {
  InsertAnswer(n, key, answer, heuristics, bCompact, false);
}

void TChessboardRegister<bool>::InsertDefence(std::uint16_t n, const TChessboardRegisterItem& key,
                                              std::uint32_t answer, const std::uint32_t* heuristics,
                                              bool bCompact) {
  InsertAnswer(n, key, answer, heuristics, bCompact, true);
}

void TChessboardRegister<bool>::InsertAnswer(std::uint16_t n, const TChessboardRegisterItem& key,
                                             std::uint32_t answer, const std::uint32_t* heuristics,
                                             bool bCompact, bool bDefence) {
  if (n < 4 && !RegistersFewMovers()) return;
  if (!HasRoom()) return;
  const std::uint8_t newAnswer = static_cast<std::uint8_t>(answer & 0xFF);
  const TRegisterInfo info{n, kRegisterMarker, heuristics != nullptr ? *heuristics : 0u, newAnswer};
  TShardInsertion insertion;
  try {
    insertion = store.Insert(key, info, bDefence, IsCoherencyPruning());
  } catch (const std::exception&) {
    // Out of memory above all: make room and go on without the entry.
    TChessboardRegister<bool>& room = owner != nullptr ? *owner : *this;
    room.WriteRegisterLog("Exception caught in method TChessboardRegister::Insert");
    room.EmptySomeDataWhenRegisterFull(false);
    return;
  }
  if (insertion.known != kRegisterUnknown && insertion.known != newAnswer) {
    throw ChessException(IncoherenceText(bDefence, language.load(std::memory_order_relaxed)));
  }
  if (!insertion.bAdded) return;
  if (!bDefence) RaisePeak(ElementsIn.load(std::memory_order_relaxed));
  if (bCompact) Compact();
}

bool TChessboardRegister<bool>::HasRoom() {
  TChessboardRegister<bool>& counted = owner != nullptr ? *owner : *this;
  if (counted.GetElementsIn() < MaxElements()) return true;
  counted.EmptySomeDataWhenRegisterFull(false);
  return counted.GetElementsIn() < MaxElements();
}

void TChessboardRegister<bool>::RaisePeak(std::uint32_t nElements) {
  std::uint32_t peak = nPeakElementsIn.load(std::memory_order_relaxed);
  while (nElements > peak &&
         !nPeakElementsIn.compare_exchange_weak(peak, nElements, std::memory_order_relaxed)) {
  }
}

void TChessboardRegister<bool>::WriteRegisterLog(const char*) {}

std::uint32_t TChessboardRegister<bool>::FreeRoom() const {
  const std::uint32_t nMax = MaxElements();
  return nMax - std::min(nMax, GetElementsIn());
}

void TChessboardRegister<bool>::EmptySomeDataWhenRegisterFull(bool bForce) {
  std::lock_guard lock(evictionMutex);
  if (lastEviction && std::chrono::steady_clock::now() - *lastEviction <= kEvictionMergeWindow) {
    return;
  }
  const std::uint32_t nMax = MaxElements();
  if (bForce && FreeRoom() >= nMax / 4) return;
  const std::vector<std::uint64_t> counts = store.CountByMoves(kLastEvictedMoves);
  const std::uint64_t nFewMovers = counts[0] + counts[1] + counts[2] + counts[3];
  if (nFewMovers < nMax / 3) bRegisterFewMovers.store(false, std::memory_order_relaxed);
  store.RemoveUpTo(EvictionLimit(counts));
  if (std::uint64_t{FreeRoom()} * 5 < nMax)
    WriteRegisterLog("!!!! EmptySomeDataWhenRegisterFull failed.");
  lastEviction = std::chrono::steady_clock::now();
}

std::uint16_t TChessboardRegister<bool>::EvictionLimit(
    const std::vector<std::uint64_t>& countByMoves) const {
  // Only White-to-move (odd) entries are counted, so only they bring the count down.
  const std::uint64_t nMax = MaxElements();
  std::uint64_t nLeft = GetElementsIn();
  for (std::uint16_t n = 1; n < kLastEvictedMoves; n += 2) {
    nLeft -= std::min(nLeft, countByMoves[n]);
    const std::uint64_t nFree = nMax - std::min(nMax, nLeft);
    if (n >= 3 && nFree * 5 >= nMax) return n;
  }
  return kLastEvictedMoves;
}

void TChessboardRegister<bool>::Clear() {
  store.Clear();
  boundProblem.reset();
  boundFile.clear();
}

void TChessboardRegister<bool>::Compact() {
  store.Compact();
}
