#include "core/AttackerSets.h"

#include <bit>
#include <cstring>

#include "core/BoardTables.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {
constexpr std::uint64_t kFileA = 0x0101010101010101ULL;
constexpr std::uint64_t kFileH = kFileA << 7;
}  // namespace

std::uint64_t SquaresWhere(const PieceCode* squares, PieceCode mask, PieceCode value) {
  std::uint64_t set = 0;
#if defined(__SSE2__)
  const __m128i maskVector = _mm_set1_epi8(static_cast<char>(mask));
  const __m128i valueVector = _mm_set1_epi8(static_cast<char>(value));
  for (int i = 0; i < 4; ++i) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(squares + 16 * i));
    const __m128i equal = _mm_cmpeq_epi8(_mm_and_si128(bytes, maskVector), valueVector);
    set |= static_cast<std::uint64_t>(static_cast<std::uint16_t>(_mm_movemask_epi8(equal)))
           << (16 * i);
  }
#else
  for (int s = 0; s < 64; ++s)
    if ((squares[s] & mask) == value) set |= 1ULL << s;
#endif
  return set;
}

TAttackerSets::TAttackerSets(const PieceCode* squares, PieceCode byColour) {
  occupied = ~SquaresWhere(squares, 0xFF, piece::kEmpty);
  straightSliders = SquaresWhere(squares, byColour | piece::kRook, byColour | piece::kRook);
  diagonalSliders = SquaresWhere(squares, byColour | piece::kBishop, byColour | piece::kBishop);
  knights = SquaresWhere(squares, 0xFF, byColour | piece::kKnight);
  const std::uint64_t pawns = SquaresWhere(squares, 0xFF, byColour | piece::kPawn);
  // A white pawn takes upwards (+7 towards file a, +9 towards file h), a black one downwards.
  pawnTargets = byColour == piece::kWhite ? ((pawns & ~kFileA) << 7) | ((pawns & ~kFileH) << 9)
                                          : ((pawns & ~kFileH) >> 7) | ((pawns & ~kFileA) >> 9);
  const std::uint64_t king = SquaresWhere(squares, 0xFF, byColour | piece::kKing);
  kingTargets = king != 0 ? tables::Get().kingMask[std::countr_zero(king)] : 0;
}

bool TAttackerSets::Attacks(SquareIndex target) const {
  const auto& t = tables::Get();
  const std::uint64_t bit = 1ULL << target;
  if (((pawnTargets | kingTargets) & bit) || (t.knightMask[target] & knights)) return true;
  for (int d = 0; d < 8; ++d) {
    const std::uint64_t sliders = d < 4 ? straightSliders : diagonalSliders;
    const std::uint64_t ray = t.rayMask[target][d];
    if ((ray & sliders) == 0) continue;
    const std::uint64_t blockers = ray & occupied;
    const int nearest =
        tables::IsAscending(d) ? std::countr_zero(blockers) : 63 - std::countl_zero(blockers);
    if ((sliders >> nearest) & 1) return true;
  }
  return false;
}
