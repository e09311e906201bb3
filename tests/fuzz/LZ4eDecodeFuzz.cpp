// The LZ4e decoder on any bytes: a whole block, and the same bytes past the header as bare
// sequences for the output size the header states, so that changed header fields do not
// keep the fuzzer away from the sequences. The sanitizers report any access outside the
// buffers; a block that decodes both ways must decode to the same bytes.
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <vector>

#include "registers/LZ4e.h"
#include "registers/LittleEndian.h"

namespace {

// Larger stated sizes would make each run allocate more than it tests.
constexpr std::uint32_t kMaxOutput = 1u << 18;

std::optional<std::vector<unsigned char>> DecodeSequences(const std::uint8_t* data,
                                                          std::size_t size) {
  if (size < kLZ4eHeaderSize) return std::nullopt;
  const auto nOutput = ReadLittleEndian<std::uint32_t>(data + 4);
  if (nOutput > kMaxOutput) return std::nullopt;
  std::vector<unsigned char> output(nOutput);
  try {
    DecompressLZ4eSequences({data + kLZ4eHeaderSize, size - kLZ4eHeaderSize}, output);
  } catch (const CLZ4eError&) {
    return std::nullopt;
  }
  return output;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto sequencesOutput = DecodeSequences(data, size);
  try {
    const auto blockOutput = DecompressLZ4e({data, size});
    if (sequencesOutput && *sequencesOutput != blockOutput) std::abort();
  } catch (const CLZ4eError&) {
  }
  return 0;
}
