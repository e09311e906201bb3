#include "engine/TableReduction.h"

#include <bit>
#include <cstdint>

#include "core/MoveGeneration.h"
#include "engine/HeuristicRules.h"
#include "engine/RegisterKey.h"
#include "registers/TableValue.h"

namespace tablereduction {
namespace {

// More men than this are not taken off: every subset of them is probed.
constexpr int kMaxMen = 4;
// The most pieces, kings included, the tables can hold.
constexpr int kMaxTablePieces = 5;
// Below this many plies the search settles the node sooner than the probes.
constexpr std::uint16_t kMinPlies = 3;

int PieceCount(const TChessboard& board) {
  int n = 2;
  for (const std::uint8_t count : board.nPieces) n += count;
  return n;
}

// The black men that may be taken off, written to men; -1 when there are too many.
int TakeableMen(const TChessboard& board, SquareIndex* men) {
  int nMen = 0;
  for (SquareIndex s = 0; s < 64; ++s) {
    const PieceCode code = board.squares[s];
    // A man beside its king may be the self-block the mate needs: it stays.
    if (!piece::IsBlack(code) || heuristicrules::Distance(s, board.BlackKing()) <= 1) continue;
    if (nMen == kMaxMen) return -1;
    men[nMen++] = s;
  }
  return nMen;
}

}  // namespace

bool MayReduce(const TChessboard& board) {
  SquareIndex men[kMaxMen];
  const int nMen = TakeableMen(board, men);
  return nMen > 0 && PieceCount(board) - nMen <= kMaxTablePieces;
}

bool ReducedHasNoMate(const TChessboard& board, CTableProbe& tables) {
  if (board.ply < kMinPlies || movegen::CastlingRights(board) != 0 ||
      registerkey::HasEnPassantRight(board))
    return false;
  SquareIndex men[kMaxMen];
  const int nMen = TakeableMen(board, men);
  const int nMovesLeft = (board.ply + 1) / 2;
  for (unsigned taken = 1; nMen > 0 && taken < 1u << nMen; ++taken) {
    if (PieceCount(board) - std::popcount(taken) > kMaxTablePieces) continue;
    TChessboard reduced = board;
    reduced.parent = nullptr;
    for (int i = 0; i < nMen; ++i)
      if ((taken >> i & 1) != 0) reduced.squares[men[i]] = piece::kEmpty;
    // A man that shielded its king from a check leaves a position that cannot occur.
    if (!TryAnalyse(reduced, false) || reduced.IsBlackInCheck()) continue;
    const auto value = tables.Probe(reduced);
    if (!value || *value == tablevalue::kIllegal) continue;
    if (!tablevalue::IsMate(*value) || *value > nMovesLeft) return true;
  }
  return false;
}

}  // namespace tablereduction
