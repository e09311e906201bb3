#pragma once
#include <cstdint>
#include <functional>

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
  int nRootBlackMoves = 0;  // Black's moves there, counted only for SH_SEASNAKE
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
// Whether White, given the move again in after (Black to move), mates within nMoves moves.
using TThreatTest = std::function<bool(const TChessboard& after, int nMoves)>;

// after: the position White's move made, below the root. threatens answers for the modes of
// SH_FINDFORCEDMATE that want a threat longer than mate in one (none: no such threat).
std::uint32_t WhiteMoveBreaks(const TChessboard& after, const THeuristicContext& context,
                              const TThreatTest& threatens = {});
// board: White to move, checked once White has no mate in one.
std::uint32_t WhiteNodeBreaks(const TChessboard& board, const THeuristicContext& context);

// Whether White, given the move again in after (Black to move), would mate at once.
bool ThreatensMateInOne(const TChessboard& after);
// The number of White's move that made board or that Black's reply in board answered (1:
// the key); for a White node, the number of the move it is about to make less one.
int WhiteMoveNumber(const TChessboard& board);
// King steps between two squares.
int Distance(SquareIndex a, SquareIndex b);

}  // namespace heuristicrules
