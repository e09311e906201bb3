#pragma once
#include <cstdint>

#include "core/Chessboard.h"
#include "core/Move.h"
#include "engine/WhiteMoveHints.h"

namespace ordering {

// Makes every legal White move of board into children (linked to board) and returns their
// count; order receives the indexes of the children in the order to search them, so that
// proofs come early: the killer first, then checks, then captures and promotions, then the
// rest, generation order within each group.
int MakeOrderedWhiteChildren(const TChessboard& board, TChessboard* children, std::uint8_t* order,
                             TMove killer);
// The same children, with the problem's hints for White's moveNumber-th move deciding first
// (see CWhiteMoveHints) and the groups above ordering each band.
int MakeHintedWhiteChildren(const TChessboard& board, TChessboard* children, std::uint8_t* order,
                            TMove killer, const CWhiteMoveHints& hints, std::uint16_t moveNumber);

// Orders Black's generated replies so that refutations come early and cheap: checks first
// (they leave White few answers, so a refutation through them is proved in a small tree),
// then captures (they take away mating material), then the reply that refuted a sibling and
// queen promotions, then the rest. Checks and captures go in ascending count of White's
// answers; otherwise generation order holds within each group.
void OrderBlackReplies(const TChessboard& board, TMove* moves, int n, TMove killer);

}  // namespace ordering
