// The connection to the online tablebase against a local server with canned answers: the
// path asked, a connection kept between requests, and every failure giving an unknown answer.
#include <gtest/gtest.h>

#include "LocalHttpServer.h"
#include "app/LiChessHTTP.h"

namespace {

using namespace std::chrono_literals;

constexpr const char* kFen = "8/6KP/8/8/8/8/7p/4k3 w - - 0 1";
constexpr const char* kWinningAnswer =
    R"({"dtz":1,"dtm":17,"category":"win","moves":[{"uci":"h7h8q","dtz":-2,"dtm":-16,)"
    R"("category":"loss"}]})";

TLiChessSettings LocalSettings(const CLocalHttpServer& server) {
  TLiChessSettings settings;
  settings.scheme = "http";
  settings.host = server.Host();
  settings.connectTimeout = 2000ms;
  settings.totalTimeout = 400ms;
  settings.minInterval = 0ms;
  settings.tooManyRequestsWait = 300ms;
  return settings;
}

TEST(LiChessHTTP, AsksTheStandardPathAndKeepsOneConnection) {
  CLocalHttpServer server([](const std::string&) { return TCannedReply{.body = kWinningAnswer}; });
  CLiChessHTTP http(LocalSettings(server));
  TLiChessPage page;
  const CLiChess answer = http.Query(kFen, &page);
  EXPECT_TRUE(page.Succeeded()) << page.sError;
  EXPECT_EQ(answer.value, lichess::kWin);
  EXPECT_EQ(answer.nMoves, 1);
  http.Query("8/8/8/8/8/8/8/K1k5 b - - 0 1");
  EXPECT_EQ(server.Targets(),
            (std::vector<std::string>{"/standard?fen=8/6KP/8/8/8/8/7p/4k3%20w%20-%20-%200%201",
                                      "/standard?fen=8/8/8/8/8/8/8/K1k5%20b%20-%20-%200%201"}));
  EXPECT_EQ(server.Connections(), 1);
}

struct TFailureCase {
  const char* name;
  TCannedReply reply;
};

TEST(LiChessHTTP, FailuresGiveAnUnknownAnswer) {
  const TFailureCase cases[] = {
      {"too many requests", {.nStatus = 429, .body = kWinningAnswer}},
      {"server error", {.nStatus = 500, .body = kWinningAnswer}},
      {"late past the time-out", {.body = kWinningAnswer, .delay = 1500ms}},
      {"body cut short", {.body = kWinningAnswer, .bTruncated = true}},
  };
  for (const auto& [name, reply] : cases) {
    CLocalHttpServer server([&reply](const std::string&) { return reply; });
    CLiChessHTTP http(LocalSettings(server));
    TLiChessPage page;
    const CLiChess answer = http.Query(kFen, &page);
    EXPECT_FALSE(page.Succeeded()) << name;
    EXPECT_EQ(answer, CLiChess{}) << name;
  }
}

TEST(LiChessHTTP, NoServerIsAnUnknownAnswer) {
  std::string host;
  {
    CLocalHttpServer gone([](const std::string&) { return TCannedReply{}; });
    host = gone.Host();
  }
  TLiChessSettings settings;
  settings.scheme = "http";
  settings.host = host;
  CLiChessHTTP http(settings);
  TLiChessPage page;
  EXPECT_EQ(http.Query(kFen, &page).value, lichess::kUnknown);
  EXPECT_FALSE(page.Succeeded());
}

TEST(LiChessHTTP, WaitsAfterTooManyRequests) {
  int nRequests = 0;
  CLocalHttpServer server([&nRequests](const std::string&) {
    return ++nRequests == 1 ? TCannedReply{.nStatus = 429} : TCannedReply{.body = kWinningAnswer};
  });
  CLiChessHTTP http(LocalSettings(server));
  EXPECT_EQ(http.Query(kFen).value, lichess::kUnknown);
  EXPECT_GT(http.TimeUntilNextRequest(), 200ms);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(http.Query(kFen).value, lichess::kWin);
  EXPECT_GE(std::chrono::steady_clock::now() - start, 250ms);
}

TEST(LiChessHTTP, PacesRequests) {
  CLocalHttpServer server([](const std::string&) { return TCannedReply{.body = kWinningAnswer}; });
  TLiChessSettings settings = LocalSettings(server);
  settings.minInterval = 150ms;
  CLiChessHTTP http(settings);
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 3; ++i) http.Query(kFen);
  EXPECT_GE(std::chrono::steady_clock::now() - start, 300ms);
}

