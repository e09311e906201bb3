#include "registers/PositionType.h"

#include <stdexcept>

std::string RemoveFromPosType(const std::string& posType, char letter) {
  const std::size_t at = posType.find(letter);
  if (at == std::string::npos) {
    throw std::runtime_error("Error in RemoveFromPosType: pos.type " + posType +
                             " does not contain " + letter);
  }
  std::string rest = posType;
  rest.erase(at, 1);
  return rest;
}

std::size_t GetIndexToRemoveToObtainOtherPosType(const std::string& a, const std::string& b) {
  if (a.size() != b.size() + 1) {
    throw std::runtime_error("Error in GetIndexToRemoveToObtainOtherPosType: " + a + " and " + b +
                             " passed to function");
  }
  // Only a letter at or before the first difference can be the removed one, and the rest of a
  // must then equal the rest of b.
  std::size_t at = 0;
  while (at < b.size() && a[at] == b[at]) ++at;
  if (a.compare(at + 1, std::string::npos, b, at) != 0) return std::string::npos;
  while (at > 0 && a[at - 1] == a[at]) --at;
  return at;
}
