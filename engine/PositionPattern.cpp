#include "engine/PositionPattern.h"

#include <algorithm>
#include <iterator>

#include "core/Attacks.h"
#include "core/MoveGeneration.h"

namespace positionpattern {
namespace {

int Ring(SquareIndex s) {
  const int file = square::File(s), rank = square::Rank(s);
  return std::min({file, 7 - file, rank, 7 - rank});
}

void MeasureKing(const TChessboard& start, TPositionFeatures& features) {
  const SquareIndex king = start.BlackKing();
  features.nKingRing = Ring(king);
  for (int df = -1; df <= 1; ++df)
    for (int dr = -1; dr <= 1; ++dr) {
      const int file = square::File(king) + df, rank = square::Rank(king) + dr;
      if ((df == 0 && dr == 0) || file < 0 || file > 7 || rank < 0 || rank > 7) continue;
      const PieceCode there = start.squares[square::Make(file, rank)];
      if (piece::IsBlack(there)) {
        ++features.nOwnBesideKing;
        features.nPawnsBesideKing += piece::TypeOf(there) == piece::kPawn;
      } else if (!attacks::IsAttacked(start.squares, square::Make(file, rank), piece::kWhite)) {
        ++features.nKingFlights;
      }
    }
}

void MeasureBlackMen(const TChessboard& start, TPositionFeatures& features) {
  TChessboard blackToMove = start;
  blackToMove.parent = nullptr;
  blackToMove.ply = static_cast<std::uint16_t>(start.ply - 1);
  int nPawnsOnFile[8] = {};
  TMove moves[kMoveBufferSize];
  for (SquareIndex s = 0; s < 64; ++s) {
    const PieceCode code = start.squares[s];
    if (!piece::IsBlack(code)) continue;
    const PieceCode type = piece::TypeOf(code);
    if (type == piece::kPawn) ++nPawnsOnFile[square::File(s)];
    if (type == piece::kPawn || type == piece::kKing) continue;
    ++features.nBlackOfficers;
    features.nStuckOfficers += movegen::GeneratePieceMoves(blackToMove, s, moves) <= 2;
  }
  features.nLongestPawnFile = *std::max_element(std::begin(nPawnsOnFile), std::end(nPawnsOnFile));
}

}  // namespace

TPositionFeatures Measure(const TChessboard& start) {
  TPositionFeatures features;
  MeasureKing(start, features);
  MeasureBlackMen(start, features);
  features.nWhiteQueens = start.nPieces[kWhiteQueens];
  features.nWhiteRooks = start.nPieces[kWhiteRooks];
  features.nWhiteMinors = start.nPieces[kWhiteBishops] + start.nPieces[kWhiteKnights];
  for (int slot = kWhiteQueens; slot <= kBlackPawns; ++slot) {
    features.nMen += start.nPieces[slot];
    if (slot % 2 == 1) features.nBlackMen += start.nPieces[slot];
  }
  features.nMen += 2;
  return features;
}

EPositionPattern Classify(const TPositionFeatures& f) {
  if (f.nLongestPawnFile >= 5) return EPositionPattern::kSeaSnake;
  if (f.nWhiteQueens == 1 && f.nWhiteRooks == 0 && f.nWhiteMinors <= 1 && f.nBlackMen >= 3)
    return EPositionPattern::kLoneQueen;
  if (f.nKingRing == 0 && f.nPawnsBesideKing > 0 && f.nKingFlights <= 1 && f.nBlackOfficers <= 1)
    return EPositionPattern::kKingShutInByPawns;
  if (f.nWhiteQueens + f.nWhiteRooks == 0 && f.nWhiteMinors > 0 && f.nBlackOfficers == 0 &&
      f.nMen <= 8)
    return EPositionPattern::kMinorMiniature;
  if (f.nBlackOfficers >= 2 && 2 * f.nStuckOfficers >= f.nBlackOfficers)
    return EPositionPattern::kBlockedBlackPieces;
  if (f.nKingRing <= 1 && f.nWhiteQueens + f.nWhiteRooks > 0) return EPositionPattern::kKingOnEdge;
  return EPositionPattern::kGeneral;
}

}  // namespace positionpattern
