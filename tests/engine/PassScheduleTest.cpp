#include <gtest/gtest.h>

#include <string>

#include "engine/PassSchedule.h"

namespace {

// The turns a schedule gives, as "index:ms" ("2:-" for a turn to the end), where each turn
// ends as completed says (indexes that complete; every other turn runs out of time).
std::string Turns(CPassSchedule schedule, const std::vector<int>& completing, int nMaxTurns,
                  int nCloseAfter = -1) {
  std::string text;
  for (int nTurn = 0; nTurn < nMaxTurns; ++nTurn) {
    const auto turn = schedule.Next();
    if (!turn) break;
    text += (text.empty() ? "" : " ") + std::to_string(turn->nIndex) + ":" +
            (turn->time.count() == 0 ? "-" : std::to_string(turn->time.count()));
    const bool bCompleted =
        turn->time.count() == 0 ||
        std::find(completing.begin(), completing.end(), turn->nIndex) != completing.end();
    schedule.Ended(turn->nIndex, bCompleted);
    if (nTurn == nCloseAfter) schedule.CloseHeuristicPasses();
  }
  return text;
}

TEST(PassSchedule, TurnsAndTimes) {
  const struct {
    const char* name;
    int nHeuristic;
    bool bPass2;
    int nFirstMs;
    std::vector<int> completing;
    int nCloseAfter;
    const char* turns;
  } cases[] = {
      {"no times: each pass once, in order", 2, true, 0, {}, -1, "0:- 1:- 2:-"},
      {"no heuristics: the exact pass alone", 0, true, 100, {}, -1, "0:-"},
      {"rounds double; the exact pass has as much as the others together",
       2,
       true,
       100,
       {},
       -1,
       "0:100 1:100 2:200 0:200 1:200 2:400 0:400 1:400"},
      {"a pass ending in time is closed",
       2,
       true,
       100,
       {1},
       -1,
       "0:100 1:100 2:100 0:200 2:200 0:400 2:400 0:800"},
      {"the last open pass runs to its end", 2, true, 100, {0, 1}, -1, "0:100 1:100 2:-"},
      {"the exact pass ending in time ends the solve", 2, true, 100, {2}, -1, "0:100 1:100 2:200"},
      {"without the exact pass the heuristic passes go round",
       2,
       false,
       100,
       {},
       -1,
       "0:100 1:100 0:200 1:200 0:400 1:400 0:800 1:800"},
      {"closed heuristic passes leave the exact pass", 2, true, 100, {}, 0, "0:100 2:-"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(
        Turns(CPassSchedule(c.nHeuristic, c.bPass2, c.nFirstMs), c.completing, 8, c.nCloseAfter),
        c.turns)
        << c.name;
}

}  // namespace
