#pragma once
// The position being set up by hand: the squares with an undo and a redo list of every
// change. Nothing is checked while pieces are placed; leaving the mode asks Validate.
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/BoardTransforms.h"
#include "core/Chessboard.h"

class TPositionEdits {
 public:
  using TSquares = std::array<PieceCode, 64>;

  void Begin(const TSquares& start);
  const TSquares& Squares() const { return squares; }
  bool IsChanged() const { return squares != original; }

  // Puts the piece on the square; the same piece there already is taken off instead, and
  // kEmpty clears the square.
  void Place(SquareIndex s, PieceCode piece);
  // Moves whatever stands on from to to, replacing what stood there.
  void Move(SquareIndex from, SquareIndex to);
  void Clear();
  // Replaces every square at once (a pasted position, a transform).
  void Replace(const TSquares& next);
  bool Undo();
  bool Redo();
  bool CanUndo() const { return !undo.empty(); }
  bool CanRedo() const { return !redo.empty(); }

  // The position as a problem's start with White to move, or the reason it cannot be one
  // (the position's own errors, or the black king in check).
  static std::optional<std::string> Validate(const TSquares& squares, TChessboard& board);
  // Every piece moved by the files (right positive) and ranks (up positive) given; nothing
  // when a piece would leave the board.
  static std::optional<TSquares> Shifted(const TSquares& squares, int nFiles, int nRanks);
  // Each piece on the square the transformation takes its square to (the colour swap also
  // exchanges colours), unchecked.
  static TSquares Transformed(const TSquares& squares, transforms::ETransform transform);

 private:
  void Change(const TSquares& next);

  TSquares squares{};
  TSquares original{};
  std::vector<TSquares> undo, redo;
};
