#pragma once
#include <cstdint>
#include <optional>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"

// SH_ONECOLORPLAYPOSSIBLE: with bishops of opposite colours and no queen or rook, the black
// bishop can never touch a white piece that stands on the other colour, nor guard a square
// of it. White then plays on those squares only: its other moves are left out, which never
// turns a mate found into a false one.
//
// Once every white piece stands on that colour, the black bishop's moves are mere waiting
// moves. The search then plays a reduced game: the bishop is taken off, and Black may pass
// whenever it is not in check. Black has every reply of the real game there (the bishop's
// squares free, a pass for each bishop move), so a mate of the reduced game is a mate of the
// real one, with two provisos kept by the rules below: White still keeps to its colour and
// makes no queen or rook (their lines would cross the bishop's squares), and a reduced node
// where the bishop, trapped in the real game, could block Black's last moves and stalemate
// is doubtful. The reduced positions are marked in their search flags and never meet the
// registers or tables, whose answers hold for the real game.
namespace onecolour {

// Search flags of a reduced position: the mark, and the colour White keeps to.
constexpr std::uint32_t kReducedFlag = 1u << 0;
constexpr std::uint32_t kLightFlag = 1u << 1;

inline bool IsReduced(const TChessboard& board) {
  return (board.searchFlags & kReducedFlag) != 0;
}

// The colour White keeps to in board (true: light squares), nothing when board does not fit:
// one bishop a side on opposite colours, no queen or rook, no black knight, and the chosen
// colour not the black bishop's.
std::optional<bool> PlayColour(const TChessboard& board, EOneColour form);
// after: the position White's move made. Whether the move ends on the other colour while the
// position it was made in fits or is reduced, or makes a queen or rook in the reduced game.
bool WhiteMoveLeavesColour(const TChessboard& after, EOneColour form);

// board: Black to move. Whether Black may pass here: not in check, and either reduced
// already or fitting with every white piece on its colour, no castling right, and a legal
// move of the black bishop (the move the pass stands for).
bool MayPass(const TChessboard& board, EOneColour form);
// Whether a move of board is the black bishop's (replaced by the pass).
bool IsBishopMove(const TChessboard& board, TMove move);
// Builds in child the position after Black's pass in board: the bishop off, White to move.
void MakePass(const TChessboard& board, TChessboard& child, EOneColour form);
// board: reduced, Black to move, not in check. Whether Black's legal moves are none, or all
// blocked by one square of the bishop's colour: a real bishop trapped there would stalemate.
bool MayBeRealStalemate(const TChessboard& board);

}  // namespace onecolour
