#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/ChessException.h"

// LZ4e, the block codec of precalculated data and register files: LZ4's sequences (a token
// of literal and match lengths, literals, a 16-bit match offset) with matches reaching back
// up to 16 MiB through a flagged third offset byte, and an encoder that searches long hash
// chains for the longest match.
//
// A block: "LZ4e", the uncompressed size, the block's total size with this 16-byte header,
// and 0 (unsigned 32 bits each, little-endian), then the sequences. A sequence:
//   token        high nibble: literal count L (15: more follows); low nibble: match length
//                M - 4, 15 when M is 19 or more
//   [L - 15]     when L >= 15: one 255 per whole 255, then the remainder byte (0..254)
//   L literals
//   [extra]      when M >= 19: bit 7 set for an offset of 65536 or more; bits 0-6 the lesser
//                of M - 19 and 127, and when 127, M - 146 follows as a run like L's
//   offset       distance back in the output, 16 bits little-endian, and a third byte with
//                bits 16-23 when the extra byte's bit 7 is set
// The last sequence carries literals only and ends the block. Since only matches of 19 bytes
// or more carry the extra byte, only they can reach 64 KiB and beyond.

inline constexpr std::size_t kLZ4eHeaderSize = 16;
// How far back a match may reach; also the block size of packed data files.
inline constexpr std::size_t kLZ4eWindow = std::size_t{1} << 24;
// Larger inputs do not fit the header's 32-bit sizes.
inline constexpr std::uint64_t kLZ4eMaxInput = 0xFFFFFFFFull;

// Any decoding failure: a block or sequences that are not what the encoder writes, where
// following them would read or write outside the buffers or give a different size.
class CLZ4eError : public ChessException {
 public:
  CLZ4eError() : ChessException("An error occurred during LZ4 decompression.") {}
};

// Compresses size bytes into block (header and sequences; the vector is replaced). Returns
// false, with block empty, when size exceeds kLZ4eMaxInput or memory runs out.
bool CompressLZ4e(const unsigned char* input, std::size_t size, std::vector<unsigned char>& block);

// The bytes a block compressed from them holds; throws CLZ4eError on any corrupt block. The
// block must be exactly the header's total size long.
std::vector<unsigned char> DecompressLZ4e(std::span<const unsigned char> block);

// Decodes headerless sequences (a packed data file's block) into exactly output.size() bytes,
// consuming exactly all of sequences; throws CLZ4eError otherwise. Never reads or writes
// outside the two spans, whatever the input.
void DecompressLZ4eSequences(std::span<const unsigned char> sequences,
                             std::span<unsigned char> output);
