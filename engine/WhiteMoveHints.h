#pragma once
#include <cstdint>
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"
#include "problems/SortIndication.h"

// A problem's sort indications as the search applies them to White's moves.
//
// Which moves an element speaks of: an element numbered n speaks of White's n-th move
// counted from the problem's start (the key is move 1), at whatever depth the search looks
// at that move; an element without a number speaks of every White move. At a White node
// the elements of its move number come first, then those for any move, each group in the
// order given. Every field an element gives must hold: the piece standing on the from
// square, the from and to squares, capture or not (en passant is a capture), check ("+")
// or double check ("++"), the promotion piece. A field left out (no letter, no from square,
// '-' or no separator, no '+', no promotion letter) holds for any move.
//
// How they order: moves a wanted element names go first, by the first element naming each;
// then the moves no element names; moves a negated element names go last, even when a
// wanted element names them too. Within each band the search's own order holds. Ordering
// decides how soon a key is found, never which moves are keys.
class CWhiteMoveHints {
 public:
  explicit CWhiteMoveHints(const TSortIndications& indications);

  bool IsEmpty() const { return bEmpty; }
  // White's move number at board, counted along the line back to the start (so that a
  // shallower search of the same position, the search's iterative deepening, gets the same
  // number); every move beyond the last numbered element counts as the one after it. 0 when
  // no element applies at board.
  std::uint16_t MoveNumberAt(const TChessboard& board) const;

  // The band of move at a node with the given move number: 0 and up for the wanted
  // elements, then one for the moves no element names, and one after it for unwanted moves.
  // child is the position after move.
  int Band(const TChessboard& board, TMove move, const TChessboard& child,
           std::uint16_t moveNumber) const;

  // Whether move, made in board and giving child, has every field element gives.
  static bool Matches(const TSortIndication& element, const TChessboard& board, TMove move,
                      const TChessboard& child);

 private:
  struct TMoveHints {
    std::vector<TSortIndication> wanted, unwanted;
  };
  const TMoveHints& HintsFor(std::uint16_t moveNumber) const;

  // [n] for White's n-th move (its own elements, then those for any move); [0] for every
  // move beyond the last numbered one.
  std::vector<TMoveHints> byMoveNumber;
  bool bEmpty = true;
};
