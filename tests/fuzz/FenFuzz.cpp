// A FEN that reads is written again, and both the placement and the full text written read
// back to the same squares and the same text.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/ChessException.h"
#include "core/Fen.h"

namespace {

// The board of text, or false when it does not read (the position may also be refused).
bool Read(const std::string& text, TChessboard& board) {
  ClearChessboard(board);
  try {
    return fen::ReadFen(board, text);
  } catch (const ChessException&) {
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  TChessboard board;
  fen::TFenExtras extras;
  ClearChessboard(board);
  try {
    if (!fen::ReadFen(board, text, &extras)) return 0;
  } catch (const ChessException&) {
    return 0;
  }
  board.ply = board.rootPlies = extras.bBlackToMove ? 2 : 1;
  fen::ExtrasDifferFromAssumed(board, extras);
  fen::NeedsMaterialWarning(board);
  const std::string placement = fen::WriteShortFen(board);
  for (const std::string& written : {placement, fen::WriteFullFen(board)}) {
    TChessboard again;
    if (!Read(written, again)) std::abort();
    if (std::memcmp(again.squares, board.squares, sizeof board.squares) != 0) std::abort();
    if (fen::WriteShortFen(again) != placement) std::abort();
  }
  return 0;
}
