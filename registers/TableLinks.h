#pragma once
#include <cstdint>
#include <functional>

#include "registers/EndgameTable.h"
#include "registers/TablePlacement.h"

// The tables a set's captures and promotions lead into, each with the order in which the
// remaining pieces stand in it. A set in which White has only the king has no table:
// every position of it is "no mate".
class CTableLinks {
 public:
  // Returns the table of a material, or null when there is none; a missing table that
  // White could mate in makes the constructor throw std::runtime_error.
  using TFindTable = std::function<const TEndgameTable*(const TTableMaterial&)>;

  CTableLinks(const TTableMaterial& material, const TFindTable& findTable);

  // The value, with the given side to move, of the position after a capture or promotion
  // (placement already changed by the move).
  std::uint8_t ValueAfter(const TTablePlacement& after, const TTableMove& move,
                          bool bWhiteToMove) const;

 private:
  struct TLink {
    const TEndgameTable* table = nullptr;
    std::int8_t source[TTableMaterial::kMaxPieces] = {};  // piece of this set at each place
  };
  // The link to the material of the codes (the set's pieces, one changed or emptied).
  TLink MakeLink(const PieceCode* codes, const TFindTable& findTable) const;

  TTableMaterial material;
  // By captured piece; by promoting pawn and new piece; by promoting pawn, captured
  // piece and new piece.
  TLink captures[TTableMaterial::kMaxPieces];
  TLink promotions[TTableMaterial::kMaxPieces][4];
  TLink capturePromotions[TTableMaterial::kMaxPieces][TTableMaterial::kMaxPieces][4];
};
