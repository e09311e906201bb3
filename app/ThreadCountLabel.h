#pragma once
// The label that shows how many threads a solve runs and what it looks for.
#include <cstddef>
#include <string>

#include "app/SolvingRequest.h"

// What the label says the solve looks for, ahead of the count.
enum class EThreadLabelMode { CountOnly, SingleSolution, AllSolutions };

// A solve that stops at its first key says so, one that looks for all keys too; one that
// stops at a dual or at three keys shows the count only.
EThreadLabelMode ThreadLabelModeOf(ESolvingMode mode);

// "SnglSolution, 4thrd(s)", "AllSolutions, 4thrd(s)" or " 4thrd(s)". The solving mode comes
// first because its text ends in the comma that separates it from the count.
std::string ThreadCountLabel(std::size_t nThreads, EThreadLabelMode mode);
