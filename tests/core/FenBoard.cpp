#include "FenBoard.h"

#include <gtest/gtest.h>

#include "core/Fen.h"

TChessboard ReadBoard(const std::string& fen, std::uint16_t ply) {
  TChessboard board;
  ClearChessboard(board);
  EXPECT_TRUE(fen::ReadFen(board, fen)) << fen;
  board.ply = board.rootPlies = ply;
  return board;
}
