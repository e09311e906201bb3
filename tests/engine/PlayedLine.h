#pragma once
// A position read from FEN and a line of moves played from it, for the tests of the
// heuristics' predicates.
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "core/Fen.h"
#include "core/MoveMaking.h"

namespace heuristictest {

// Moves are "e2e4" square pairs; the positions stay put, so that each keeps its parent.
class CLine {
 public:
  explicit CLine(const std::string& fenText, std::uint16_t ply = 8) {
    TChessboard& root = positions.emplace_back();
    ClearChessboard(root);
    EXPECT_TRUE(fen::ReadFen(root, fenText)) << fenText;
    // ply is even (Black to move); White to move takes one ply more.
    const bool bWhite = fenText.find(" w ") != std::string::npos;
    root.ply = root.rootPlies = static_cast<std::uint16_t>(bWhite ? ply + 1 : ply);
    root.parent = nullptr;
  }
  const TChessboard& Play(const std::vector<std::string>& moves) {
    for (const std::string& text : moves) {
      const TMove move{static_cast<SquareIndex>((text[0] - 'a') + 8 * (text[1] - '1')),
                       static_cast<SquareIndex>((text[2] - 'a') + 8 * (text[3] - '1')), 0, 0};
      TChessboard child;
      EXPECT_TRUE(movemaking::MakeSuccessor(positions.back(), move, child)) << text;
      positions.push_back(child);
      positions.back().parent = &positions[positions.size() - 2];
    }
    return positions.back();
  }
  const TChessboard& Root() const { return positions.front(); }

 private:
  std::deque<TChessboard> positions;
};

}  // namespace heuristictest
