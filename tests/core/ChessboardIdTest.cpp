#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>

#include "FenBoard.h"
#include "TestData.h"
#include "core/ChessException.h"
#include "core/ChessboardId.h"

using testing::StrEq;
using testing::ThrowsMessage;

TEST(ChessboardId, TwoKingsTakeSeventyTwoBitsInAKnownText) {
  const TChessboardId id(ReadBoard("4k3/8/8/8/8/8/8/4K3"));
  EXPECT_EQ(id.BitCount(), 72);
  EXPECT_EQ(id.ToAlphanum6(), "g000000000M0");
  EXPECT_EQ(id.ToAlphanum5(), "g00000000000g10");
  EXPECT_EQ(id.FileBaseName(), "g000000000M0.72");
}

TEST(ChessboardId, ReferencePositionsDecodeToTheirSquares) {
  for (const std::string file : {"perft.tsv", "directmates.tsv"}) {
    for (const auto& row : testdata::ReadTsv(file)) {
      const TChessboard board = ReadBoard(row.at("fen"));
      const TChessboardId id(board);
      int nPieces = 0;
      for (PieceCode code : board.squares) nPieces += code != piece::kEmpty;
      EXPECT_EQ(id.BitCount(), 64 + 4 * nPieces);
      PieceCode squares[64];
      id.DecodeTo(squares);
      EXPECT_EQ(std::memcmp(squares, board.squares, 64), 0) << row.at("fen");
      EXPECT_EQ(TChessboardId::FromBits(id.BitCount(), id.Bits()), id);
      EXPECT_EQ(id.ToAlphanum6().size(), (id.BitCount() + 5) / 6u);
      EXPECT_EQ(id.ToAlphanum5().find_first_not_of("0123456789abcdefghijklmnopqrstuv"),
                std::string::npos);
    }
  }
}

TEST(ChessboardId, AFullBoardFillsAllFortyBytes) {
  TChessboard board = ReadBoard("4k3/8/8/8/8/8/8/4K3");
  std::memset(board.squares, piece::kBlackKnight, 64);
  const TChessboardId id(board);
  EXPECT_EQ(id.BitCount(), 320);
  PieceCode squares[64];
  id.DecodeTo(squares);
  EXPECT_EQ(squares[63], piece::kBlackKnight);
}

TEST(ChessboardId, FailuresCarryTheirTexts) {
  const std::uint8_t kings[] = {0x10, 0, 0, 0, 0, 0, 0, 0, 0x03};  // e1 and e8, 72 bits
  const std::uint8_t badShortCode[] = {1 | (12 << 1)};             // a1 with short code 12
  const TChessboard unknown = [] {
    TChessboard board = ReadBoard("4k3/8/8/8/8/8/8/4K3");
    board.squares[0] = 0x43;
    return board;
  }();
  const struct {
    std::function<void()> call;
    const char* text;
  } cases[] = {
      {[&] { TChessboardId{unknown}; }, "Unknown figure code"},
      {[&] { TChessboardId::FromBits(321, kings); }, "Wrong chessboard id"},
      {[&] { TChessboardId::FromBits(-1, kings); }, "Wrong chessboard id"},
      // The bits end inside e1's short code.
      {[&] {
         PieceCode s[64];
         TChessboardId::FromBits(6, kings).DecodeTo(s);
       },
       "Wrong chessboard id"},
      {[&] {
         PieceCode s[64];
         TChessboardId::FromBits(5, badShortCode).DecodeTo(s);
       },
       "Unknown figure short code"},
  };
  for (const auto& c : cases) EXPECT_THAT(c.call, ThrowsMessage<ChessException>(StrEq(c.text)));
  PieceCode squares[64];
  TChessboardId::FromBits(72, kings).DecodeTo(squares);
  EXPECT_EQ(squares[4], piece::kWhiteKing);
  EXPECT_EQ(squares[60], piece::kBlackKing);
}
