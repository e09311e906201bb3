#pragma once
// A position read from FEN together with a line for its successors, for tests that make moves.
#include <span>
#include <string>
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"

class CLinePosition {
 public:
  // Side to move from the FEN's field; plies of headroom for the moves a test makes.
  explicit CLinePosition(const std::string& fen, int plies = 20);
  CLinePosition(const CLinePosition&) = delete;
  CLinePosition& operator=(const CLinePosition&) = delete;

  const TChessboard& Root() const { return root; }
  // The successor of a position with p plies left goes to Line()[p].
  std::span<TChessboard> Line() { return line; }
  // Makes "e2-e4"-style moves given as square pairs ("e2e4", promotion letter optional)
  // from the root; fails the test when one is illegal. Returns the last position.
  const TChessboard& Play(const std::vector<std::string>& moves);

 private:
  TChessboard root;
  std::vector<TChessboard> line;
};

SquareIndex Sq(const char* name);
TMove M(const char* fromTo);     // "e2e4" or "e7e8q"
std::string FromTo(TMove move);  // the inverse of M
// The generated moves of the side to move, as "e2e4"-style texts, in generation order.
std::vector<std::string> MoveTexts(const TChessboard& board, bool bLegalOnly);
