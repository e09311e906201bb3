#include "registers/EndgameTable.h"

#include <stdexcept>

TEndgameTable::TEndgameTable(const TTableMaterial& tableMaterial)
    : material(tableMaterial), index(tableMaterial) {}

TEndgameTable::TEndgameTable(const TTableMaterial& tableMaterial,
                             std::vector<std::uint8_t> whiteValues,
                             std::vector<std::uint8_t> blackValues)
    : material(tableMaterial),
      index(tableMaterial),
      white(std::move(whiteValues)),
      black(std::move(blackValues)) {
  if (white.size() != index.Size() || black.size() != index.Size())
    throw std::invalid_argument("Table " + material.Name() + " has the wrong number of values");
}

std::uint8_t TEndgameTable::ValueOfBoard(bool bWhiteToMove, const PieceCode* board) const {
  SquareIndex squares[TTableMaterial::kMaxPieces];
  SquaresInTableOrder(material, board, squares);
  return ValueAt(bWhiteToMove, squares);
}

void SquaresInTableOrder(const TTableMaterial& material, const PieceCode* board,
                         SquareIndex* squares) {
  bool bTaken[TTableMaterial::kMaxPieces] = {};
  for (int s = 0; s < 64; ++s) {
    if (board[s] == piece::kEmpty) continue;
    for (int i = 0; i < material.Count(); ++i) {
      if (bTaken[i] || material.Piece(i) != board[s]) continue;
      bTaken[i] = true;
      squares[i] = static_cast<SquareIndex>(s);
      break;
    }
  }
}
