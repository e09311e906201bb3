#pragma once
#include <cstdint>
#include <span>
#include <string_view>

// The catalogue of special heuristics: one bit of the 32-bit heuristic mask per
// named restriction. Bits without a name (0x100, 0x10000000, 0x20000000) exist in
// the mask but cannot be asked for by name.
namespace heuristics {

struct THeuristicName {
  std::uint32_t bit;
  std::string_view name;
};

// Every named heuristic, in bit order.
std::span<const THeuristicName> Catalogue();

// The name of a mask holding exactly one named bit; "..." for an unnamed bit,
// for an empty mask and for a mask of several bits.
std::string_view NameOfBit(std::uint32_t mask);
// The bit index (0..31) of the heuristic called name (case ignored), or -1.
int IndexOfName(std::string_view name);

}  // namespace heuristics
