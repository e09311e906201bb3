#pragma once
#include <cstdint>

#include "registers/TableMaterial.h"

// A table position while it is generated: the board and the square of each piece of the
// material (square::kNone once captured). Moves here know no castling and no en passant;
// the generator treats en passant apart.
struct TTableMove {
  std::uint8_t piece = 0;  // index of the moving piece in the material
  SquareIndex from = 0, to = 0;
  PieceCode promotion = 0;    // type of the new piece, 0 for none
  std::int8_t captured = -1;  // index of the captured piece, -1 for none
  bool bDoubleStep = false;   // a pawn's step of two ranks
};

// Enough for every move or retraction of the pieces of one side in a table set.
constexpr int kMaxTableMoves = 128;

struct TTablePlacement {
  PieceCode board[64] = {};
  SquareIndex squares[TTableMaterial::kMaxPieces] = {};
  PieceCode codes[TTableMaterial::kMaxPieces] = {};
  int n = 0;

  TTablePlacement() = default;
  TTablePlacement(const TTableMaterial& material, const SquareIndex* pieceSquares);

  // Index of the piece on a square, -1 when it is empty.
  int PieceOn(SquareIndex s) const;
  bool IsAttacked(SquareIndex target, PieceCode byColour) const;
  // Whether the king of the colour is attacked.
  bool IsInCheck(PieceCode colour) const {
    return IsAttacked(squares[colour == piece::kWhite ? 0 : 1],
                      colour == piece::kWhite ? piece::kBlack : piece::kWhite);
  }
  bool KingsTouch() const;

  // Pseudo-legal moves of the colour's pieces, promotions as queen, rook, bishop, knight.
  int GenerateMoves(PieceCode colour, TTableMove* out) const;
  // Retractions of the colour's pieces: the moves without capture or promotion that could
  // have led here, pawns' double steps included.
  int GenerateRetractions(PieceCode colour, TTableMove* out) const;
  // Makes a move; a retraction is undone by Retract.
  void Apply(const TTableMove& move);
  void Retract(const TTableMove& move);
};
