#pragma once
#include <cstdint>
#include <optional>

#include "core/Chessboard.h"

// What the search asks of the endgame tables: the exact value (see tablevalue) of a
// position whose material has a table. The search asks only for positions without castling
// or en passant rights, which the tables do not hold. Safe to call from several threads.
class CTableProbe {
 public:
  virtual ~CTableProbe() = default;
  // Nothing when no table covers the position's material.
  virtual std::optional<std::uint8_t> Probe(const TChessboard& board) = 0;
};
