#include "engine/OneColourPlay.h"

namespace onecolour {
namespace {

bool IsLight(SquareIndex s) {
  return (square::File(s) + square::Rank(s)) % 2 != 0;
}

}  // namespace

std::optional<bool> PlayColour(const TChessboard& board, EOneColour form) {
  const std::uint8_t* n = board.nPieces;
  if (n[kWhiteQueens] + n[kBlackQueens] + n[kWhiteRooks] + n[kBlackRooks] + n[kBlackKnights] != 0 ||
      n[kWhiteBishops] != 1 || n[kBlackBishops] != 1)
    return std::nullopt;
  bool bWhiteLight = false, bBlackLight = false;
  for (SquareIndex s = 0; s < 64; ++s) {
    if (board.squares[s] == piece::kWhiteBishop) bWhiteLight = IsLight(s);
    if (board.squares[s] == piece::kBlackBishop) bBlackLight = IsLight(s);
  }
  if (bWhiteLight == bBlackLight) return std::nullopt;
  const bool bLight =
      form == EOneColour::kBishopColour ? bWhiteLight : form == EOneColour::kLightSquares;
  if (bLight == bBlackLight) return std::nullopt;
  return bLight;
}

bool WhiteMoveLeavesColour(const TChessboard& after, EOneColour form) {
  const std::optional<bool> bLight = PlayColour(*after.parent, form);
  return bLight && IsLight(after.lastMove.to) != *bLight;
}

}  // namespace onecolour
