#include "engine/WhiteMoveHints.h"

#include <algorithm>

#include "problems/Problem.h"

namespace {

void Append(std::vector<TSortIndication>& wanted, std::vector<TSortIndication>& unwanted,
            const std::vector<TSortIndication>& elements) {
  for (const TSortIndication& element : elements)
    (element.bNegated ? unwanted : wanted).push_back(element);
}

bool IsCapture(const TChessboard& board, TMove move) {
  if (board.squares[move.to] != piece::kEmpty) return true;
  // A pawn that changes file onto an empty square takes en passant.
  return piece::TypeOf(board.squares[move.from]) == piece::kPawn &&
         square::File(move.from) != square::File(move.to);
}

}  // namespace

bool CWhiteMoveHints::Matches(const TSortIndication& element, const TChessboard& board, TMove move,
                              const TChessboard& child) {
  if (element.to != move.to) return false;
  if (element.from != square::kNone && element.from != move.from) return false;
  if (element.piece != piece::kEmpty && board.squares[move.from] != element.piece) return false;
  if (element.promotion != piece::kEmpty &&
      piece::TypeOf(move.promotion) != piece::TypeOf(element.promotion))
    return false;
  if (element.captureMode != TSortIndication::kCaptureEither &&
      IsCapture(board, move) != (element.captureMode == TSortIndication::kCapture))
    return false;
  if (element.checkMode == 1 && !child.IsBlackInCheck()) return false;
  if (element.checkMode == 2 && child.blackKingCheck != kDoubleCheck) return false;
  return true;
}

CWhiteMoveHints::CWhiteMoveHints(const TSortIndications& indications) {
  // No stipulation reaches beyond kMaxMoves: later numbers never apply.
  std::uint16_t nLast = 0;
  for (const auto& [n, elements] : indications)
    if (n <= TStipulation::kMaxMoves) nLast = n;
  byMoveNumber.resize(nLast + 1u);
  const auto anyMove = indications.find(0);
  for (std::uint16_t n = 0; n <= nLast; ++n) {
    TMoveHints& applying = byMoveNumber[n];
    if (n != 0) {
      if (const auto own = indications.find(n); own != indications.end())
        Append(applying.wanted, applying.unwanted, own->second);
    }
    if (anyMove != indications.end()) Append(applying.wanted, applying.unwanted, anyMove->second);
  }
  bEmpty = std::all_of(byMoveNumber.begin(), byMoveNumber.end(), [](const TMoveHints& applying) {
    return applying.wanted.empty() && applying.unwanted.empty();
  });
}

std::uint16_t CWhiteMoveHints::MoveNumberAt(const TChessboard& board) const {
  const int nLast = static_cast<int>(byMoveNumber.size()) - 1;
  // Plies from the start, counted only as far as the last numbered move needs.
  int nPlies = 0;
  for (const TChessboard* p = board.parent; p != nullptr && nPlies < 2 * nLast; p = p->parent)
    ++nPlies;
  const auto moveNumber = static_cast<std::uint16_t>(nPlies / 2 + 1);
  const TMoveHints& applying = HintsFor(moveNumber);
  return applying.wanted.empty() && applying.unwanted.empty() ? 0 : moveNumber;
}

const CWhiteMoveHints::TMoveHints& CWhiteMoveHints::HintsFor(std::uint16_t moveNumber) const {
  return moveNumber < byMoveNumber.size() ? byMoveNumber[moveNumber] : byMoveNumber[0];
}

int CWhiteMoveHints::Band(const TChessboard& board, TMove move, const TChessboard& child,
                          std::uint16_t moveNumber) const {
  const TMoveHints& applying = HintsFor(moveNumber);
  const int nWanted = static_cast<int>(applying.wanted.size());
  for (const TSortIndication& element : applying.unwanted)
    if (Matches(element, board, move, child)) return nWanted + 1;
  for (int i = 0; i < nWanted; ++i)
    if (Matches(applying.wanted[i], board, move, child)) return i;
  return nWanted;
}
