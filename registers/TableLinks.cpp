#include "registers/TableLinks.h"

#include <stdexcept>

CTableLinks::CTableLinks(const TTableMaterial& tableMaterial, const TFindTable& findTable)
    : material(tableMaterial) {
  const int n = material.Count();
  PieceCode codes[TTableMaterial::kMaxPieces];
  const auto reset = [&] {
    for (int i = 0; i < n; ++i) codes[i] = material.Piece(i);
  };
  constexpr PieceCode kTypes[] = {piece::kQueen, piece::kRook, piece::kBishop, piece::kKnight};
  for (int i = 2; i < n; ++i) {
    reset();
    codes[i] = piece::kEmpty;
    captures[i] = MakeLink(codes, findTable);
    if (piece::TypeOf(material.Piece(i)) != piece::kPawn) continue;
    for (int t = 0; t < 4; ++t) {
      reset();
      const auto promoted =
          static_cast<PieceCode>((material.Piece(i) & ~piece::kTypeMask) | kTypes[t]);
      codes[i] = promoted;
      promotions[i][t] = MakeLink(codes, findTable);
      for (int c = 2; c < n; ++c) {
        if (piece::IsWhite(material.Piece(c)) == piece::IsWhite(material.Piece(i))) continue;
        codes[c] = piece::kEmpty;
        capturePromotions[i][c][t] = MakeLink(codes, findTable);
        codes[c] = material.Piece(c);
      }
    }
  }
}

CTableLinks::TLink CTableLinks::MakeLink(const PieceCode* codes,
                                         const TFindTable& findTable) const {
  TLink link;
  const TTableMaterial target = TTableMaterial::OfCodes(codes, material.Count());
  if (!target.WhiteCanMate()) return link;
  link.table = findTable(target);
  if (link.table == nullptr)
    throw std::runtime_error("The table " + target.Name() + " is needed before " + material.Name());
  bool bUsed[TTableMaterial::kMaxPieces] = {};
  for (int j = 0; j < target.Count(); ++j) {
    for (int i = 0; i < material.Count(); ++i) {
      if (bUsed[i] || codes[i] != target.Piece(j)) continue;
      bUsed[i] = true;
      link.source[j] = static_cast<std::int8_t>(i);
      break;
    }
  }
  return link;
}

std::uint8_t CTableLinks::ValueAfter(const TTablePlacement& after, const TTableMove& move,
                                     bool bWhiteToMove) const {
  const TLink* link;
  if (move.promotion == 0) {
    link = &captures[move.captured];
  } else if (move.captured < 0) {
    link = &promotions[move.piece][TableTypeRank(move.promotion)];
  } else {
    link = &capturePromotions[move.piece][move.captured][TableTypeRank(move.promotion)];
  }
  if (link->table == nullptr) return tablevalue::kNoMate;
  SquareIndex squares[TTableMaterial::kMaxPieces];
  for (int j = 0; j < link->table->Material().Count(); ++j)
    squares[j] = after.squares[link->source[j]];
  return link->table->ValueAt(bWhiteToMove, squares);
}
