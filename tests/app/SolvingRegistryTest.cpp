#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "app/SolvingRegistry.h"

namespace {

TEST(SolvingRegistry, KeyIsTheNameBeforeTheFirstUnderscore) {
  const struct {
    const char* szName;
    const char* szKey;
  } cases[] = {{"12_1", "12"}, {"12", "12"}, {"12_1_2", "12"}, {"_1", ""}, {"", ""}};
  for (const auto& c : cases) EXPECT_EQ(SolvingRegistry::KeyOf(c.szName), c.szKey) << c.szName;
}

TEST(SolvingRegistry, RemovesTheFirstEntryWithTheSameKey) {
  SolvingRegistry registry;
  registry.Add("7_0", 1);
  registry.Add("12_0", 4);
  registry.Add("12_1", 2);
  EXPECT_TRUE(registry.Contains("12"));
  EXPECT_TRUE(registry.Contains("12_9"));
  EXPECT_FALSE(registry.Contains("1"));
  EXPECT_FALSE(registry.Contains("120_0"));
  EXPECT_EQ(registry.ThreadsRunning("12_1"), 4);  // the first entry of the key answers

  // From the middle: "12_1" finds "12_0" first.
  EXPECT_TRUE(registry.Remove("12_1"));
  EXPECT_EQ(registry.Size(), 2u);
  EXPECT_EQ(registry.ThreadsRunning("12"), 2);
  // From the front.
  EXPECT_TRUE(registry.Remove("7"));
  EXPECT_FALSE(registry.Contains("7_0"));
  EXPECT_TRUE(registry.Remove("12"));
  EXPECT_FALSE(registry.Remove("12"));
  EXPECT_EQ(registry.Size(), 0u);
  EXPECT_EQ(registry.ThreadsRunning("12"), std::nullopt);
}

TEST(SolvingRegistry, ConcurrentSolvesOfManyProblems) {
  SolvingRegistry registry;
  constexpr int kThreads = 8, kRounds = 300;
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([&registry, t] {
      const std::string problem = std::to_string(t);
      for (int round = 0; round < kRounds; ++round) {
        registry.Add(problem + "_0", 1);
        registry.Add(problem + "_1", 1);
        if (!registry.Contains(problem)) ADD_FAILURE() << "lost " << problem;
        registry.Remove(problem + "_1");
        registry.Remove(problem + "_0");
      }
    });
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(registry.Size(), 0u);
}

}  // namespace
