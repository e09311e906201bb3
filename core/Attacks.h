#pragma once
#include "core/PieceCode.h"

// Attack tests on a bare square array. byColour is piece::kWhite or piece::kBlack.
namespace attacks {

bool IsAttacked(const PieceCode* squares, SquareIndex target, PieceCode byColour);
// kNotInCheck (-1) when no piece of byColour attacks target, the attacker's square
// when one does, kDoubleCheck (64) when two or more do.
int CheckValue(const PieceCode* squares, SquareIndex target, PieceCode byColour);
// Whether the piece standing on from attacks target (sliders need a clear path).
bool PieceAttacks(const PieceCode* squares, SquareIndex from, SquareIndex target);

}  // namespace attacks
