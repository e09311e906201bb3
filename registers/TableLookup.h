#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "core/Chessboard.h"
#include "registers/EndgameTable.h"

// Values of positions on the core's boards, moves made by the core's own move makers, read
// from whatever tables find gives. Castling is never played: table positions hold no
// castling rights.
class CTableLookup {
 public:
  // The table of a material, or null when there is none.
  using TFind = std::function<const TEndgameTable*(const TTableMaterial&)>;

  explicit CTableLookup(TFind findTable) : find(std::move(findTable)) {}

  // The stored value of the position (any en passant right ignored); nothing without a
  // table. A material in which White has only the king is "no mate".
  std::optional<std::uint8_t> StoredValue(const TChessboard& board) const;
  // The value of a position made by a move in a line: one whose last move gives an en
  // passant right is valued from its own moves.
  std::optional<std::uint8_t> ExactValue(const TChessboard& board) const;
  // The value of a position from the values of its legal moves' successors, and the moves
  // that keep it (for White the quickest mates, for Black the longest defences); nothing
  // when a successor has no table.
  std::optional<std::uint8_t> ValueFromMoves(const TChessboard& board,
                                             std::vector<TMove>* best = nullptr) const;

  // A free-standing board for a table placement, deep enough for any table's mates.
  static bool MakeBoard(const TTableMaterial& material, const SquareIndex* squares,
                        bool bWhiteToMove, TChessboard& board);
  // The plies left of a free-standing board with White to move (Black's is one less).
  static constexpr std::uint16_t kWhitePly = 201;

 private:
  TFind find;
};
