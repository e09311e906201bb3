#include <gtest/gtest.h>

#include "app/FenProblem.h"
#include "core/ChessException.h"

namespace {

// A move count beyond what a stipulation holds is refused, never wrapped into another one.
TEST(FenProblem, MoveCountsOutsideTheStipulationsRangeAreRefused) {
  const char* const fen = "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8";
  for (int nMoves : {1, 2, TStipulation::kMaxMoves}) {
    const auto problem = DirectMateFromFen(fen, nMoves);
    EXPECT_EQ(problem->stipulation.Moves(), nMoves);
  }
  for (int nMoves : {0, -1, TStipulation::kMaxMoves + 1, 40000})
    EXPECT_THROW(DirectMateFromFen(fen, nMoves), ChessException) << nMoves;
}

}  // namespace
