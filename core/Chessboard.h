#pragma once
#include <cstdint>
#include <type_traits>

#include "core/Move.h"
#include "core/PieceCode.h"

// Index of each piece kind in TChessboard::nPieces.
enum PieceCountIndex : int {
  kWhiteQueens,
  kBlackQueens,
  kWhiteRooks,
  kBlackRooks,
  kWhiteBishops,
  kBlackBishops,
  kWhiteKnights,
  kBlackKnights,
  kWhitePawns,
  kBlackPawns
};

// The count slot of a piece type and colour; -1 for kings (they are not counted).
constexpr int PieceCountSlot(PieceCode type, bool bBlack) {
  const int black = bBlack ? 1 : 0;
  switch (type) {
    case piece::kQueen:
      return kWhiteQueens + black;
    case piece::kRook:
      return kWhiteRooks + black;
    case piece::kBishop:
      return kWhiteBishops + black;
    case piece::kKnight:
      return kWhiteKnights + black;
    case piece::kPawn:
      return kWhitePawns + black;
    default:
      return -1;
  }
}

// Check value of a king that is not attacked.
constexpr std::int8_t kNotInCheck = -1;
// Check value of a king attacked by two pieces at once (otherwise it is the checker's square).
constexpr std::int8_t kDoubleCheck = 64;
// Ply value of a position that belongs to no stipulation.
constexpr std::uint16_t kNoStipulationPly = 255;

// The flat position record, copied whole for every move the search makes, so it holds only
// what some reader needs. It owns nothing it points to; the derived fields (kings, checks,
// counts, white piece slots) are a function of the squares and are kept current by the move
// makers, or recomputed by Analyse after any other change.
struct TChessboard {
  PieceCode squares[64];
  const TChessboard* parent;  // position this one was made from, null at the root
  TMove lastMove;             // the move that produced this position
  std::uint16_t ply;          // half-moves left; odd means White to move
  std::uint16_t rootPlies;    // ply of the problem's starting position
  std::uint32_t searchFlags;  // heuristic mask, owned by the search; cleared by a reset
  std::uint8_t whiteKingFile, whiteKingRank;
  std::uint8_t blackKingFile, blackKingRank;
  std::int8_t whiteKingCheck;  // kNotInCheck, the checker's square, or kDoubleCheck
  std::int8_t blackKingCheck;
  std::uint8_t nPieces[10];  // indexed by PieceCountIndex
  SquareIndex whiteRookSquares[2];
  SquareIndex whiteBishopSquares[2];
  SquareIndex whiteKnightSquares[2];
  SquareIndex whiteQueenSquare;
  std::uint8_t bSimpleWhiteMaterial;  // at most Q, 2R, 2N and 2 bishops of opposite colours

  bool IsWhiteToMove() const { return (ply & 1) != 0; }
  SquareIndex WhiteKing() const { return square::Make(whiteKingFile, whiteKingRank); }
  SquareIndex BlackKing() const { return square::Make(blackKingFile, blackKingRank); }
  bool IsWhiteInCheck() const { return whiteKingCheck != kNotInCheck; }
  bool IsBlackInCheck() const { return blackKingCheck != kNotInCheck; }
  bool IsSideToMoveInCheck() const { return IsWhiteToMove() ? IsWhiteInCheck() : IsBlackInCheck(); }
};
static_assert(std::is_trivially_copyable_v<TChessboard>);
// Every byte is copied at every node: growing the record slows the search.
static_assert(sizeof(TChessboard) <= 112);

// Empties the record: no pieces, no links, ply 255.
void ClearChessboard(TChessboard& board);

// Recomputes every derived field and validates the position. Throws ChessException
// with "Pawns cannot occupy 1st nor 8th line of the chessboard.", "Illegal number of kings."
// or "Both kings attacked."; the derived fields are then partly updated and must not be used.
// With bReset the search flags are cleared. Returns 0.
int Analyse(TChessboard& board, bool bReset);
// The same work without exceptions: false where Analyse would throw.
bool TryAnalyse(TChessboard& board, bool bReset) noexcept;
// Rejects damaged records read from files and registers.
bool IsSane(const TChessboard& board);
// Recomputes both check values; false when both kings are attacked.
bool RecomputeChecks(TChessboard& board);
// Whether the derived fields are what the analysis computes from the squares (the white piece
// slots only while the material is simple): the move makers assert it in debug builds.
bool IsConsistent(const TChessboard& board);
