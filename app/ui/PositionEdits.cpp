#include "app/ui/PositionEdits.h"

#include <algorithm>

#include "core/ChessException.h"

void TPositionEdits::Begin(const TSquares& start) {
  squares = original = start;
  undo.clear();
  redo.clear();
}

void TPositionEdits::Place(SquareIndex s, PieceCode piece) {
  TSquares next = squares;
  next[s] = next[s] == piece ? piece::kEmpty : piece;
  Change(next);
}

void TPositionEdits::Move(SquareIndex from, SquareIndex to) {
  if (from == to || squares[from] == piece::kEmpty) return;
  TSquares next = squares;
  next[to] = next[from];
  next[from] = piece::kEmpty;
  Change(next);
}

void TPositionEdits::Clear() {
  Change(TSquares{});
}

void TPositionEdits::Replace(const TSquares& next) {
  Change(next);
}

void TPositionEdits::Change(const TSquares& next) {
  if (next == squares) return;
  undo.push_back(squares);
  redo.clear();
  squares = next;
}

bool TPositionEdits::Undo() {
  if (undo.empty()) return false;
  redo.push_back(squares);
  squares = undo.back();
  undo.pop_back();
  return true;
}

bool TPositionEdits::Redo() {
  if (redo.empty()) return false;
  undo.push_back(squares);
  squares = redo.back();
  redo.pop_back();
  return true;
}

std::optional<std::string> TPositionEdits::Validate(const TSquares& squares, TChessboard& board) {
  ClearChessboard(board);
  std::copy(squares.begin(), squares.end(), board.squares);
  board.ply = board.rootPlies = 1;  // White to move
  try {
    Analyse(board, true);
  } catch (const ChessException& error) {
    return std::string(error.what());
  }
  if (board.IsBlackInCheck())
    return std::string("Invalid position: Black king cannot be checked in starting position.");
  return std::nullopt;
}

std::optional<TPositionEdits::TSquares> TPositionEdits::Shifted(const TSquares& squares, int nFiles,
                                                                int nRanks) {
  TSquares shifted{};
  for (int s = 0; s < 64; ++s) {
    if (squares[s] == piece::kEmpty) continue;
    const int file = square::File(static_cast<SquareIndex>(s)) + nFiles;
    const int rank = square::Rank(static_cast<SquareIndex>(s)) + nRanks;
    if (file < 0 || file > 7 || rank < 0 || rank > 7) return std::nullopt;
    shifted[square::Make(file, rank)] = squares[s];
  }
  return shifted;
}

TPositionEdits::TSquares TPositionEdits::Transformed(const TSquares& squares,
                                                     transforms::ETransform transform) {
  TSquares moved{};
  transforms::MapPieces(transform, squares.data(), moved.data());
  return moved;
}
