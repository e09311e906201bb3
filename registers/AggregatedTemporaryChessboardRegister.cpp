#include "registers/AggregatedTemporaryChessboardRegister.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <vector>

#include "core/FileAppender.h"

namespace {
using Clock = std::chrono::steady_clock;

// Evictions asked for this soon after the last one are served by it.
constexpr auto kEvictionMergeWindow = std::chrono::milliseconds(16);
// Below these many elements dropped, an eviction goes on to the next step.
constexpr std::uint32_t kForcedEnough = 262144;
constexpr std::uint32_t kEnough = 4096;
constexpr std::uint32_t kForcedStepEnough = 524288;
// Eviction never reaches beyond this move count.
constexpr std::uint16_t kLastEvictedMoves = 255;

// Evictions of every register of the process take turns: many threads that find the
// register full at once cause one eviction.
std::mutex& EvictionMutex() {
  static std::mutex mutex;
  return mutex;
}

std::uint32_t Narrow(std::uint64_t n) {
  return static_cast<std::uint32_t>(std::min<std::uint64_t>(n, 0xFFFFFFFFu));
}

// Whether memory can be had again, as a last check before an eviction stops.
bool MemoryIsAvailable() {
  void* probe = ::operator new(1024, std::nothrow);
  ::operator delete(probe);
  return probe != nullptr;
}
}  // namespace

TAggregatedTemporaryChessboardRegister::TAggregatedTemporaryChessboardRegister(std::uint32_t nLimit)
    : TChessboardRegister<bool>(nLimit) {}

TAggregatedTemporaryChessboardRegister::~TAggregatedTemporaryChessboardRegister() = default;

std::uint32_t TAggregatedTemporaryChessboardRegister::GetElementsIn() const {
  // Black-to-move entries cost the same memory as the others: a budget that left them out
  // would let the register grow to twice its quota and more.
  return ElementsIn.load(std::memory_order_relaxed) + BlackToMoveElementsIn() + own.Count() +
         DoubtfulElementsIn.load(std::memory_order_relaxed);
}

std::uint32_t TAggregatedTemporaryChessboardRegister::GetDoubtfulElementsIn() const {
  return DoubtfulElementsIn.load(std::memory_order_relaxed);
}

void TAggregatedTemporaryChessboardRegister::SetRegisterLog(std::filesystem::path file,
                                                            CWriteFailures* failures) {
  const std::lock_guard lock(logMutex);
  logFile = std::move(file);
  logFailures = failures;
}

void TAggregatedTemporaryChessboardRegister::Log(const char* message, std::int64_t first,
                                                 std::int64_t second) {
  const std::lock_guard lock(logMutex);
  if (logFile.empty()) return;
  char lines[512];
  std::snprintf(lines, sizeof lines,
                "%s, msg params: %d, %d\n\t\t\tElementsIn= %d, DoubtfulElementsIn=%d\n", message,
                static_cast<int>(first), static_cast<int>(second),
                static_cast<int>(ElementsIn.load(std::memory_order_relaxed)),
                static_cast<int>(DoubtfulElementsIn.load(std::memory_order_relaxed)));
  // A log that cannot be written loses the lines; the solve goes on.
  const auto error = safefile::AppendToFile(logFile.string(), lines);
  if (error && logFailures != nullptr) logFailures->Note(logFile.string(), *error);
}

