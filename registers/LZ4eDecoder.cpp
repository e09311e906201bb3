// The LZ4e decoder. Every length and offset is checked against what is left of both buffers
// before it is used, so no input makes it read or write outside them.
#include <algorithm>
#include <cstring>

#include "registers/LZ4e.h"
#include "registers/LittleEndian.h"

namespace {

constexpr unsigned char kMagic[4] = {'L', 'Z', '4', 'e'};
// No sequence yields more than 255 bytes per byte it takes (a run byte of 255 adds 255 to a
// length), so a header claiming more is refused before its output is allocated.
constexpr std::size_t kMaxExpansion = 255;

[[noreturn]] void Fail() {
  throw CLZ4eError();
}

class CSequenceDecoder {
 public:
  CSequenceDecoder(std::span<const unsigned char> in, std::span<unsigned char> out)
      : ip(in.data()),
        inEnd(in.data() + in.size()),
        outStart(out.data()),
        op(out.data()),
        outEnd(out.data() + out.size()) {}

  void Run();

 private:
  unsigned char Next() {
    if (ip == inEnd) Fail();
    return *ip++;
  }
  // A length continued as 255, 255, ..., remainder.
  std::size_t NextRun() {
    std::size_t length = 0;
    unsigned char byte;
    do {
      byte = Next();
      length += byte;
    } while (byte == 255);
    return length;
  }
  void CopyLiterals(std::size_t n);
  void CopyMatch(std::size_t distance, std::size_t n);

  const unsigned char* ip;
  const unsigned char* const inEnd;
  unsigned char* const outStart;
  unsigned char* op;
  unsigned char* const outEnd;
};

void CSequenceDecoder::Run() {
  for (;;) {
    const unsigned token = Next();
    std::size_t nLiterals = token >> 4;
    if (nLiterals == 15) nLiterals += NextRun();
    CopyLiterals(nLiterals);
    if (ip == inEnd) {
      // The last sequence: literals only, and it must complete the output.
      if ((token & 15) != 0 || op != outEnd) Fail();
      return;
    }
    std::size_t nMatch = (token & 15) + 4;
    bool bLongOffset = false;
    if ((token & 15) == 15) {
      const unsigned extra = Next();
      bLongOffset = (extra & 0x80) != 0;
      nMatch = 19 + (extra & 0x7F);
      if ((extra & 0x7F) == 127) nMatch += NextRun();
    }
    const std::size_t nOffsetBytes = bLongOffset ? 3 : 2;
    if (static_cast<std::size_t>(inEnd - ip) < nOffsetBytes) Fail();
    std::size_t distance = ip[0] | std::size_t{ip[1]} << 8;
    if (bLongOffset) distance |= std::size_t{ip[2]} << 16;
    ip += nOffsetBytes;
    CopyMatch(distance, nMatch);
  }
}

// Short copies far enough from both buffers' ends move a fixed 16 or 32 bytes, which compiles
// to a few vector moves; the bytes past the copy's end are overwritten by the output after it.

void CSequenceDecoder::CopyLiterals(std::size_t n) {
  const auto nIn = static_cast<std::size_t>(inEnd - ip),
             nOut = static_cast<std::size_t>(outEnd - op);
  if (n > nIn || n > nOut) Fail();
  if (n <= 16 && nIn >= 16 && nOut >= 16) {
    std::memcpy(op, ip, 16);
  } else if (n > 0) {
    std::memcpy(op, ip, n);
  }
  ip += n;
  op += n;
}

// A match may overlap its own output, repeating its last distance bytes. A chunk copied from a
// whole number of periods back never overlaps its source, and each chunk doubles what is
// there to copy from, so a long run takes few copies.
void CSequenceDecoder::CopyMatch(std::size_t distance, std::size_t n) {
  const auto nOut = static_cast<std::size_t>(outEnd - op);
  if (distance == 0 || distance > static_cast<std::size_t>(op - outStart) || n > nOut) Fail();
  const unsigned char* source = op - distance;
  if (distance >= 16 && n <= 32 && nOut >= 32) {
    std::memcpy(op, source, 16);
    std::memcpy(op + 16, source + 16, 16);
  } else if (distance >= n) {
    std::memcpy(op, source, n);
  } else {
    for (std::size_t done = 0; done < n;) {
      const std::size_t back = distance * ((distance + done) / distance);
      const std::size_t chunk = std::min(back, n - done);
      std::memcpy(op + done, op + done - back, chunk);
      done += chunk;
    }
  }
  op += n;
}

}  // namespace

void DecompressLZ4eSequences(std::span<const unsigned char> sequences,
                             std::span<unsigned char> output) {
  CSequenceDecoder(sequences, output).Run();
}

std::vector<unsigned char> DecompressLZ4e(std::span<const unsigned char> block) {
  if (block.size() < kLZ4eHeaderSize || std::memcmp(block.data(), kMagic, 4) != 0) Fail();
  const std::uint32_t nDecompressed = ReadLittleEndian<std::uint32_t>(block.data() + 4);
  if (ReadLittleEndian<std::uint32_t>(block.data() + 8) != block.size() ||
      ReadLittleEndian<std::uint32_t>(block.data() + 12) != 0)
    Fail();
  const auto sequences = block.subspan(kLZ4eHeaderSize);
  if (nDecompressed > kMaxExpansion * sequences.size()) Fail();
  std::vector<unsigned char> output(nDecompressed);
  DecompressLZ4eSequences(sequences, output);
  return output;
}