TEST(LiChessHTTP, WarnsWhenAPositionIsFetchedAgain) {
  CLocalHttpServer server([](const std::string&) { return TCannedReply{.body = kWinningAnswer}; });
  for (const bool bWarn : {false, true}) {
    TLiChessSettings settings = LocalSettings(server);
    settings.bWarnOnRepetition = bWarn;
    std::vector<std::string> messages;
    CLiChessHTTP http(settings, [&messages](const std::string& text) { messages.push_back(text); });
    http.Query(kFen);
    http.Query("8/8/8/8/8/8/8/K1k5 b - - 0 1");
    EXPECT_TRUE(messages.empty());
    http.Query(kFen);
    EXPECT_EQ(messages.size(), bWarn ? 1u : 0u);
  }
}

TEST(LiChessHTTP, RedirectsAreNotFollowed) {
  CLocalHttpServer elsewhere(
      [](const std::string&) { return TCannedReply{.body = kWinningAnswer}; });
  for (const int nStatus : {301, 302, 307}) {
    const std::string location = "http://" + elsewhere.Host() + "/standard?fen=x";
    CLocalHttpServer server([&](const std::string&) {
      return TCannedReply{.nStatus = nStatus, .body = kWinningAnswer, .location = location};
    });
    CLiChessHTTP http(LocalSettings(server));
    TLiChessPage page;
    EXPECT_EQ(http.Query(kFen, &page), CLiChess{}) << nStatus;
    EXPECT_EQ(page.sError, "HTTP status " + std::to_string(nStatus));
  }
  EXPECT_TRUE(elsewhere.Targets().empty());
}

TEST(LiChessHTTP, AnswersAboveTheLimitAreRefused) {
  const std::string padded = kWinningAnswer + std::string(5000, ' ');
  const TCannedReply cases[] = {
      {.body = padded},                        // the announced length is over the limit
      {.body = padded, .bUnannounced = true},  // no length: the body grows past it
  };
  for (const TCannedReply& reply : cases) {
    CLocalHttpServer server([&reply](const std::string&) { return reply; });
    TLiChessSettings settings = LocalSettings(server);
    settings.nMaxAnswerBytes = 4096;
    CLiChessHTTP http(settings);
    TLiChessPage page;
    EXPECT_EQ(http.Query(kFen, &page), CLiChess{}) << reply.bUnannounced;
    EXPECT_EQ(page.sError, kAnswerTooLargeText) << reply.bUnannounced;
    settings.nMaxAnswerBytes = padded.size();
    CLiChessHTTP roomy(settings);
    EXPECT_EQ(roomy.Query(kFen).value, lichess::kWin) << reply.bUnannounced;
  }
}

TEST(LiChessHTTP, OnlyAPlainHostOverHttpIsAsked) {
  CLocalHttpServer server([](const std::string&) { return TCannedReply{.body = kWinningAnswer}; });
  const std::string host = server.Host();
  const std::pair<const char*, std::string> refused[] = {
      {"file", host},
      {"ftp", host},
      {"http", ""},
      {"http", "evil.example@" + host},
      {"http", host + "/other?"},
      {"http", host + "#"},
      {"http", "host name"},
      {"http", host + "\r\nX: y"},
  };
  for (const auto& [scheme, refusedHost] : refused) {
    TLiChessSettings settings = LocalSettings(server);
    settings.scheme = scheme;
    settings.host = refusedHost;
    EXPECT_FALSE(CLiChessHTTP::IsAcceptedAddress(settings)) << scheme << "://" << refusedHost;
    CLiChessHTTP http(settings);
    TLiChessPage page;
    EXPECT_EQ(http.Query(kFen, &page), CLiChess{});
    EXPECT_EQ(page.sError.rfind(kRefusedAddressText, 0), 0u) << page.sError;
  }
  EXPECT_TRUE(server.Targets().empty());
  for (const char* accepted : {"tablebase.lichess.ovh", "localhost:9000", "[::1]:8080"}) {
    TLiChessSettings settings;
    settings.host = accepted;
    EXPECT_TRUE(CLiChessHTTP::IsAcceptedAddress(settings)) << accepted;
  }
}

}  // namespace
