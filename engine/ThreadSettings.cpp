#include "engine/ThreadSettings.h"

#include <algorithm>

std::size_t SolvingThreadStackSize(std::uint16_t nStackFactor) {
  return std::max<std::size_t>(std::size_t{nStackFactor} * 2048, std::size_t{1} << 20);
}
