#pragma once
#include <array>
#include <cstdint>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"

// The restrictions that hold a position to a pattern seen at the start: a lone queen's mating
// squares, a king shut in by its own pawns, blocked black pawns, key squares and lines, a
// hopeless mate in three, and the worst White moves left out. Like every restriction they
// only make a line doubtful, never decide it.
struct TPatternRoot {
  // SH_SINGLEQUEENMATE: the black king's steps to the queen's mating squares.
  std::array<std::uint8_t, 64> queenMateDistances{};
  SquareIndex blackKingStart = square::kNone;  // SH_ZUGZWANG: the centre of the king's cage
  std::uint8_t nBlockedPawnsLevel = 0;         // SH_USEBLOCKBLACKPAWNSLEVEL, resolved

  TPatternRoot() = default;
  TPatternRoot(const THeuristicSet& set, const TChessboard& root);
};

namespace patternrules {

// Each answers with the bit of the restriction broken, 0 when none is; the arguments are
// those of the matching predicates of heuristicrules.
std::uint32_t BlackReplyBreaks(const TChessboard& after, const THeuristicSet& set,
                               const TPatternRoot& root);
std::uint32_t WhiteMoveBreaks(const TChessboard& after, const THeuristicSet& set,
                              const TPatternRoot& root);
std::uint32_t WhiteNodeBreaks(const TChessboard& board, const THeuristicSet& set,
                              const TPatternRoot& root);

// How many of White's n moves, in search order, are searched at board: under
// SH_SKIPWORSTWHITEMOVES the last third is left out below the root.
int SearchedWhiteMoves(const TChessboard& board, int n, const THeuristicSet& set);

// Black pawns that cannot step forward because the square ahead is taken.
int BlockedBlackPawns(const TChessboard& board);
// Whether the position fits SH_ZUGZWANG: Black has only its king and pawns, one of them next
// to the king.
bool ZugzwangCagePattern(const TChessboard& start);
// Squares next to the black king that are neither taken by Black nor attacked by White.
int FreeBlackKingSquares(const TChessboard& board);
// Whether mate in three looks out of reach: the black king has more free squares around it
// than White's pieces could take away in three moves.
bool MateInThreeLooksHopeless(const TChessboard& board);

}  // namespace patternrules
