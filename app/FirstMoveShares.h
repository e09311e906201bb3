#pragma once
// The account one process keeps of a problem's first moves while several processes (the
// ranks of an MPI job) solve them, each a move at a time: which move goes out next, what
// every settled move proved, and when enough is known to report the keys.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"
#include "engine/MateResult.h"

// What the solve of one first move found.
struct TShareResult {
  bool bKey = false;  // every Black reply is mated in time
  std::uint64_t nPositions = 0;
  bool bStopped = false;    // the solve was told to stop before it finished
  std::string sError = {};  // what made the solve fail, empty when it did not
};

struct TSharesOutcome {
  MateResult result = mate::kNoMate;  // kMate when a key was found
  std::vector<TMove> keys = {};       // in the order of the first moves, at most those wanted
  std::uint64_t nPositions = 0;       // of every move settled
  bool bStopped = false;              // a move was stopped before its end
  std::string sError = {};            // the first failure
};

class CFirstMoveShares {
 public:
  // The legal first moves of start (White to move) in the order the moves are generated.
  // nKeysWanted: how many keys end the solve; 0 for all.
  CFirstMoveShares(const TChessboard& start, int nKeysWanted);

  int Size() const { return static_cast<int>(moves.size()); }
  TMove Move(int index) const { return moves[index]; }
  // The next move to hand out, or nothing when no further move is needed: all are out,
  // enough keys come before the rest, or a solve stopped or failed.
  std::optional<int> Take();
  void Settle(int index, const TShareResult& result);
  // No move is out, and no further one is needed.
  bool Finished() const;
  // The keys are the first ones in the order of the moves, whichever process settled them.
  TSharesOutcome Outcome() const;

 private:
  // The last move whose result is needed: the one of the last key wanted once that many
  // are known, else the last move.
  int LastNeeded() const;

  std::vector<TMove> moves;
  std::vector<std::optional<TShareResult>> results;
  const int nKeysWanted;
  int nNext = 0;
  int nOut = 0;             // handed out and not settled
  bool bAbandoned = false;  // a move stopped or failed: hand out no more
};
