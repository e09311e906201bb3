#include "core/WhiteMaterial.h"

#include <initializer_list>

namespace {

// Stores square in the first free slot of a pair; a third piece makes the material not simple.
bool StoreInPair(SquareIndex (&slots)[2], SquareIndex s) {
  if (slots[0] == square::kNone) {
    slots[0] = s;
    return true;
  }
  if (slots[1] == square::kNone) {
    slots[1] = s;
    return true;
  }
  return false;
}

}  // namespace

void ScanWhiteMaterial(TChessboard& board) {
  board.bSimpleWhiteMaterial = 1;
  for (auto* slots :
       {&board.whiteRookSquares, &board.whiteBishopSquares, &board.whiteKnightSquares})
    (*slots)[0] = (*slots)[1] = square::kNone;
  board.whiteQueenSquare = square::kNone;
  for (int s = 0; s < 64 && board.bSimpleWhiteMaterial; ++s) {
    const SquareIndex sq = static_cast<SquareIndex>(s);
    switch (board.squares[s]) {
      case piece::kWhiteQueen:
        if (board.whiteQueenSquare != square::kNone)
          board.bSimpleWhiteMaterial = 0;
        else
          board.whiteQueenSquare = sq;
        break;
      case piece::kWhiteRook:
        board.bSimpleWhiteMaterial = StoreInPair(board.whiteRookSquares, sq);
        break;
      case piece::kWhiteKnight:
        board.bSimpleWhiteMaterial = StoreInPair(board.whiteKnightSquares, sq);
        break;
      case piece::kWhiteBishop: {
        const SquareIndex first = board.whiteBishopSquares[0];
        const bool bSameColour = first != square::kNone && square::SameColour(first, sq);
        board.bSimpleWhiteMaterial = !bSameColour && StoreInPair(board.whiteBishopSquares, sq);
        break;
      }
      default:
        break;
    }
  }
}
