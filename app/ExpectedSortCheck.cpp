#include "app/ExpectedSortCheck.h"

#include <vector>

#include "core/Notation.h"
#include "engine/MoveOrdering.h"
#include "engine/ProblemSortIndications.h"
#include "engine/WhiteMoveHints.h"

std::optional<std::string> MisplacedExpectedMove(const TProblem& problem, bool bUseMainVariant) {
  const std::vector<TMove>& expected = problem.expectedSortedWhiteMoves;
  if (expected.empty()) return std::nullopt;
  const TChessboard& board = problem.start;
  const CWhiteMoveHints hints(sortsource::ForSolve(problem, bUseMainVariant, false));
  std::vector<TChessboard> children(kMoveBufferSize);
  std::vector<TMoveIndex> order(kMoveBufferSize);
  // No killer move at the root: a move from a1 to a1 matches nothing.
  const TMove noKiller = TMove::FromCode(0);
  const std::uint16_t moveNumber = hints.IsEmpty() ? 0 : hints.MoveNumberAt(board);
  const int n =
      moveNumber == 0
          ? ordering::MakeOrderedWhiteChildren(board, children.data(), order.data(), noKiller)
          : ordering::MakeHintedWhiteChildren(board, children.data(), order.data(), noKiller, hints,
                                              moveNumber);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const bool bInPlace =
        static_cast<int>(i) < n && children[order[i]].lastMove.SameMove(expected[i]);
    if (!bInPlace) return notation::MoveToText(board, expected[i]);
  }
  return std::nullopt;
}
