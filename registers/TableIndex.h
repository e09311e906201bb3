#pragma once
#include <cstdint>

#include "registers/TableMaterial.h"

// Dense numbering of the placements of a table's pieces. The white king is brought into
// a region by a symmetry of the board that keeps every value: for sets without pawns the
// eight turns and mirrors (region a1-d1-d4, 10 squares), for sets with pawns the mirror
// of the files (files a-d, 32 squares). The black king takes 64 values, a pawn 48 (ranks
// 2 to 7), any other piece 64. Like pieces form a group whose squares are taken in
// ascending order, so each placement of a group has one index.
class TTableIndex {
 public:
  explicit TTableIndex(const TTableMaterial& material);

  std::uint64_t Size() const { return size; }
  // Index of the placement (squares in the material's order) after the symmetry.
  std::uint64_t Encode(const SquareIndex* squares) const;
  // Every index of the placement: besides Encode's, for sets without pawns whose white king
  // ends on the diagonal a1-d4, that of the placement mirrored in the diagonal. Returns
  // how many (1 or 2) were written.
  int EncodeAll(const SquareIndex* squares, std::uint64_t* indexes) const;
  // The placement of an index; false for indexes that stand for none (two pieces on one
  // square, like pieces out of order).
  bool Decode(std::uint64_t index, SquareIndex* squares) const;
  // The symmetry that Encode applies to a board whose white king stands on the square.
  int SymmetryOf(SquareIndex whiteKing) const { return kingSymmetry[whiteKing]; }
  static SquareIndex Transform(int symmetry, SquareIndex s);

 private:
  struct TGroup {
    int first = 0, n = 0;  // pieces first..first+n-1 of the material
    bool bPawns = false;
  };
  static int GroupBase(const TGroup& group) { return group.bPawns ? 48 : 64; }
  std::uint64_t GroupRank(const TGroup& group, const SquareIndex* sorted) const;
  bool GroupSquares(const TGroup& group, std::uint64_t rank, SquareIndex* out) const;

  int nPieces = 0;
  int nGroups = 0;
  TGroup groups[TTableMaterial::kMaxPieces];
  std::uint64_t groupSize[TTableMaterial::kMaxPieces] = {};
  std::uint64_t size = 0;
  std::int8_t kingSlot[64] = {};       // the white king's value, -1 outside the region
  SquareIndex slotSquare[32] = {};     // the inverse
  std::uint8_t kingSymmetry[64] = {};  // symmetry bringing a white king into the region
  int nKingSlots = 0;
  bool bPawns = false;
};
