#pragma once
// Whether the search would try White's first moves in the order a problem expects: the
// expected moves must be the first ones tried, in the order given. It checks the sort
// indications of a problem without solving it.
#include <optional>
#include <string>

#include "problems/Problem.h"

// The first expected move that is not in its place (or is no legal move at all), in long
// notation; nothing when the order holds or the problem expects none. bUseMainVariant is the
// setting of the same name.
std::optional<std::string> MisplacedExpectedMove(const TProblem& problem, bool bUseMainVariant);
