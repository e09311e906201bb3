#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "core/Chessboard.h"

// Node counting over the move generator and the move makers: every leaf is made.
namespace perft {

// A position read from FEN, ready for a perft of some depth. Unlike problems, the side to
// move is the FEN's own field.
class CPerftPosition {
 public:
  // Throws ChessException for a bad FEN ("Improper FEN code" or the analysis' text) and for
  // a position whose side not to move is in check.
  CPerftPosition(const std::string& fenText, int depth);
  const TChessboard& Root() const { return root; }

 private:
  TChessboard root;
};

std::uint64_t Perft(const TChessboard& board, int depth);
// The count under each first move, in generation order.
std::vector<std::pair<TMove, std::uint64_t>> Divide(const TChessboard& board, int depth);

}  // namespace perft
