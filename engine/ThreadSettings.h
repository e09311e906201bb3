#pragma once
// How the engine sets up each of its solving threads.
#include <cstddef>
#include <cstdint>

// The stack of a solving thread: 2048 bytes per unit of the factor, at least 1 MiB.
std::size_t SolvingThreadStackSize(std::uint16_t nStackFactor);
