#pragma once
#include <optional>

#include "registers/TableLinks.h"
#include "registers/TablePlacement.h"

// A pawn's double step next to an enemy pawn gives the enemy an en passant capture that the
// table's positions (which hold no en passant right) do not have. The generator treats such
// steps apart; these give what the capture is worth. p is the position right after the
// double step that ended on `to`.
namespace tableep {

// Black to move after White's double step: the most that Black's legal en passant captures
// leave White (tablevalue::kNoMate when one of them escapes), nothing without a legal one.
std::optional<std::uint8_t> BlackCaptureValue(const TTablePlacement& p, SquareIndex to,
                                              const CTableLinks& links);
// White to move after Black's double step: one more than the least value of the positions
// White's legal en passant captures lead to (kNoMate when none leads to mate), nothing
// without a legal capture.
std::optional<std::uint8_t> WhiteCaptureValue(const TTablePlacement& p, SquareIndex to,
                                              const CTableLinks& links);

}  // namespace tableep