void TAggregatedTemporaryChessboardRegister::EmptySomeDataWhenRegisterFull(bool bForce) {
  Log("EmptySomeDataWhenRegisterFull started", bForce ? 1 : 0, 0);
  const std::lock_guard lock(EvictionMutex());
  if (lastEviction && Clock::now() <= *lastEviction + kEvictionMergeWindow) return;
  if (bForce && FreeRoom() >= MaxElements() / 4) return;
  const std::uint32_t nRemoved = RemoveIdleDoubtful();
  RemoveShortSubproblems(bForce, nRemoved, nRemoved > (bForce ? kForcedEnough : kEnough));
  Log("EmptySomeDataWhenRegisterFull complete", 0, 0);
  lastEviction = Clock::now();
}

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveShortSubproblems(bool bForce,
                                                                             std::uint32_t nRemoved,
                                                                             bool bEnough) {
  const std::uint32_t nMax = MaxElements();
  if (!bEnough && RegistersFewMovers()) {
    nRemoved += RemoveNMovers(3);
    bEnough = nRemoved > kEnough;
    // Three-movers that fill less than a third of the budget are not worth keeping at all.
    if (nRemoved < nMax / 3) StopRegisteringFewMovers();
  }
  const std::uint32_t nStepEnough =
      bForce ? std::max(nMax / 12, kForcedStepEnough) : std::max(nMax / 25, kEnough);
  for (std::uint16_t k = 5;; k += 2) {
    if (bEnough && MemoryIsAvailable()) break;
    nRemoved += RemoveNMovers(k) + RemoveNMovers(static_cast<std::uint16_t>(k - 1));
    if (nRemoved > nStepEnough) bEnough = true;
    if (std::uint64_t{FreeRoom()} * 5 >= nMax) bEnough = true;
    if (k == kLastEvictedMoves) {
      if (!bEnough) Log("!!!! EmptySomeDataWhenRegisterFull failed.", 0, 0);
      break;
    }
  }
  return nRemoved;
}

void TAggregatedTemporaryChessboardRegister::StopRegisteringFewMovers() {
  bRegisterFewMovers.store(false, std::memory_order_relaxed);
  const std::shared_lock lock(mapMutex);
  for (auto& [selection, member] : members) member->StopRegisteringFewMovers();
}

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveNMovers(std::uint16_t n) {
  Log("TAggregatedTemporaryChessboardRegister::RemoveNMovers start.", n, 0);
  Log("TTemporaryChessboardRegister::RemoveNMovers start.", n, 0);
  std::uint32_t nRemoved = Narrow(RemoveExactUpTo(n)) + own.Sweep(n, n);
  Log("TTemporaryChessboardRegister::RemoveNMovers complete.", n, 0);
  {
    const std::shared_lock lock(mapMutex);
    // A member keeps cuts two plies longer: its selection is still searching them.
    const std::uint16_t nCutLimit = n < 2 ? 0 : static_cast<std::uint16_t>(n - 2);
    for (auto& [selection, member] : members) {
      Log("TTemporaryChessboardRegister::RemoveNMovers start.", n, 0);
      const std::uint32_t nSwept = member->Doubtful().Sweep(n, nCutLimit);
      DoubtfulElementsIn.fetch_sub(nSwept, std::memory_order_relaxed);
      nRemoved += nSwept;
      Log("TTemporaryChessboardRegister::RemoveNMovers complete.", n, 0);
    }
  }
  Log("TAggregatedTemporaryChessboardRegister::RemoveNMovers complete.", n, 0);
  return nRemoved;
}

void TAggregatedTemporaryChessboardRegister::AddDoubtfulUser(std::uint32_t heuristics,
                                                             std::uint32_t params) {
  const std::unique_lock lock(mapMutex);
  ++users[MakeHeuristicsKey(heuristics, params)];
}

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveDoubtful(std::uint32_t heuristics,
                                                                     std::uint32_t params) {
  Log("RemoveDoubtful start.", heuristics, params);
  std::uint32_t nDropped;
  {
    const std::unique_lock lock(mapMutex);
    nDropped = RemoveDoubtfulLocked(MakeHeuristicsKey(heuristics, params));
  }
  Log("RemoveDoubtful complete.", heuristics, params);
  return nDropped;
}

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveDoubtfulLocked(
    THeuristicsKey selection) {
  const auto counter = users.find(selection);
  if (counter != users.end() && counter->second > 0) {
    --counter->second;
    return 0;
  }
  if (counter != users.end()) users.erase(counter);
  const auto member = members.find(selection);
  if (member == members.end()) return 0;
  const std::uint32_t nDropped = member->second->GetElementsIn();
  DoubtfulElementsIn.fetch_sub(nDropped, std::memory_order_relaxed);
  members.erase(member);
  return nDropped;
}

