#pragma once
#include <cstdint>
#include <vector>

#include "registers/TableIndex.h"
#include "registers/TableMaterial.h"
#include "registers/TableValue.h"

// The values of every position of one piece set (see tablevalue), for each side to move,
// held in memory at the indexes of TTableIndex.
class TEndgameTable {
 public:
  explicit TEndgameTable(const TTableMaterial& material);
  TEndgameTable(const TTableMaterial& material, std::vector<std::uint8_t> white,
                std::vector<std::uint8_t> black);

  const TTableMaterial& Material() const { return material; }
  const TTableIndex& Index() const { return index; }
  std::uint64_t Size() const { return index.Size(); }
  std::uint64_t MemoryBytes() const { return white.size() + black.size(); }

  std::uint8_t Value(bool bWhiteToMove, std::uint64_t i) const {
    return bWhiteToMove ? white[i] : black[i];
  }
  // The value of a placement given as squares in the material's order.
  std::uint8_t ValueAt(bool bWhiteToMove, const SquareIndex* squares) const {
    return Value(bWhiteToMove, index.Encode(squares));
  }
  // The value of a board that holds exactly this material.
  std::uint8_t ValueOfBoard(bool bWhiteToMove, const PieceCode* board) const;

  std::vector<std::uint8_t>& WhiteValues() { return white; }
  std::vector<std::uint8_t>& BlackValues() { return black; }
  const std::vector<std::uint8_t>& WhiteValues() const { return white; }
  const std::vector<std::uint8_t>& BlackValues() const { return black; }

 private:
  TTableMaterial material;
  TTableIndex index;
  std::vector<std::uint8_t> white, black;
};

// The squares of the pieces of a board in the material's order (the board must hold
// exactly that material).
void SquaresInTableOrder(const TTableMaterial& material, const PieceCode* board,
                         SquareIndex* squares);
