#pragma once
#include <cstdint>

#include "core/Chessboard.h"
#include "core/Move.h"

namespace attacks {

// Whether a move of the side to move checks the enemy king, decided without making it.
// Exact for ordinary moves and promotions; castling and en passant answer true (the caller
// makes the move and reads the check value), so a false answer is always safe to skip.
bool MayGiveCheck(const TChessboard& board, TMove move);

// The same answer for many moves of one position: the squares from which each kind of
// piece would check, and the pieces whose departure would uncover a check, are worked
// out once.
class CCheckFilter {
 public:
  explicit CCheckFilter(const TChessboard& board);
  bool MayGiveCheck(TMove move) const;
  // The moves of the side to move for which MayGiveCheck holds, in generation order, found
  // without generating the rest: rays that cannot reach a checking square are not walked.
  int GenerateCheckingMoves(TMove* out) const;

 private:
  const TChessboard& board;
  SquareIndex enemyKing;
  std::uint64_t knightSquares = 0, pawnSquares = 0, straightSquares = 0, diagonalSquares = 0;
  // A king away from its castling square; a pawn that can neither promote, take en passant
  // nor reach a square from which a pawn checks. Neither can check unless it uncovers.
  bool IsCastlingSquare(SquareIndex from) const;
  bool IsQuietPawn(SquareIndex from) const;
  int SliderChecks(SquareIndex from, int firstDirection, int lastDirection, std::uint64_t targets,
                   TMove* out) const;
  std::uint64_t uncoverers = 0;           // own pieces that alone screen a slider's check
  std::int8_t uncoverDirection[64] = {};  // the king's direction to each of them
};

}  // namespace attacks
