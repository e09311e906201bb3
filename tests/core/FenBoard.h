#pragma once
// A free-standing position read from FEN (no parent, no line), for tests that make no moves.
#include <cstdint>
#include <string>

#include "core/Chessboard.h"

// Fails the test when the FEN is malformed; ply 1 means White to move.
TChessboard ReadBoard(const std::string& fen, std::uint16_t ply = 1);
