#pragma once
#include <cstdint>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"
#include "engine/PatternRules.h"

// The restrictions of a heuristic set as predicates on the nodes of the search. Each answers
// with the bit of the first restriction that a position breaks, 0 when it keeps them all. A
// broken restriction never proves anything: the search makes the node doubtful (a Black
// reply, a White node) or leaves the White move out and counts the node doubtful should it
// fail, so that a mate found under any set is a mate, and only the lack of one is in doubt.
struct THeuristicContext {
  THeuristicSet set;
  // The start position: where Black's pieces stood and how many of each kind it had.
  PieceCode rootSquares[64] = {};
  std::uint8_t nRootPieces[10] = {};
  TPatternRoot pattern;

  THeuristicContext() = default;
  THeuristicContext(const THeuristicSet& heuristics, const TChessboard& root);
};

namespace heuristicrules {

struct TBreak {
  std::uint32_t bit = 0;
  bool bMateExcuses = true;  // a reply after which White mates at once breaks nothing
};

// after: the position Black's reply made (its parent is the position before the reply).
TBreak BlackReplyBreaks(const TChessboard& after, const THeuristicContext& context);
// after: the position White's move made, below the root.
std::uint32_t WhiteMoveBreaks(const TChessboard& after, const THeuristicContext& context);
// board: White to move, checked once White has no mate in one.
std::uint32_t WhiteNodeBreaks(const TChessboard& board, const THeuristicContext& context);

// Whether White, given the move again in after (Black to move), would mate at once.
bool ThreatensMateInOne(const TChessboard& after);
// King steps between two squares.
int Distance(SquareIndex a, SquareIndex b);

}  // namespace heuristicrules
