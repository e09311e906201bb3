#include "engine/RegisterBinding.h"

#include "core/ChessboardId.h"
#include "engine/RegisterKey.h"
#include "registers/SolvedPositionsFile.h"

bool BindRegisterToProblem(TChessboardRegister<bool>& reg, const TChessboard& start,
                           const std::filesystem::path& workingFolder) {
  return reg.BindToProblem(registerkey::Build(start),
                           workingFolder / solvedpositions::FileName(TChessboardId(start)));
}

void AdoptRegisterProblem(TChessboardRegister<bool>& reg, const TChessboard& start,
                          const std::filesystem::path& workingFolder) {
  reg.AdoptProblem(registerkey::Build(start),
                   workingFolder / solvedpositions::FileName(TChessboardId(start)));
}
