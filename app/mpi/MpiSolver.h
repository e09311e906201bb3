#pragma once
// A problem's first moves shared over the ranks of an MPI job, on one machine or many. Every
// rank runs the same program on the same problems. Rank 0, the leader, hands the first moves
// out one at a time as the ranks ask for work, itself among them; each rank solves the
// problem restricted to its move with its own threads and register, and reports whether the
// move is a key. The leader gathers the reports into one pass, as one machine would report it.
#include <memory>

#include "app/SolvingRequest.h"
#include "app/SolvingSession.h"

class CMpiSolver {
 public:
  // Joins the job; throws std::runtime_error when this program was built without MPI.
  CMpiSolver();
  ~CMpiSolver();  // leaves the job
  CMpiSolver(const CMpiSolver&) = delete;
  CMpiSolver& operator=(const CMpiSolver&) = delete;

  bool IsLeader() const { return nRank == 0; }
  int Ranks() const { return nRanks; }

  // Every rank calls it for the same problems in the same order, with its own session. The
  // leader gets the pass of the position as given, with the keys of all ranks; the others get
  // null once the leader needs no further move of theirs.
  std::unique_ptr<SolvingRequest> Solve(CSolvingSession& session, const TSolveOrder& order);

 private:
  int nRank = 0;
  int nRanks = 1;
};
