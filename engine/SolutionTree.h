#pragma once
// The whole solution of a direct mate, not only its key: after each White move every Black
// defence, each with White's shortest continuation, down to mate. Black's best defence comes
// first, so that the first branch all the way down is the main variation.
#include <string>
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"
#include "engine/MateSearch.h"
#include "engine/SearchContext.h"

struct TSolutionDefence;

// A White move and what Black can answer to it.
struct TSolutionMove {
  TMove move{0, 0, 0, 0};
  std::string text = {};  // long notation
  int nMovesToMate = 0;   // White's moves to mate, this one included: 1 when it mates
  bool bCut = false;      // the defences are not listed: the tree reached its size limit
  std::vector<TSolutionDefence> defences = {};  // best defence first, then in generation order
};

struct TSolutionDefence {
  TMove move{0, 0, 0, 0};
  std::string text = {};
  bool bBest = false;
  TSolutionMove answer = {};  // White's shortest mate after it
};

// Key, best defence, White's answer, best defence ... down to mate.
std::vector<const std::string*> MainVariation(const TSolutionMove& key);

// Builds trees over the context's register and run state; the context must not be used by a
// running solve. A stop ends the building with a ChessException.
class CSolutionTreeBuilder {
 public:
  // At most nMaxWhiteMoves White moves are listed per tree; the branches beyond are cut.
  CSolutionTreeBuilder(SearchContext& context, const TChessboard& start, int nMoves,
                       int nMaxWhiteMoves);
  // The tree of a key that mates within the stipulation. Throws ChessException when the key
  // is no legal move or some defence escapes mate in time.
  TSolutionMove Build(TMove key);

 private:
  // Fills step, the White move that led to afterWhite, with Black's defences there.
  void AddDefences(const TChessboard& afterWhite, int nMovesLeft, TSolutionMove& step);
  // White's shortest mate from board (White to move) within nMovesLeft moves; it is made
  // into made.
  TSolutionMove ShortestMate(const TChessboard& board, int nMovesLeft, TChessboard& made);
  void ThrowIfStopped() const;

  SearchContext& context;
  TChessboard root;
  CMateSearch search;
  int nWhiteMovesLeft;  // of the size limit
  const int nMaxWhiteMoves;
};
