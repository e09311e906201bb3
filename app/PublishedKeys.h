#pragma once
// The keys that reference tables publish for direct mates, checked against the keys a search
// found by the same rule as a problem's recorded answer.
#include <string_view>
#include <vector>

#include "core/Move.h"

// White's moves in the long notation, separated by commas or blanks: "Qh5-a5",
// "Ka1-b2,Rb1-e1", "0-0-0". Throws ChessException for a text that is not a move.
std::vector<TMove> ReadPublishedKeys(std::string_view field);

// Whether a search for every key found exactly the published keys, in any order.
bool MatchesPublishedKeys(const std::vector<TMove>& found, const std::vector<TMove>& published);
