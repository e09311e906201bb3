#pragma once
// The order and the time of the passes of a solve.
//
// Without times every pass runs once, to its end, in order: the passes under heuristics,
// then the pass without them. With times the passes take turns in rounds: in each round every
// open pass under heuristics has the round's time, and the pass without heuristics as much as
// all of them together, so that the exact search keeps at least half of the solve; the time
// doubles from round to round. A pass that ends within its time has given its whole answer
// and is closed; the pass without heuristics closes them all. The last open pass runs to its
// end. A pass run again finds what its earlier turns proved in the register.
#include <chrono>
#include <optional>
#include <vector>

class CPassSchedule {
 public:
  struct TTurn {
    int nIndex = 0;  // a pass under heuristics, or HeuristicPasses() for the pass without
    std::chrono::milliseconds time{0};  // 0: to its end
  };

  CPassSchedule(int nHeuristicPasses, bool bPass2, int nFirstPassMs);

  int HeuristicPasses() const { return nHeuristic; }
  // The next turn; nothing once every pass is closed.
  std::optional<TTurn> Next();
  // How the turn of pass nIndex ended: bCompleted when it was not cut short by its time.
  void Ended(int nIndex, bool bCompleted);
  // Closes the passes under heuristics: the solve goes on without them.
  void CloseHeuristicPasses();

 private:
  int OpenHeuristicPasses() const;
  int OpenPasses() const;

  const int nHeuristic;
  const int nFirstMs;
  std::vector<bool> open;  // the passes under heuristics, then the pass without
  int nCursor = 0;         // where the round goes on
  std::int64_t nRoundMs;
};
