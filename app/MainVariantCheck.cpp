#include "app/MainVariantCheck.h"

#include <algorithm>
#include <vector>

#include "app/RegressionTexts.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "engine/BestDefence.h"
#include "engine/MateSearch.h"
#include "engine/SearchContext.h"
#include "problems/MainVariant.h"
#include "registers/ChessboardRegister.h"

namespace {

// Room for the searches of a few moves of a variant; the register fills only as needed.
constexpr std::uint32_t kCheckRegisterEntries = 1'000'000;

std::string ErrorText(const char* what, const std::string& expected, const std::string& found) {
  return std::string("Error in ") + what + ":\n\nexpected " + expected + "\nfound " + found;
}

// White's moves from position (White to move) that mate in the moves left.
std::vector<TMove> MatingMoves(const TChessboard& position, SearchContext& context) {
  CMateSearch search(context, position.ply);
  std::vector<TMove> mating;
  TChessboard child;
  for (const TMove move : movemaking::LegalMoves(position)) {
    if (!movemaking::MakeSuccessor(position, move, child)) continue;
    if (search.BlackNode(child) == mate::kMate) mating.push_back(move);
  }
  return mating;
}

std::optional<std::string> AuxMateFailure(const TVariantStep& step, SearchContext& context) {
  const std::vector<TMove> mating = MatingMoves(step.before, context);
  if (std::any_of(mating.begin(), mating.end(),
                  [&](const TMove& move) { return move.SameMove(step.move); }))
    return std::nullopt;
  std::vector<std::string> texts;
  for (const TMove& move : mating) texts.push_back(notation::MoveToText(step.before, move));
  return ErrorText("auxMate", notation::MoveToText(step.before, step.move),
                   regression::FoundText(texts, 0));
}

}  // namespace

std::optional<std::string> MainVariantCheckFailure(const TProblem& problem) {
  const bool bAuxMate = problem.HasFlag(option::kGuiCheck);
  if (!bAuxMate && !problem.HasFlag(option::kGuiCheckBestDefence)) return std::nullopt;
  if (problem.stipulation.type != TStipulation::kDirectMate) return std::nullopt;
  TChessboardRegister<bool> reg(kCheckRegisterEntries);
  SearchContext context;
  context.pRegister = &reg;
  const int nLevels = std::max(1, problem.guiCheckLevel);
  int nBlackMoves = 0;
  bool bKeyMade = false;
  for (const TVariantStep& step : MainVariantSteps(problem)) {
    if (step.before.IsWhiteToMove()) {
      // The key is the solve's to check; the later White moves are the auxiliary mates.
      if (bKeyMade && bAuxMate)
        if (auto failure = AuxMateFailure(step, context)) return failure;
      bKeyMade = true;
      continue;
    }
    if (nBlackMoves++ == nLevels) break;
    const TMove best = FindBestDefence(step.before, context).move;
    if (!best.SameMove(step.move))
      return ErrorText("best defence", notation::MoveToText(step.before, step.move),
                       notation::MoveToText(step.before, best));
  }
  return std::nullopt;
}
