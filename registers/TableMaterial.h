#pragma once
#include <optional>
#include <string>
#include <vector>

#include "core/PieceCode.h"

// Position of a piece type in the tables' order: queen 0, rook 1, bishop 2, knight 3, pawn 4.
int TableTypeRank(PieceCode code);

// The pieces of one endgame table, named by White's letters and then Black's, each side
// starting with its king: "KRK", "KQKR", "KPKP". The pieces are kept in a fixed order:
// the white king, the black king, then White's and Black's other pieces, each side in the
// order queen, rook, bishop, knight, pawn, so that like pieces stand next to each other.
class TTableMaterial {
 public:
  static constexpr int kMaxPieces = 5;

  // Throws std::invalid_argument naming the text when it is not such a name.
  static TTableMaterial Parse(const std::string& name);
  // The material standing on a board; nothing when a side has no single king or there are
  // more than kMaxPieces pieces.
  static std::optional<TTableMaterial> OfBoard(const PieceCode* squares);

  const std::string& Name() const { return name; }
  // One letter per piece, White's in capitals and Black's in small letters: "KRk".
  std::string PositionType() const;
  int Count() const { return nPieces; }
  PieceCode Piece(int i) const { return pieces[i]; }
  bool HasPawns() const;
  // White with a lone king can never give mate: such a material needs no table.
  bool WhiteCanMate() const;

  // The material of a list of piece codes (empty codes skipped), which must hold one king
  // of each colour.
  static TTableMaterial OfCodes(const PieceCode* codes, int n);

  // The materials a capture or promotion leads into, each once.
  std::vector<TTableMaterial> Successors() const;

  bool operator==(const TTableMaterial& other) const { return name == other.name; }

 private:
  TTableMaterial() = default;

  std::string name;
  int nPieces = 0;
  PieceCode pieces[kMaxPieces] = {};
};
