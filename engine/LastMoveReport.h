#pragma once
// The note shown when the last move the stipulation allows has been made without mate.
#include <string>

#include "core/Chessboard.h"

// position: Black to move with no plies left. "Last move, no mate. ", and when Black is in
// check its legal replies after "Defence: " (one) or "Defences: " (several), separated by
// ", ". In the language the setting picks (0 Polish, 2 Ukrainian, other English).
std::string LastMoveReport(const TChessboard& position, int nLanguageId);
