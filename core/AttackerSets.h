#pragma once
#include <cstdint>

#include "core/PieceCode.h"

// The pieces of one colour as square sets, beside the board's occupancy, so that an attack
// test is a few set operations instead of a walk along eight rays, and many tests on one
// position share the reading of the board.
class TAttackerSets {
 public:
  TAttackerSets(const PieceCode* squares, PieceCode byColour);

  // Takes the piece on s off the board: a king about to step no longer shields the squares
  // behind it.
  void Lift(SquareIndex s) {
    const std::uint64_t keep = ~(1ULL << s);
    occupied &= keep;
    straightSliders &= keep;
    diagonalSliders &= keep;
  }
  bool Attacks(SquareIndex target) const;

 private:
  std::uint64_t occupied;
  std::uint64_t straightSliders;  // rooks and queens
  std::uint64_t diagonalSliders;  // bishops and queens
  std::uint64_t knights;
  std::uint64_t pawnTargets;  // the squares the pawns attack
  std::uint64_t kingTargets;
};

// The squares s of the array where (squares[s] & mask) == value, as a set.
std::uint64_t SquaresWhere(const PieceCode* squares, PieceCode mask, PieceCode value);
