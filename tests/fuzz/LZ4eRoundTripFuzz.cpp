// Compressing then decompressing gives the input back. When the first byte's low three bits
// are set the input is repeated after 70000 bytes of noise, so that its second copy is found
// only by matches reaching beyond 64 KiB; such runs cost ten times more, hence only one in 8.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "registers/LZ4e.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<unsigned char> input(data, data + size);
  if (size > 0 && (data[0] & 7) == 7) {
    std::uint32_t noise = static_cast<std::uint32_t>(size);
    for (int i = 0; i < 70000; ++i) {
      noise = noise * 1664525u + 1013904223u;
      input.push_back(static_cast<unsigned char>(noise >> 24));
    }
    input.insert(input.end(), data, data + size);
  }
  std::vector<unsigned char> block;
  if (!CompressLZ4e(input.data(), input.size(), block)) std::abort();
  if (DecompressLZ4e(block) != input) std::abort();
  return 0;
}
