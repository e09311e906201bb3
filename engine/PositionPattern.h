#pragma once
#include <cstdint>

#include "core/Chessboard.h"

// The type of a problem's start position, as far as it decides which heuristic sets suit it.
// Only the recognition is here; which sets each type gets is the business of the heuristic
// plan.
enum class EPositionPattern : std::uint8_t {
  kGeneral,             // nothing recognised
  kSeaSnake,            // a column of black pawns on one file, the king beside it
  kLoneQueen,           // a white queen alone (a minor piece at most) against tied black men
  kMinorMiniature,      // few men, White's officers all minor, Black without officers
  kKingShutInByPawns,   // the black king on the edge with its own pawns taking its squares
  kBlockedBlackPieces,  // black officers that can hardly move, jammed round their king
  kKingOnEdge,          // a middlegame, the black king on the edge line or next to it
};

// What the recognition looks at, counted on the start position.
struct TPositionFeatures {
  int nKingRing = 0;         // 0: the black king on the edge line, 1: the line next to it ...
  int nOwnBesideKing = 0;    // black men on the squares next to the black king
  int nPawnsBesideKing = 0;  // of them pawns
  int nKingFlights = 0;      // free squares next to the black king that White does not attack
  int nLongestPawnFile = 0;  // the most black pawns on one file
  int nBlackOfficers = 0;    // black pieces besides king and pawns
  int nStuckOfficers = 0;    // of them those with two moves at most
  int nMen = 0;              // every piece and pawn on the board, kings included
  int nWhiteQueens = 0, nWhiteRooks = 0, nWhiteMinors = 0;
  int nBlackMen = 0;  // black pieces and pawns besides the king
};

namespace positionpattern {

TPositionFeatures Measure(const TChessboard& start);
EPositionPattern Classify(const TPositionFeatures& features);
inline EPositionPattern Detect(const TChessboard& start) {
  return Classify(Measure(start));
}

}  // namespace positionpattern
