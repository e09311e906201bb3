#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include "RegisterTestSupport.h"
#include "registers/ChessboardRegister.h"

using registertest::Key;

namespace {

constexpr std::uint32_t kThreads = 4;
constexpr std::uint32_t kOwnKeys = 1500;
constexpr std::uint32_t kSharedKeys = 400;
constexpr std::uint32_t kSharedBase = 1u << 24;

// Every key has one fixed answer and move count, so that threads filing the same key agree.
std::uint32_t AnswerOf(std::uint32_t keyNumber) {
  return (keyNumber * 7 >> 2) & 1;
}
std::uint16_t MovesOf(std::uint32_t keyNumber) {
  return 5 + 2 * (keyNumber % 4);
}
std::uint32_t OwnKey(std::uint32_t thread, std::uint32_t i) {
  return thread << 16 | i;
}

}  // namespace

// Runs work(thread) on kThreads threads at once and counts the wrong answers they saw.
template <typename Work>
std::uint32_t RunThreads(Work work) {
  std::atomic<std::uint32_t> nWrong{0};
  std::vector<std::thread> threads;
  for (std::uint32_t t = 0; t < kThreads; ++t) threads.emplace_back(work, t, std::ref(nWrong));
  for (std::thread& thread : threads) thread.join();
  return nWrong.load();
}

TEST(ConcurrentRegister, ThreadsFilingAndReadingTogetherSeeOnlyTrueAnswers) {
  TChessboardRegister<bool> reg(1'000'000);
  auto work = [&](std::uint32_t thread, std::atomic<std::uint32_t>& nWrong) {
    for (std::uint32_t i = 0; i < kOwnKeys; ++i) {
      const std::uint32_t own = OwnKey(thread, i);
      reg.Insert(MovesOf(own), Key(own), AnswerOf(own));
      if (reg.FindAnswer(MovesOf(own), Key(own)) != AnswerOf(own)) ++nWrong;

      // Shared keys are filed by every thread, White's and Black's sides alike.
      const std::uint32_t shared = kSharedBase + (i * (thread + 1)) % kSharedKeys;
      const std::uint8_t seen = reg.FindAnswer(MovesOf(shared), Key(shared));
      if (seen != kRegisterUnknown && seen != AnswerOf(shared)) ++nWrong;
      reg.Insert(MovesOf(shared), Key(shared), AnswerOf(shared));
      reg.InsertDefence(MovesOf(shared) + 1, Key(shared), AnswerOf(shared));

      // Another thread's keys: unknown until filed, then right.
      const std::uint32_t other = OwnKey((thread + 1) % kThreads, i);
      const std::uint8_t otherSeen = reg.FindAnswer(MovesOf(other), Key(other));
      if (otherSeen != kRegisterUnknown && otherSeen != AnswerOf(other)) ++nWrong;
    }
  };
  EXPECT_EQ(RunThreads(work), 0u);
  std::uint32_t nSharedFiled = 0;
  for (std::uint32_t k = kSharedBase; k < kSharedBase + kSharedKeys; ++k) {
    if (reg.FindAnswer(MovesOf(k), Key(k)) == kRegisterUnknown) continue;
    ++nSharedFiled;
    EXPECT_EQ(reg.FindAnswer(MovesOf(k), Key(k)), AnswerOf(k));
    EXPECT_EQ(reg.FindDefenceAnswer(MovesOf(k) + 1, Key(k)), AnswerOf(k));
  }
  EXPECT_EQ(nSharedFiled, kSharedKeys);
  EXPECT_EQ(reg.GetElementsIn(), kThreads * kOwnKeys + kSharedKeys);
}

TEST(ConcurrentRegister, EvictionWhileFilingKeepsTheCountExact) {
  registertest::CTempFile file("concurrent");
  TChessboardRegister<bool> reg(600);
  auto work = [&](std::uint32_t thread, std::atomic<std::uint32_t>& nWrong) {
    for (std::uint32_t i = 0; i < kOwnKeys; ++i) {
      const std::uint32_t own = OwnKey(thread, i);
      reg.Insert(MovesOf(own), Key(own), AnswerOf(own));
      reg.InsertDefence(MovesOf(own) - 1, Key(own), 1);
      const std::uint8_t seen = reg.FindAnswer(MovesOf(own), Key(own));
      if (seen != kRegisterUnknown && seen != AnswerOf(own)) ++nWrong;
    }
  };
  EXPECT_EQ(RunThreads(work), 0u);
  reg.SaveSolvedPositions(file.path);
  std::uint32_t nWhiteToMove = 0;
  for (const auto& record : registertest::ReadRecords(file.path))
    nWhiteToMove += record.info.nMoves & 1;
  EXPECT_EQ(reg.GetElementsIn(), nWhiteToMove);
  EXPECT_LE(reg.GetElementsIn(), 600u + kThreads);
  EXPECT_GE(reg.GetPeakElementsIn(), 600u);
}
