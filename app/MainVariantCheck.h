#pragma once
// The check a problem asks for with GUICHECKBESTDEFENCE or GUICHECK (level n): played out as a
// user plays it on the board, its main variant must hold for n Black moves. Black's best
// defence must be the variant's Black move; under GUICHECK every later White move of the
// variant must also be one that an auxiliary mate search finds in the moves left.
#include <optional>
#include <string>

#include "problems/Problem.h"

// The failure text ("Error in best defence:\n\nexpected Kc8-b8\nfound Kc8-d8" or "Error in
// auxMate:\n\nexpected ...\nfound ..."), nothing when the variant holds or the problem asks
// for no check. The found side of auxMate lists every mating move, "No solution" when none.
std::optional<std::string> MainVariantCheckFailure(const TProblem& problem);
