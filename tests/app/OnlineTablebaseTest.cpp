// The online tablebase as the search asks it: the kept answers first, the service next, only
// positions it can hold, failures as unknown answers, and the moves that cannot win.
#include <gtest/gtest.h>

#include <mutex>

#include "LocalHttpServer.h"
#include "TempFolder.h"
#include "app/OnlineTablebase.h"
#include "core/Fen.h"
#include "core/Notation.h"

namespace {

using namespace std::chrono_literals;

// White: Kg7, Ph7; Black: Ke1, Ph2. White to move.
constexpr const char* kPawnRace = "8/6KP/8/8/8/8/7p/4k3";
constexpr const char* kAnswer = R"({"dtz":1,"dtm":17,"category":"win","moves":[)"
                                R"({"uci":"h7h8q","dtz":-2,"dtm":-16,"category":"loss"},)"
                                R"({"uci":"h7h8n","dtz":0,"dtm":null,"category":"draw"},)"
                                R"({"uci":"g7f7","dtz":0,"dtm":null,"category":"maybe-win"},)"
                                R"({"uci":"g7g6","dtz":5,"dtm":20,"category":"win"}]})";

TChessboard Board(const char* placement) {
  TChessboard board;
  ClearChessboard(board);
  EXPECT_TRUE(fen::ReadFen(board, placement)) << placement;
  board.ply = board.rootPlies = 3;
  return board;
}

class OnlineTablebase : public testing::Test {
 protected:
  OnlineTablebase()
      : server([this](const std::string&) {
          const std::lock_guard lock(replyMutex);
          return reply;
        }),
        http(Settings()),
        file(folder / "SavedTmpSyzygyData" / "p.lichess") {}

  TLiChessSettings Settings() const {
    TLiChessSettings settings;
    settings.scheme = "http";
    settings.host = server.Host();
    settings.minInterval = 0ms;
    settings.tooManyRequestsWait = 60s;
    return settings;
  }

  void Reply(TCannedReply next) {
    const std::lock_guard lock(replyMutex);
    reply = std::move(next);
  }

  std::mutex replyMutex;
  TCannedReply reply{.body = kAnswer};
  CLocalHttpServer server;
  CLiChessHTTP http;
  CTempFolder folder;
  std::filesystem::path file;
};

TEST_F(OnlineTablebase, SkipsTheMovesThatDrawOrLose) {
  CLiChessCache cache(file, false);
  COnlineTablebase tablebase(&http, cache);
  const TChessboard board = Board(kPawnRace);
  std::vector<std::string> texts;
  for (const TMove move : tablebase.MovesThatCannotWin(board))
    texts.push_back(notation::MoveToText(board, move));
  EXPECT_EQ(texts, (std::vector<std::string>{"h7-h8N", "Kg7-g6"}));
}

TEST_F(OnlineTablebase, AsksEachPositionOncePerProblem) {
  const TChessboard board = Board(kPawnRace);
  {
    CLiChessCache cache(file, false);
    COnlineTablebase tablebase(&http, cache);
    EXPECT_TRUE(tablebase.Answer(board));
    EXPECT_TRUE(tablebase.Answer(board));
  }
  CLiChessCache again(file, false);
  COnlineTablebase offline(nullptr, again);  // the kept answer needs no service
  EXPECT_EQ(offline.Answer(board), CLiChess::Parse(kAnswer));
  EXPECT_EQ(server.Targets().size(), 1u);
  EXPECT_EQ(server.Targets()[0], "/standard?fen=8/6KP/8/8/8/8/7p/4k3%20w%20-%20-%200%201");
}

TEST_F(OnlineTablebase, OnlyPositionsTheServiceHolds) {
  const char* const refused[] = {
      "8/6KP/8/8/8/PPP5/2p4p/4k3",  // eight pieces
      "4k3/8/8/8/8/8/8/4K2R",       // White may castle
  };
  CLiChessCache cache(file, false);
  COnlineTablebase tablebase(&http, cache);
  for (const char* placement : refused) EXPECT_FALSE(tablebase.Answer(Board(placement)));
  EXPECT_TRUE(tablebase.Answer(Board("8/6KP/8/8/8/1PP5/2p4p/4k3")));  // seven
  EXPECT_EQ(server.Targets().size(), 1u);
}

TEST_F(OnlineTablebase, FailuresAreUnknownAndNotKept) {
  Reply({.nStatus = 500});
  const TChessboard board = Board(kPawnRace);
  CLiChessCache cache(file, false);
  COnlineTablebase tablebase(&http, cache);
  EXPECT_FALSE(tablebase.Answer(board));
  EXPECT_TRUE(tablebase.MovesThatCannotWin(board).empty());  // not asked again in this solve
  EXPECT_EQ(server.Targets().size(), 1u);
  EXPECT_EQ(cache.Size(), 0u);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(OnlineTablebase, NoLookupWaitsOutTooManyRequests) {
  Reply({.nStatus = 429});
  CLiChessCache cache(file, false);
  COnlineTablebase tablebase(&http, cache);
  EXPECT_FALSE(tablebase.Answer(Board(kPawnRace)));
  Reply({.body = kAnswer});
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(tablebase.Answer(Board("8/6KP/8/8/8/8/7p/3k4")));  // another position
  EXPECT_LT(std::chrono::steady_clock::now() - start, 30s);
  EXPECT_EQ(server.Targets().size(), 1u);
}

TEST(TablebaseLevels, TheDialogRefusesCountsOutsideItsBounds) {
  for (const long long nLevels : {-1LL, 0LL, 1LL, 10LL})
    EXPECT_FALSE(TablebaseLevelsRefusal(nLevels, "x"));
  for (const long long nLevels : {-2LL, 11LL, 1LL << 40}) {
    EXPECT_EQ(TablebaseLevelsRefusal(nLevels, "https://tablebase.lichess.ovh"),
              "Invalid number of levels of analysis with solutions dowanloaded from "
              "https://tablebase.lichess.ovh (min=-1, max=10)");
  }
}

}  // namespace
