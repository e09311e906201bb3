#pragma once
#include <cstddef>
#include <string>

// A position type names the material of a position: one piece letter per piece on the
// board (upper case white, lower case black), e.g. "KRk". Precalculated data is filed by
// position type, and the types one capture away from a type are found with these edits.
// Letters are compared exactly, so 'R' and 'r' are different pieces.

// The type without the first occurrence of letter; throws std::runtime_error
// "Error in RemoveFromPosType: pos.type <type> does not contain <letter>" when it is absent.
std::string RemoveFromPosType(const std::string& posType, char letter);

// The position in a of the letter whose removal leaves b, the lowest one when a run of equal
// letters qualifies, or std::string::npos when no removal does. Throws std::runtime_error
// "Error in GetIndexToRemoveToObtainOtherPosType: <a> and <b> passed to function" unless a
// is exactly one letter longer than b.
std::size_t GetIndexToRemoveToObtainOtherPosType(const std::string& a, const std::string& b);
