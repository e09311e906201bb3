// "longmate tablebase" and "longmate solve" with the online tablebase, run as programs in a
// folder whose options.ini points them at a local server with canned answers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>

#include "LocalHttpServer.h"
#include "ProgramRun.h"
#include "TempFolder.h"

namespace {

using ::testing::HasSubstr;

// White mates in one with Rh1-h8 alone.
constexpr const char* kMateInOne = "1 #1\n{\n\tFEN: k7/8/1K6/8/8/8/8/7R\n}\n";
constexpr const char* kKeyDraws =
    R"({"category":"win","dtz":1,"dtm":1,"moves":[{"uci":"h1h8","dtz":0,"dtm":null,)"
    R"("category":"draw"},{"uci":"h1h7","dtz":-1,"dtm":-3,"category":"loss"}]})";

class TablebaseCommand : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(LongmateProgramPath())) GTEST_SKIP() << "longmate is not built";
    WriteTextFile(folder / "options.ini",
                  "[chess]\nLichessScheme=http\nLichessHost=" + server.Host() + "\n");
    WriteTextFile(folder / "p.cp", kMateInOne);
  }

  TProgramRun Run(const std::string& arguments) const { return RunLongmate(folder, arguments); }

  std::atomic<int> nStatus{200};
  CLocalHttpServer server{[this](const std::string&) {
    return TCannedReply{.nStatus = nStatus.load(), .body = kKeyDraws};
  }};
  CTempFolder folder;
};

TEST_F(TablebaseCommand, PrintsTheAnswer) {
  const TProgramRun run = Run("tablebase k7/8/1K6/8/8/8/8/7R");
  EXPECT_EQ(run.nStatus, 0) << run.err;
  EXPECT_EQ(run.out,
            "value: win\ndtm: 1\ndtz: 1\nmoves: 2 (value for the side to move next)\n"
            "  h1h8   draw    dtm none  dtz 0\n  h1h7   loss    dtm -3    dtz 1\n");
  EXPECT_EQ(server.Targets(),
            std::vector<std::string>{"/standard?fen=k7/8/1K6/8/8/8/8/7R%20w%20-%20-%200%201"});
}

TEST_F(TablebaseCommand, RefusesBadInputAndReportsFailures) {
  EXPECT_EQ(Run("tablebase 8/8/8").nStatus, 2);
  EXPECT_EQ(Run("tablebase k7/8/1K6/8/8/8/8/7R w - - 0 1 extra").nStatus, 2);
  EXPECT_TRUE(server.Targets().empty());
  nStatus = 429;
  const TProgramRun run = Run("tablebase 'k7/8/1K6/8/8/8/8/7R b - - 0 1'");
  EXPECT_EQ(run.nStatus, 1);
  EXPECT_THAT(run.out, HasSubstr("value: unknown"));
  EXPECT_THAT(run.err, HasSubstr("HTTP status 429"));
}

TEST_F(TablebaseCommand, SolveSkipsTheMovesThatCannotWinAndKeepsTheAnswer) {
  // The canned answer calls the real key a draw: the solve trusts it and finds no key.
  TProgramRun run = Run("solve p.cp --quiet");
  EXPECT_THAT(run.out, HasSubstr("No solution found of the problem 1")) << run.err;
  ASSERT_EQ(server.Targets().size(), 1u);
  const auto kept = folder / "SavedTmpSyzygyData";
  ASSERT_TRUE(std::filesystem::exists(kept));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(kept), {}), 1);
  // Asked again, the kept answer serves.
  run = Run("solve p.cp --quiet");
  EXPECT_THAT(run.out, HasSubstr("No solution found of the problem 1"));
  EXPECT_EQ(server.Targets().size(), 1u);
  // Without lookups the key is found.
  WriteTextFile(folder / "options.ini", "[chess]\nLichessLevels=0\n");
  EXPECT_THAT(Run("solve p.cp --quiet").out, HasSubstr("Keys: Rh1-h8"));
}

TEST_F(TablebaseCommand, SolveGoesOnWhenTheServiceFails) {
  nStatus = 500;
  const TProgramRun run = Run("solve p.cp --quiet");
  EXPECT_EQ(run.nStatus, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("Keys: Rh1-h8"));
  EXPECT_EQ(server.Targets().size(), 1u);
  EXPECT_FALSE(std::filesystem::exists(folder / "SavedTmpSyzygyData"));
}

}  // namespace