std::uint32_t TAggregatedTemporaryChessboardRegister::RemoveIdleDoubtful() {
  std::vector<THeuristicsKey> idle;
  {
    const std::shared_lock lock(mapMutex);
    for (const auto& [selection, nUsers] : users)
      if (nUsers == 0) idle.push_back(selection);
  }
  std::uint32_t nDropped = 0;
  for (const THeuristicsKey selection : idle)
    nDropped += RemoveDoubtful(static_cast<std::uint32_t>(selection),
                               static_cast<std::uint32_t>(selection >> 32));
  return nDropped;
}

void TAggregatedTemporaryChessboardRegister::SetMemoryLimits(std::uint64_t nTotalMemoryBytes,
                                                             std::uint64_t nQuotaMiB) {
  const std::uint32_t nLimit = MaxElementsForQuota(nTotalMemoryBytes, nQuotaMiB);
  nMaxElements.store(nLimit, std::memory_order_relaxed);
  const std::shared_lock lock(mapMutex);
  for (auto& [selection, member] : members) member->SetMaxElements(nLimit);
}

void TAggregatedTemporaryChessboardRegister::Clear(bool bKeepBuckets) {
  own.Clear(bKeepBuckets, clearProgress);
  {
    const std::shared_lock lock(mapMutex);
    for (auto& [selection, member] : members) member->Doubtful().Clear(bKeepBuckets);
    DoubtfulElementsIn.store(0, std::memory_order_relaxed);
  }
  TChessboardRegister<bool>::Clear();
}

void TAggregatedTemporaryChessboardRegister::RecordIn(CDoubtfulStore& target, std::uint16_t n,
                                                      const TChessboardRegisterItem& key,
                                                      bool bMate) {
  if (target.Record(n, key, bMate)) DoubtfulElementsIn.fetch_add(1, std::memory_order_relaxed);
}

std::uint8_t TAggregatedTemporaryChessboardRegister::FindDoubtful(
    THeuristicsKey selection, std::uint16_t n, const TChessboardRegisterItem& key) const {
  if (selection == 0) return own.Find(n, key);
  const std::shared_lock lock(mapMutex);
  const auto member = members.find(selection);
  return member == members.end() ? kRegisterUnknown : member->second->Doubtful().Find(n, key);
}

void TAggregatedTemporaryChessboardRegister::InsertDoubtful(THeuristicsKey selection,
                                                            std::uint16_t n,
                                                            const TChessboardRegisterItem& key,
                                                            bool bMate) {
  if (n < 4 && !RegistersFewMovers()) return;
  if (!HasRoom()) return;
  try {
    if (selection == 0) {
      own.Record(n, key, bMate);
      return;
    }
    {
      const std::shared_lock lock(mapMutex);
      const auto member = members.find(selection);
      if (member != members.end()) {
        RecordIn(member->second->Doubtful(), n, key, bMate);
        return;
      }
    }
    // A selection met without a user registered first: its member is idle from the start.
    const std::unique_lock lock(mapMutex);
    auto member = members.find(selection);
    if (member == members.end()) {
      auto made = std::make_unique<TMember>(MaxElements(), *this);
      if (!RegistersFewMovers()) made->StopRegisteringFewMovers();
      member = members.emplace(selection, std::move(made)).first;
      users.try_emplace(selection, 0);
    }
    RecordIn(member->second->Doubtful(), n, key, bMate);
  } catch (const std::bad_alloc&) {
    WriteRegisterLog("Exception caught in method TChessboardRegister::Insert");
    EmptySomeDataWhenRegisterFull(false);
  }
}

void TAggregatedTemporaryChessboardRegister::ForEachDoubtful(
    const std::function<void(THeuristicsKey, const TDoubtfulElement&)>& visit) const {
  own.ForEach([&](const TDoubtfulElement& element) { visit(0, element); });
  const std::shared_lock lock(mapMutex);
  for (const auto& [selection, member] : members)
    member->Doubtful().ForEach(
        [&, key = selection](const TDoubtfulElement& element) { visit(key, element); });
}
