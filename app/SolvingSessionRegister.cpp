#include <string>

#include "app/SolvingSession.h"
#include "core/ChessException.h"
#include "core/ChessboardId.h"
#include "engine/RegisterBinding.h"
#include "engine/RegisterKey.h"
#include "registers/TemporaryRegisterFile.h"

// The commands of the window's menu on the temporary register of the current problem.

namespace {

std::string CountsText(const registerfile::TRegisterFileCounts& counts) {
  return std::to_string(counts.nExact) + " positions, " + std::to_string(counts.nDoubtful) +
         " doubtful.";
}

}  // namespace

std::filesystem::path CSolvingSession::DefaultRegisterFile(const TProblem& problem) {
  return std::filesystem::path(registerfile::kFolder) /
         (TChessboardId(problem.start).FileBaseName() + registerfile::kExtension);
}

std::optional<std::string> CSolvingSession::RegisterCommandRefusal() const {
  if (!tempRegister) return "The session has no temporary register of its own.";
  if (bRunning.load()) return "The temporary register cannot be used while a problem is solved.";
  return std::nullopt;
}

TRegisterCommandResult CSolvingSession::SaveTemporaryRegister(const TProblem& problem) {
  const std::filesystem::path file = DefaultRegisterFile(problem);
  std::error_code ignored;
  std::filesystem::create_directories(file.parent_path(), ignored);
  return SaveTemporaryRegisterAs(problem, file);
}

TRegisterCommandResult CSolvingSession::SaveTemporaryRegisterAs(const TProblem& problem,
                                                                const std::filesystem::path& file) {
  if (const auto refusal = RegisterCommandRefusal()) return {false, *refusal};
  try {
    const auto counts = registerfile::Save(*tempRegister, registerkey::Build(problem.start), file);
    return {true, "Temporary register saved to " + file.string() + ": " + CountsText(counts)};
  } catch (const ChessException& error) {
    return {false, error.what()};
  }
}

TRegisterCommandResult CSolvingSession::ReadTemporaryRegister(const TProblem& problem) {
  return ReadTemporaryRegisterFrom(problem, DefaultRegisterFile(problem));
}

TRegisterCommandResult CSolvingSession::ReadTemporaryRegisterFrom(
    const TProblem& problem, const std::filesystem::path& file) {
  if (const auto refusal = RegisterCommandRefusal()) return {false, *refusal};
  const TChessboardRegisterItem problemKey = registerkey::Build(problem.start);
  try {
    const auto counts = registerfile::Read(*tempRegister, problemKey, file);
    // The register now belongs to the problem, or the next solve would take it for another
    // problem's and empty it.
    AdoptRegisterProblem(*tempRegister, problem.start);
    registerReadFor = problemKey;
    return {true, "Temporary register read from " + file.string() + ": " + CountsText(counts)};
  } catch (const ChessException& error) {
    return {false, error.what()};
  }
}

TRegisterCommandResult CSolvingSession::ClearTemporaryRegister() {
  if (const auto refusal = RegisterCommandRefusal()) return {false, *refusal};
  tempRegister->Clear(false);
  registerReadFor.reset();
  return {true, "Temporary register cleared."};
}
