#include "registers/TableLookup.h"

#include <algorithm>

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"

namespace {

bool HasEnPassantRight(const TChessboard& board) {
  if (board.parent == nullptr) return false;
  const TMove last = board.lastMove;
  const PieceCode moved = board.squares[last.to];
  if (piece::TypeOf(moved) != piece::kPawn ||
      (last.to > last.from ? last.to - last.from : last.from - last.to) != 16)
    return false;
  const auto taker = static_cast<PieceCode>(
      (piece::IsWhite(moved) ? piece::kBlack : piece::kWhite) | piece::kPawn);
  const int file = square::File(last.to);
  return (file > 0 && board.squares[last.to - 1] == taker) ||
         (file < 7 && board.squares[last.to + 1] == taker);
}

bool IsCastling(const TChessboard& board, TMove move) {
  const int step = move.to - move.from;
  return piece::TypeOf(board.squares[move.from]) == piece::kKing && (step == 2 || step == -2);
}

}  // namespace

std::optional<std::uint8_t> CTableLookup::StoredValue(const TChessboard& board) const {
  const auto material = TTableMaterial::OfBoard(board.squares);
  if (!material) return std::nullopt;
  if (!material->WhiteCanMate()) return tablevalue::kNoMate;
  const TEndgameTable* table = find(*material);
  if (table == nullptr) return std::nullopt;
  return table->ValueOfBoard(board.IsWhiteToMove(), board.squares);
}

std::optional<std::uint8_t> CTableLookup::ExactValue(const TChessboard& board) const {
  return HasEnPassantRight(board) ? ValueFromMoves(board) : StoredValue(board);
}

std::optional<std::uint8_t> CTableLookup::ValueFromMoves(const TChessboard& board,
                                                         std::vector<TMove>* best) const {
  const bool bWhite = board.IsWhiteToMove();
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateAllMoves(board, moves);
  std::vector<std::pair<TMove, std::uint8_t>> successors;
  for (int i = 0; i < n; ++i) {
    if (IsCastling(board, moves[i])) continue;
    TChessboard child;
    if (!movemaking::MakeSuccessor(board, moves[i], child)) continue;
    const auto value = ExactValue(child);
    if (!value) return std::nullopt;
    successors.emplace_back(moves[i], *value);
  }
  std::uint8_t result;
  if (successors.empty()) {
    result = !bWhite && board.IsBlackInCheck() ? 0 : tablevalue::kNoMate;
  } else if (bWhite) {
    std::uint8_t least = tablevalue::kNoMate;
    for (const auto& [move, value] : successors) least = std::min(least, value);
    result =
        tablevalue::IsMate(least) && least < tablevalue::kMaxMate ? least + 1 : tablevalue::kNoMate;
  } else {
    result = 0;
    for (const auto& [move, value] : successors) result = std::max(result, value);
  }
  if (best != nullptr) {
    const std::uint8_t kept = bWhite && tablevalue::IsMate(result) ? result - 1 : result;
    for (const auto& [move, value] : successors)
      if (value == kept) best->push_back(move);
  }
  return result;
}

bool CTableLookup::MakeBoard(const TTableMaterial& material, const SquareIndex* squares,
                             bool bWhiteToMove, TChessboard& board) {
  ClearChessboard(board);
  for (int i = 0; i < material.Count(); ++i) board.squares[squares[i]] = material.Piece(i);
  board.ply = board.rootPlies = bWhiteToMove ? kWhitePly : kWhitePly - 1;
  return TryAnalyse(board, true);
}
