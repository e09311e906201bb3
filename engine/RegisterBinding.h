#pragma once
#include <filesystem>

#include "core/Chessboard.h"
#include "registers/ChessboardRegister.h"

// Binds the register to the problem whose start position is start: the problem is known by
// the register key of that position, and its solved-positions file lies under workingFolder
// (the current folder when empty). A new problem empties the register and reads its file.
// Returns whether the register changed problems.
bool BindRegisterToProblem(TChessboardRegister<bool>& reg, const TChessboard& start,
                           const std::filesystem::path& workingFolder = {});

// Binds the register to the problem without emptying it, for a register read from a file of
// that problem.
void AdoptRegisterProblem(TChessboardRegister<bool>& reg, const TChessboard& start,
                          const std::filesystem::path& workingFolder = {});
