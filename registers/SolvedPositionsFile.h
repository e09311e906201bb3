#pragma once
#include <filesystem>

#include "core/ChessboardId.h"

// Where the register keeps what it proved for a problem: one file per start position,
// named after its placement, in a folder of the working folder.
namespace solvedpositions {

inline constexpr const char* kFolder = "SolvedProblemsDB";
inline constexpr const char* kExtension = ".cspdb";

// "SolvedProblemsDB/<placement>.cspdb", relative to the working folder.
std::filesystem::path FileName(const TChessboardId& id);

}  // namespace solvedpositions
