#pragma once
// Inputs for the codec tests: reproducible bytes of chosen structure.
#include <cstdint>
#include <random>
#include <vector>

namespace codectest {

using TBytes = std::vector<unsigned char>;

// Bytes without structure; a given seed gives the same bytes everywhere.
inline TBytes RandomBytes(std::size_t n, std::uint32_t seed) {
  std::mt19937 generator(seed);
  TBytes bytes(n);
  for (auto& byte : bytes) byte = static_cast<unsigned char>(generator() >> 24);
  return bytes;
}

inline TBytes Concatenate(std::initializer_list<TBytes> parts) {
  TBytes all;
  for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

}  // namespace codectest
