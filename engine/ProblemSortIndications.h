#pragma once
#include "problems/Problem.h"
#include "problems/SortIndication.h"

// The sort indications a solve of a problem hands to the search.
namespace sortsource {

// The problem's own indications; when the problem's flag or bUseMainVariant (the setting)
// asks for it, the White moves of its main variant follow them under their move numbers.
// For the mirrored pass every square is mirrored with the position.
TSortIndications ForSolve(const TProblem& problem, bool bUseMainVariant, bool bMirrored);

// White's moves of the main variant (the first line of the variants block), read from the
// start position as far as they are legal: the n-th becomes an element for move n that
// names its piece, squares and promotion.
TSortIndications MainVariant(const TProblem& problem);

}  // namespace sortsource
