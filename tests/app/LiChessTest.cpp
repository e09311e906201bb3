// Reading the tablebase's answers: the key search, the fallback from "wdl" to "category",
// the distances and the move list, on today's answers, old ones and broken ones.
#include <gtest/gtest.h>

#include "app/LiChess.h"

namespace {

using namespace lichess;

// Today's service: "category" and no "wdl"; each move is valued for the side that moves next.
constexpr const char* kCurrentAnswer =
    R"({"dtz":1,"precise_dtz":1,"dtc":null,"dtm":17,"dtw":null,"checkmate":false,)"
    R"("stalemate":false,"insufficient_material":false,"category":"win","moves":[)"
    R"({"uci":"h7h8q","san":"h8=Q+","dtz":-2,"precise_dtz":-2,"dtm":-16,"zeroing":true,)"
    R"("category":"loss"},)"
    R"({"uci":"g7f7","san":"Kf7","dtz":0,"precise_dtz":0,"dtm":null,"category":"draw"},)"
    R"({"uci":"g7g6","san":"Kg6","dtz":-300,"dtm":null,"category":"cursed-win"}]})";

// The service's older answers carried "wdl" numbers.
constexpr const char* kOldAnswer =
    R"({"checkmate":false,"stalemate":false,"wdl":-2,"dtz":-12,"dtm":-9,"moves":[)"
    R"({"uci":"e7e8n","wdl":2,"dtz":400,"dtm":8},)"
    R"({"uci":"a1b1","wdl":0,"dtz":0,"dtm":null}]})";

TEST(LiChess, ReadsTodaysAnswers) {
  const CLiChess answer = CLiChess::Parse(kCurrentAnswer);
  EXPECT_EQ(answer.value, kWin);
  EXPECT_EQ(answer.dtm, 17);
  EXPECT_EQ(answer.dtz, 1);  // not the "precise_dtz" key
  ASSERT_EQ(answer.nMoves, 3);
  EXPECT_EQ(
      answer.moves[0],
      (CLiChessMove{.from = 55, .to = 63, .promotion = 12, .value = kLoss, .dtm = -16, .dtz = 2}));
  EXPECT_EQ(answer.moves[1], (CLiChessMove{.from = 54, .to = 53, .value = kDraw, .dtz = 0}));
  EXPECT_EQ(answer.moves[2], (CLiChessMove{.from = 54, .to = 46, .value = kWin, .dtz = 255}));
  EXPECT_EQ(CLiChess::MoveText(answer.moves[0]), "h7h8q");
}

TEST(LiChess, ReadsOldWdlAnswers) {
  const CLiChess answer = CLiChess::Parse(kOldAnswer);
  EXPECT_EQ(answer.value, kLoss);
  EXPECT_EQ(answer.dtm, -9);
  EXPECT_EQ(answer.dtz, 12);
  ASSERT_EQ(answer.nMoves, 2);
  EXPECT_EQ(
      answer.moves[0],
      (CLiChessMove{.from = 52, .to = 60, .promotion = 16, .value = kWin, .dtm = 8, .dtz = 254}));
  EXPECT_EQ(answer.moves[1],
            (CLiChessMove{.from = 0, .to = 1, .value = kDraw, .dtm = kNoDtm, .dtz = 0}));
}

struct TValueCase {
  const char* text;
  std::int8_t value;
};

TEST(LiChess, PositionValue) {
  const TValueCase cases[] = {
      {R"({"wdl":1})", kWin},  // a cursed win is a win for a mate search
      {R"({"wdl":2})", kWin},
      {R"({"wdl": 0})", kDraw},
      {R"({"wdl":-1})", kLoss},
      {R"({"wdl":null,"category":"draw"})", kUnknown},  // "wdl" wins even without a value
      {R"({"wdl":,"category":"win"})", kUnknown},
      {R"({"category":"blessed-loss"})", kLoss},
      {R"({"category" : "cursed-win"})", kUnknown},  // the key is "category":, blanks and all
      {R"({"category":  "cursed-win"})", kWin},
      {R"({"category":"maybe-win"})", kUnknown},
      {R"({"category":"syzygy-win"})", kUnknown},
      {R"({"category":"unknown"})", kUnknown},
      {R"({"category":null})", kUnknown},
      {R"({"category":"dra)", kUnknown},
      {"No internet connection", kUnknown},
      {"", kUnknown},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(CLiChess::Parse(text).value, value) << text;
}

struct TDistanceCase {
  const char* text;
  int dtm;
  std::uint8_t dtz;
};

TEST(LiChess, DistancesKeepTheMagnitudeOfDtz) {
  const TDistanceCase cases[] = {
      {R"({"dtz":-300,"dtm":-40})", -40, 255},
      {R"({"dtz":-12,"dtm":5})", 5, 12},
      {R"({"dtz":400})", kNoDtm, 254},
      {R"({"dtz":255})", kNoDtm, 254},
      {R"({"dtz":254})", kNoDtm, 254},
      {R"({"dtz":-254})", kNoDtm, 254},
      {R"({"dtz":-255})", kNoDtm, 255},
      {R"({"dtz":0,"dtm":0})", 0, 0},
      {R"({"dtz":null,"dtm":null})", kNoDtm, 255},
      {R"({"dtz":,"dtm":,})", kNoDtm, 255},
  };
  for (const auto& [text, dtm, dtz] : cases) {
    const CLiChess answer = CLiChess::Parse(text);
    EXPECT_EQ(answer.dtm, dtm) << text;
    EXPECT_EQ(answer.dtz, dtz) << text;
  }
}

struct TMovesCase {
  const char* text;
  int nMoves;
};

TEST(LiChess, MalformedMoveListsKeepThePositionValue) {
  const TMovesCase cases[] = {
      {R"({"category":"win","moves":[{"uci":"e7e8q","dtm":3}]})", 1},
      {R"({"category":"win","moves":[{"uci":"e7e8k","dtm":3}]})", kMalformedMoves},
      {R"({"category":"win","moves":[{"uci":"e7e8)", kMalformedMoves},       // ends too soon
      {R"({"category":"win","moves":[{"uci":"e7e8q"}]})", kMalformedMoves},  // no "dtm"
      {R"({"category":"win","moves":[{"uci":"i7e8","dtm":1}]})", kMalformedMoves},
      {R"({"category":"win","moves":[{"uci": "e2e4","dtm":1}]})", 1},
      {R"({"category":"win","moves":[]})", 0},
      {R"({"category":"win","uci":"e2e4","dtm":1})", 0},  // no list: nothing before "moves"
  };
  for (const auto& [text, nMoves] : cases) {
    const CLiChess answer = CLiChess::Parse(text);
    EXPECT_EQ(answer.nMoves, nMoves) << text;
    EXPECT_EQ(answer.value, kWin) << text;
    EXPECT_EQ(answer.moves.size(), static_cast<std::size_t>(std::max(0, nMoves))) << text;
  }
}

TEST(LiChess, AMoveWithoutItsOwnKeysTakesTheNextOnes) {
  // The search runs from each "uci" key to the end of the text, as the service's clients
  // always have: a move missing "wdl" or "dtz" borrows its successor's.
  const CLiChess answer = CLiChess::Parse(
      R"({"moves":[{"uci":"a2a3","category":"draw","dtm":null},{"uci":"a2a4","wdl":-2,)"
      R"("dtm":7,"dtz":-3}]})");
  ASSERT_EQ(answer.nMoves, 2);
  EXPECT_EQ(answer.moves[0].value, kLoss);
  EXPECT_EQ(answer.moves[0].dtz, 3);
  EXPECT_EQ(answer.moves[0].dtm, kNoDtm);
  EXPECT_EQ(answer.moves[1].dtm, 7);
}

TEST(LiChess, AnEmptyPageIsUnknown) {
  EXPECT_EQ(CLiChess::Parse(""), (CLiChess{.value = kUnknown, .dtm = kNoDtm, .dtz = kNoDtz}));
}

}  // namespace
