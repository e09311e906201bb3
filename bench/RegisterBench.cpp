// Speed of the temporary register: lookups and insertions per second, by one and two threads.
#include <benchmark/benchmark.h>

#include <memory>

#include "registers/ChessboardRegister.h"

namespace {

using TRegister = TChessboardRegister<bool>;
constexpr std::uint64_t kFilledKeys = 1 << 18;

// Keys shaped like positions: two kings, and the number spread over a few squares.
TChessboardRegisterItem PositionKey(std::uint64_t number) {
  TChessboardRegisterItem key;
  key.bytes[4] = 0x41;
  key.bytes[60] = 0x81;
  for (int i = 0; i < 6; ++i) key.bytes[9 + 9 * i] = static_cast<std::uint8_t>(number >> (8 * i));
  return key;
}

std::uint16_t MovesOf(std::uint64_t number) {
  return static_cast<std::uint16_t>(5 + 2 * (number % 8));
}

// Half the keys asked for are filed, half are not, in an order the caches cannot follow.
const TRegister& FilledRegister() {
  static const std::unique_ptr<TRegister> reg = [] {
    auto filled = std::make_unique<TRegister>(1u << 30);
    for (std::uint64_t i = 0; i < kFilledKeys; ++i) {
      filled->Insert(MovesOf(i), PositionKey(i), i & 1);
      filled->InsertDefence(MovesOf(i) + 1, PositionKey(i), i & 1);
    }
    return filled;
  }();
  return *reg;
}

void BM_RegisterLookup(benchmark::State& state) {
  const TRegister& reg = FilledRegister();
  std::uint64_t random = 0x9E3779B97F4A7C15ULL * (state.thread_index() + 1);
  for (auto _ : state) {
    random ^= random << 13;
    random ^= random >> 7;
    random ^= random << 17;
    const std::uint64_t number = random % (2 * kFilledKeys);
    benchmark::DoNotOptimize(reg.FindAnswer(MovesOf(number) + 2, PositionKey(number)));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RegisterLookup)->Threads(1)->Threads(2)->UseRealTime();

std::unique_ptr<TRegister> insertRegister;

void BM_RegisterInsert(benchmark::State& state) {
  if (state.thread_index() == 0) insertRegister = std::make_unique<TRegister>(1u << 30);
  std::uint64_t number = static_cast<std::uint64_t>(state.thread_index()) << 40;
  for (auto _ : state) {
    insertRegister->Insert(MovesOf(number), PositionKey(number), number & 1);
    ++number;
  }
  state.SetItemsProcessed(state.iterations());
  if (state.thread_index() == 0) {
    state.counters["peak"] = insertRegister->GetPeakElementsIn();
    insertRegister.reset();
  }
}
BENCHMARK(BM_RegisterInsert)->Threads(1)->Threads(2)->UseRealTime();

}  // namespace
