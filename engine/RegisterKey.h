#pragma once
#include "core/Chessboard.h"
#include "registers/ChessboardRegisterItem.h"

// Register keys of the search: the placement packed in nibbles (32 bytes) and the castling
// rights the line leaves; the side to move follows from the move count's parity.
namespace registerkey {

TChessboardRegisterItem Build(const TChessboard& board);
// The key of board in a selfmate: the same answer means something else there, so its keys
// never meet a direct mate's.
TChessboardRegisterItem BuildSelfmate(const TChessboard& board);
// Whether the side to move could take en passant now: such positions are never looked up
// or filed, because the key does not record that right.
bool HasEnPassantRight(const TChessboard& board);

}  // namespace registerkey
