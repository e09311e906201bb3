#pragma once
#include <cstddef>
#include <cstdint>

// Fixed-width little-endian fields of the codec's blocks and files, whatever the machine's
// byte order.
template <typename T>
T ReadLittleEndian(const unsigned char* p) {
  T value = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) value |= static_cast<T>(T{p[i]} << (8 * i));
  return value;
}

template <typename T>
void WriteLittleEndian(unsigned char* p, T value) {
  for (std::size_t i = 0; i < sizeof(T); ++i) p[i] = static_cast<unsigned char>(value >> (8 * i));
}
