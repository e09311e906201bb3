#pragma once
// The direct mates of the reference data as the engine tests use them: a row's start
// position and published keys, and keys compared as texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "TestData.h"
#include "core/Fen.h"
#include "core/Notation.h"

namespace matetest {

// The reference data writes some captures with '-': moves compare by their squares.
inline std::string Plain(std::string move) {
  std::replace(move.begin(), move.end(), ':', '-');
  return move;
}

// The moves as plain texts, sorted when asked.
inline std::vector<std::string> Texts(const TChessboard& board, const std::vector<TMove>& moves,
                                      bool bSorted = false) {
  std::vector<std::string> texts;
  for (TMove move : moves) texts.push_back(Plain(notation::MoveToText(board, move)));
  if (bSorted) std::sort(texts.begin(), texts.end());
  return texts;
}

inline std::vector<std::string> PublishedKeys(const testdata::TRow& row) {
  std::vector<std::string> keys = testdata::Split(row.at("keys"), " ,");
  for (auto& key : keys) key = Plain(key);
  std::sort(keys.begin(), keys.end());
  return keys;
}

inline int Moves(const testdata::TRow& row) {
  return std::stoi(row.at("n"));
}

// A position read from FEN as the root of a line with ply plies left.
inline TChessboard Board(const std::string& fenText, std::uint16_t ply) {
  TChessboard board;
  ClearChessboard(board);
  EXPECT_TRUE(fen::ReadFen(board, fenText)) << fenText;
  board.ply = board.rootPlies = ply;
  return board;
}

// The row's position as the root of its stipulation.
inline TChessboard Root(const testdata::TRow& row) {
  return Board(row.at("fen"), static_cast<std::uint16_t>(2 * Moves(row) - 1));
}

inline testdata::TRow Row(const std::string& id) {
  for (const auto& row : testdata::ReadTsv("directmates.tsv"))
    if (row.at("id") == id) return row;
  throw std::runtime_error("no direct mate " + id + " in the reference data");
}

// The rows a quick reference solver solved within the given seconds.
inline std::vector<testdata::TRow> QuickRows(double maxSeconds, int nMinMoves = 1) {
  std::vector<testdata::TRow> rows;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    const std::string& seconds = row.at("popeye_seconds");
    if (!seconds.empty() && std::stod(seconds) <= maxSeconds && Moves(row) >= nMinMoves)
      rows.push_back(row);
  }
  return rows;
}

}  // namespace matetest
