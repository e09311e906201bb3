#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "core/Chessboard.h"
#include "core/Move.h"

// The short algebraic notation of other chess programs and of EPD files: Nf3, exd5, e8=Q,
// O-O, Rad1, Qh4+, Qxf7#. Longmate's own files keep the long notation; this one is only
// for exchanging positions with other programs.
namespace shortalgebraic {

// The text of a legal move of the side to move, with the fewest disambiguating characters
// and "+" or "#" after a check or a mate. The position needs a ply left to make the move.
std::string MoveToText(const TChessboard& board, TMove move);
// The legal move the text names, or nothing. Accepts what other programs write as well: "x"
// left out, "0-0" for "O-O", "e8Q" for "e8=Q", "+", "#", "!" and "?" in any number after it.
std::optional<TMove> TextToMove(const TChessboard& board, std::string_view text);

}  // namespace shortalgebraic
