#pragma once
#include "core/Chessboard.h"
#include "registers/TableProbe.h"

// SH_REDUCTIONTOGLOBREGPOS: the tables judge a position too big for them through smaller
// ones. Taking Black's men off the board (the king stays) rarely makes White's task harder
// in a miniature without a stalemate motive: the men can only cover their king, block
// White's lines and capture. So when a reduced position that the tables hold has no mate
// within the moves left, the full position is taken to have none either. The men beside
// their king stay, as they may be the self-blocks of the mate; what else this misses is why
// the answer is a doubt and never "no mate".
namespace tablereduction {

// board: White to move below the root. Whether some reduction of it (one or more black men
// away from their king taken off) is held by the tables and has no mate within the moves left.
bool ReducedHasNoMate(const TChessboard& board, CTableProbe& tables);
// Whether some reduction of board is small enough for the tables: where the rule can apply.
bool MayReduce(const TChessboard& board);

}  // namespace tablereduction
