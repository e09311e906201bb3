#include "registers/TableIndex.h"

#include <algorithm>

namespace {

// A symmetry as three bits: 4 swaps file and rank, then 1 mirrors the file, 2 the rank.
constexpr int kSwap = 4, kMirrorFile = 1, kMirrorRank = 2;

bool InPawnlessRegion(SquareIndex s) {
  return square::File(s) <= 3 && square::Rank(s) <= square::File(s);
}

bool InPawnRegion(SquareIndex s) {
  return square::File(s) <= 3;
}

std::uint64_t Power(std::uint64_t base, int exponent) {
  std::uint64_t result = 1;
  for (int i = 0; i < exponent; ++i) result *= base;
  return result;
}

// Insertion sort of a group's few squares.
void SortSmall(SquareIndex* squares, int n) {
  for (int i = 1; i < n && i < TTableMaterial::kMaxPieces; ++i)
    for (int j = i; j > 0 && squares[j - 1] > squares[j]; --j)
      std::swap(squares[j - 1], squares[j]);
}

}  // namespace

SquareIndex TTableIndex::Transform(int symmetry, SquareIndex s) {
  int file = square::File(s), rank = square::Rank(s);
  if (symmetry & kSwap) std::swap(file, rank);
  if (symmetry & kMirrorFile) file = 7 - file;
  if (symmetry & kMirrorRank) rank = 7 - rank;
  return square::Make(file, rank);
}

TTableIndex::TTableIndex(const TTableMaterial& material)
    : nPieces(material.Count()), bPawns(material.HasPawns()) {
  const int nSymmetries = bPawns ? 2 : 8;
  for (int s = 0; s < 64; ++s) {
    kingSlot[s] = -1;
    for (int t = 0; t < nSymmetries; ++t) {
      const SquareIndex image = Transform(t, static_cast<SquareIndex>(s));
      if (bPawns ? InPawnRegion(image) : InPawnlessRegion(image)) {
        kingSymmetry[s] = static_cast<std::uint8_t>(t);
        break;
      }
    }
    if (bPawns ? InPawnRegion(static_cast<SquareIndex>(s))
               : InPawnlessRegion(static_cast<SquareIndex>(s))) {
      kingSlot[s] = static_cast<std::int8_t>(nKingSlots);
      slotSquare[nKingSlots++] = static_cast<SquareIndex>(s);
    }
  }
  size = static_cast<std::uint64_t>(nKingSlots) * 64;
  for (int i = 2; i < nPieces; ++i) {
    if (nGroups > 0 && material.Piece(i) == material.Piece(groups[nGroups - 1].first)) {
      ++groups[nGroups - 1].n;
      continue;
    }
    groups[nGroups++] = TGroup{i, 1, piece::TypeOf(material.Piece(i)) == piece::kPawn};
  }
  for (int g = 0; g < nGroups; ++g) {
    groupSize[g] = Power(static_cast<std::uint64_t>(GroupBase(groups[g])), groups[g].n);
    size *= groupSize[g];
  }
}

std::uint64_t TTableIndex::GroupRank(const TGroup& group, const SquareIndex* sorted) const {
  const int offset = group.bPawns ? 8 : 0;
  std::uint64_t rank = 0;
  for (int i = 0; i < group.n; ++i)
    rank = rank * static_cast<std::uint64_t>(GroupBase(group)) + (sorted[i] - offset);
  return rank;
}

bool TTableIndex::GroupSquares(const TGroup& group, std::uint64_t rank, SquareIndex* out) const {
  const int offset = group.bPawns ? 8 : 0;
  const auto base = static_cast<std::uint64_t>(GroupBase(group));
  for (int i = group.n - 1; i >= 0; --i) {
    out[i] = static_cast<SquareIndex>(rank % base + offset);
    rank /= base;
  }
  for (int i = 1; i < group.n; ++i)
    if (out[i - 1] >= out[i]) return false;
  return true;
}

std::uint64_t TTableIndex::Encode(const SquareIndex* squares) const {
  const int t = kingSymmetry[squares[0]];
  SquareIndex image[TTableMaterial::kMaxPieces];
  for (int i = 0; i < nPieces; ++i) image[i] = t == 0 ? squares[i] : Transform(t, squares[i]);
  std::uint64_t index = static_cast<std::uint64_t>(kingSlot[image[0]]) * 64 + image[1];
  for (int g = 0; g < nGroups; ++g) {
    SquareIndex* first = image + groups[g].first;
    SortSmall(first, groups[g].n);
    index = index * groupSize[g] + GroupRank(groups[g], first);
  }
  return index;
}

int TTableIndex::EncodeAll(const SquareIndex* squares, std::uint64_t* indexes) const {
  indexes[0] = Encode(squares);
  const SquareIndex king = Transform(kingSymmetry[squares[0]], squares[0]);
  if (bPawns || square::File(king) != square::Rank(king)) return 1;
  SquareIndex mirrored[TTableMaterial::kMaxPieces];
  const int t = kingSymmetry[squares[0]];
  for (int i = 0; i < nPieces; ++i) mirrored[i] = Transform(kSwap, Transform(t, squares[i]));
  indexes[1] = Encode(mirrored);
  return indexes[1] == indexes[0] ? 1 : 2;
}

bool TTableIndex::Decode(std::uint64_t index, SquareIndex* squares) const {
  if (index >= size) return false;
  for (int g = nGroups - 1; g >= 0; --g) {
    if (!GroupSquares(groups[g], index % groupSize[g], squares + groups[g].first)) return false;
    index /= groupSize[g];
  }
  squares[1] = static_cast<SquareIndex>(index % 64);
  squares[0] = slotSquare[index / 64];
  for (int i = 0; i < nPieces; ++i)
    for (int j = i + 1; j < nPieces; ++j)
      if (squares[i] == squares[j]) return false;
  return true;
}
