#pragma once
// Real solves for the tests of their control: positions, keys as texts, events between
// threads.
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include "TestData.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "engine/MateSolver.h"

namespace solvecontrol {

struct TProblemPosition {
  std::string fen;
  int nMoves;
};

inline TProblemPosition Row(const std::string& file, const std::string& id) {
  for (const auto& row : testdata::ReadTsv(file))
    if (row.at("id") == id) return {row.at("fen"), std::stoi(row.at("n"))};
  throw std::runtime_error("no reference row " + id);
}

inline TChessboard Position(const std::string& fenText) {
  TChessboard board;
  ClearChessboard(board);
  EXPECT_TRUE(fen::ReadFen(board, fenText)) << fenText;
  return board;
}

inline std::vector<std::string> Texts(const TChessboard& start, const std::vector<TMove>& moves) {
  std::vector<std::string> texts;
  for (TMove move : moves) texts.push_back(notation::MoveToText(start, move));
  return texts;
}

// The keys of a solve in the order it reports them.
inline std::vector<std::string> Keys(const TProblemPosition& problem, int nThreads,
                                     int nMaxSolutions) {
  const TChessboard start = Position(problem.fen);
  TChessboardRegister<bool> reg(1'000'000);
  CMateSolver solver(start, problem.nMoves,
                     {.nThreads = nThreads, .nMaxSolutions = nMaxSolutions, .pRegister = &reg});
  return Texts(start, solver.Run().keys);
}

// A flag one thread raises and another waits for.
class CEvent {
 public:
  void Set() {
    {
      const std::lock_guard lock(mutex);
      bSet = true;
    }
    raised.notify_all();
  }
  void Wait() {
    std::unique_lock lock(mutex);
    raised.wait(lock, [this] { return bSet; });
  }

 private:
  std::mutex mutex;
  std::condition_variable raised;
  bool bSet = false;
};

}  // namespace solvecontrol
