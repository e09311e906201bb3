#pragma once
// A chess board of the tests' own, on the 0x88 layout, with its own move generation and
// legality: castling, en passant and promotion included. It shares nothing with the
// engine's generator, so that a fault there cannot hide in a reference built on it.
#include <cstdint>
#include <string>

#include "core/Chessboard.h"
#include "core/Move.h"

namespace reference {

struct TRefMove {
  int from = 0, to = 0;  // 0x88 squares
  char promotion = 0;    // 'Q', 'R', 'B', 'N' or 0
};

class CReferenceBoard {
 public:
  static constexpr int kMaxMoves = 256;

  // All four FEN fields that matter: placement, side to move, castling, en passant.
  // False for text it cannot read.
  bool ReadFen(const std::string& text);
  // A problem's start as the engine sees it: White to move, every castling whose king and
  // rook stand at home, no en passant.
  static CReferenceBoard FromProblemStart(const TChessboard& board);

  // The moves of the side to move that may leave its own king attacked; returns their count.
  int PseudoMoves(TRefMove* out) const;
  // Makes a move of PseudoMoves into next; false when it leaves the mover's king attacked.
  bool MakeLegal(const TRefMove& move, CReferenceBoard& next) const;
  // The legal moves of the side to move; returns their count.
  int LegalMoves(TRefMove* out) const;
  bool HasLegalMove() const;
  CReferenceBoard After(const TRefMove& move) const;
  bool IsSideToMoveInCheck() const;
  // After a move: whether the side that made it kept its king out of attack.
  bool IsMoverKingSafe() const;
  bool IsWhiteToMove() const { return bWhiteToMove; }
  std::uint64_t Perft(int depth) const;

  // The engine's form of a move of this board.
  static TMove ToEngineMove(const TRefMove& move);

 private:
  int AddPawnMoves(int from, TRefMove* out) const;
  int AddCastlings(TRefMove* out) const;
  bool IsAttacked(int square, bool byWhite) const;
  void FindKings();

  char squares[128] = {};  // FEN letters, 0 for empty
  bool bWhiteToMove = true;
  int castling = 0;    // kWhiteShort | ... as below
  int enPassant = -1;  // square a pawn may take en passant on, -1 for none
  int whiteKing = -1, blackKing = -1;
};

}  // namespace reference
