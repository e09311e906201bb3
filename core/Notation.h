#pragma once
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"

// The long algebraic notation: e2-e4, e4:d5, Ng1-f3, e7-e8Q, d7:c8Q, 0-0, 0-0-0, "-".
namespace notation {

// "e4" for square 28.
std::string SquareToText(SquareIndex s);

// movingType is the type of the piece on from before the move; bCapture says the
// target was occupied (or the pawn took en passant).
std::string MoveToText(TMove move, PieceCode movingType, bool bCapture);
// The text of a move in a position (moving piece and capture read from the board).
std::string MoveToText(const TChessboard& board, TMove move);
// Moves of the same position, each written as MoveToText does, joined by the separator.
std::string MovesToText(const TChessboard& board, const std::vector<TMove>& moves,
                        const char* separator);
// "Ng1-f3", "e7-e8Q", "0-0" without a position; throws ChessException with
// "Empty string", "Improper string length", "Improper full description of move",
// or "Unknown figure letter: X".
TMove FullDescriptionToMove(const std::string& text, bool bWhite);
// Short algebraic notation is refused with "Short notation not supported.".
[[noreturn]] void ReadShortNotation(const std::string& text);

// Parses text against board, checks its shape and makes it into successor. Returns the
// successor, null for a refused text; throws "Invalid move in MakeMove() : " + text for a
// well-formed move the legality test refuses. onMade(moveCode, -1) is called on success.
using TMoveCallback = std::function<void(std::uint32_t, int)>;
TChessboard* MakeMove(const TChessboard& board, const std::string& text, TChessboard& successor,
                      const TMoveCallback& onMade = nullptr);

// Where a move sequence ended: the last position reached (the start itself when no move was
// made) and the text from the first move that could not be made (its move number included),
// empty when every move was made.
struct TMoveSequenceEnd {
  const TChessboard* last;
  std::string_view rest;
};
// "1. e2-e4 e7-e5 2. Ng1-f3": makes the moves one by one into the position line (the
// successor of a position with p plies left goes to line[p], so the line needs board.ply + 1
// slots), stopping at the first refused one.
TMoveSequenceEnd ReadMoveSequence(const TChessboard& board, std::string_view text,
                                  std::span<TChessboard> line);

}  // namespace notation
