// Move text in English and Polish letters, long and short notation. The first line is a FEN
// (the start position when it does not read or is no legal start), the rest a move sequence played
// from it. Every move made is written again and must read back as the same move, in both notations.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "core/ShortAlgebraic.h"

namespace {

constexpr std::uint16_t kPlies = 11;  // White to move, and room for eleven moves

TChessboard Start(std::string_view fenLine) {
  TChessboard board;
  ClearChessboard(board);
  bool bRead = false;
  try {
    bRead = fen::ReadFen(board, std::string(fenLine));
    // As every reader of problems does, positions whose side not to move is in check are
    // refused before a move is read.
    board.ply = board.rootPlies = kPlies;
    if (bRead) fen::CheckStartPosition(board);
  } catch (const ChessException&) {
    bRead = false;
  }
  if (!bRead) {
    ClearChessboard(board);
    fen::ReadFen(board, "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR");
    board.ply = board.rootPlies = kPlies;
  }
  return board;
}

// The move from parent to child, written in each notation, reads back as the same move.
void CheckWrittenMove(const TChessboard& parent, const TChessboard& child) {
  const TMove move = child.lastMove;
  TChessboard again;
  const std::string longText = notation::MoveToText(parent, move);
  if (notation::MakeMove(parent, longText, again) == nullptr) std::abort();
  if (again.lastMove != move) std::abort();
  const std::string shortText = shortalgebraic::MoveToText(parent, move);
  const auto shortMove = shortalgebraic::TextToMove(parent, shortText);
  if (!shortMove || *shortMove != move) std::abort();
}

void TryOneMove(const TChessboard& board, const std::string& text) {
  try {
    notation::FullDescriptionToMove(text, board.IsWhiteToMove());
  } catch (const ChessException&) {
  }
  if (const auto move = shortalgebraic::TextToMove(board, text)) {
    TChessboard after;
    if (notation::MakeMove(board, notation::MoveToText(board, *move), after) == nullptr)
      std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t lineEnd = input.find('\n');
  const std::string_view moves =
      lineEnd == std::string_view::npos ? input : input.substr(lineEnd + 1);
  const TChessboard start = Start(input.substr(0, lineEnd));
  std::array<TChessboard, kPlies + 1> line;
  try {
    const notation::TMoveSequenceEnd end = notation::ReadMoveSequence(start, moves, line);
    for (const TChessboard* child = end.last; child != &start; child = child->parent)
      CheckWrittenMove(*child->parent, *child);
  } catch (const ChessException&) {
  }
  TryOneMove(start, std::string(moves.substr(0, moves.find_first_of(" \n"))));
  return 0;
}
