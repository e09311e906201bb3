// The LZ4e encoder: at each position the longest match found on the hash chain of the
// position's 4-byte word, within 16 MiB, or the byte becomes a pending literal.
#include <algorithm>
#include <bit>
#include <cstring>
#include <new>

#include "registers/LZ4e.h"
#include "registers/LZ4eHashChains.h"
#include "registers/LittleEndian.h"

namespace {

constexpr std::size_t kMinMatch = 4;
// Matches of this length or more carry the extra byte, the only place for the long-offset flag.
constexpr std::size_t kLongMatch = 19;
constexpr std::size_t kShortOffsetEnd = 65536;
// A match this near its source is cut to the distance, so that it never overlaps its source.
constexpr std::size_t kNearDistance = 16;

// Equal bytes at a and b, at most limit of them.
std::size_t MatchLength(const unsigned char* a, const unsigned char* b, std::size_t limit) {
  std::size_t n = 0;
  while (n + 8 <= limit) {
    std::uint64_t x, y;
    std::memcpy(&x, a + n, 8);
    std::memcpy(&y, b + n, 8);
    if (x != y) {
      // The first differing byte is the lowest in memory: the low end on a little-endian machine.
      const int nEqualBits = std::endian::native == std::endian::little ? std::countr_zero(x ^ y)
                                                                        : std::countl_zero(x ^ y);
      return n + static_cast<std::size_t>(nEqualBits / 8);
    }
    n += 8;
  }
  while (n < limit && a[n] == b[n]) ++n;
  return n;
}

struct TMatch {
  std::size_t length = 0, distance = 0;
};

class CEncoder {
 public:
  // The output has room for input that does not compress at all, where each 255 literals
  // cost at most one length byte.
  CEncoder(const unsigned char* in, std::size_t n)
      : input(in), size(n), chains(n), output(kLZ4eHeaderSize + n + n / 255 + 16) {}

  std::vector<unsigned char> Run();

 private:
  TMatch FindMatch(std::size_t p) const;
  void EmitSequence(std::size_t nLiterals, const TMatch& match);
  void EmitRun(std::size_t length);
  void Put(unsigned char byte) { output[nOut++] = byte; }

  const unsigned char* input;
  std::size_t size;
  CLZ4eHashChains chains;
  std::vector<unsigned char> output;
  std::size_t nOut = kLZ4eHeaderSize;
  std::size_t anchor = 0;  // the first pending literal
};

std::vector<unsigned char> CEncoder::Run() {
  std::size_t nInserted = 0, lastWindowCut = 0;
  std::size_t p = 0;
  while (p + kMinMatch <= size) {
    for (; nInserted < p; ++nInserted) {
      chains.Insert(static_cast<std::uint32_t>(nInserted),
                    ReadLittleEndian<std::uint32_t>(input + nInserted));
    }
    if (p - lastWindowCut >= kLZ4eWindow) {
      chains.DropBefore(static_cast<std::uint32_t>(p - kLZ4eWindow + 1));
      lastWindowCut = p;
    }
    if (p + kMinMatch < size) chains.Prefetch(ReadLittleEndian<std::uint32_t>(input + p + 1));
    const TMatch match = FindMatch(p);
    if (match.length == 0) {
      ++p;
      continue;
    }
    EmitSequence(p - anchor, match);
    p += match.length;
    anchor = p;
  }
  EmitSequence(size - anchor, TMatch{});

  unsigned char* header = output.data();
  std::memcpy(header, "LZ4e", 4);
  WriteLittleEndian(header + 4, static_cast<std::uint32_t>(size));
  WriteLittleEndian(header + 8, static_cast<std::uint32_t>(nOut));
  WriteLittleEndian(header + 12, std::uint32_t{0});
  output.resize(nOut);
  output.shrink_to_fit();
  return std::move(output);
}

// Newest candidates first, so a tie keeps the nearer source. A candidate can only win when it
// agrees with p at the current best length, which is checked before measuring it.
TMatch CEncoder::FindMatch(std::size_t p) const {
  const std::uint32_t word = ReadLittleEndian<std::uint32_t>(input + p);
  const std::size_t nRemaining = size - p;
  TMatch best;
  chains.ForEachNewestFirst(word, [&](std::uint32_t q, std::uint32_t candidateWord) {
    if (candidateWord != word) return true;
    const std::size_t distance = p - q;
    if (distance >= kLZ4eWindow) return false;
    if (distance < kMinMatch) return true;
    const std::size_t limit =
        distance <= kNearDistance ? std::min(nRemaining, distance) : nRemaining;
    if (limit <= best.length || input[q + best.length] != input[p + best.length]) return true;
    const std::size_t length = MatchLength(input + p, input + q, limit);
    if (length > best.length && (distance < kShortOffsetEnd || length >= kLongMatch)) {
      best = {length, distance};
    }
    return best.length < nRemaining;
  });
  return best;
}

void CEncoder::EmitSequence(std::size_t nLiterals, const TMatch& match) {
  const std::size_t lengthCode = match.length >= kLongMatch ? 15 : match.length - kMinMatch;
  Put(static_cast<unsigned char>(std::min<std::size_t>(nLiterals, 15) << 4 |
                                 (match.length == 0 ? 0 : lengthCode)));
  if (nLiterals >= 15) EmitRun(nLiterals - 15);
  if (nLiterals > 0) std::memcpy(output.data() + nOut, input + anchor, nLiterals);
  nOut += nLiterals;
  if (match.length == 0) return;

  const bool bLongOffset = match.distance >= kShortOffsetEnd;
  if (match.length >= kLongMatch) {
    const std::size_t rest = match.length - kLongMatch;
    Put(static_cast<unsigned char>((bLongOffset ? 0x80 : 0) | std::min<std::size_t>(rest, 127)));
    if (rest >= 127) EmitRun(rest - 127);
  }
  Put(static_cast<unsigned char>(match.distance));
  Put(static_cast<unsigned char>(match.distance >> 8));
  if (bLongOffset) Put(static_cast<unsigned char>(match.distance >> 16));
}

void CEncoder::EmitRun(std::size_t length) {
  for (; length >= 255; length -= 255) Put(255);
  Put(static_cast<unsigned char>(length));
}

}  // namespace

bool CompressLZ4e(const unsigned char* input, std::size_t size, std::vector<unsigned char>& block) {
  block.clear();
  if (size > kLZ4eMaxInput) return false;
  try {
    block = CEncoder(input, size).Run();
  } catch (const std::bad_alloc&) {
    block = {};
    return false;
  }
  return true;
}
