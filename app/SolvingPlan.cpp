#include "app/SolvingPlan.h"

#include "core/BoardTransforms.h"
#include "engine/HeuristicChoice.h"

namespace {

std::unique_ptr<SolvingRequest> MakeRequest(const TProblem& problem,
                                            const TSolvingPlanSettings& settings, int nMirrorPass) {
  auto request = std::make_unique<SolvingRequest>();
  request->pProblem = &problem;
  request->board = problem.start;
  request->solvingMode = settings.solvingMode;
  request->bSafeMode = RunsInSafeMode(problem, settings.bQuickMode);
  request->threads = settings.threads;
  request->nMirrorPass = nMirrorPass;
  request->bPass2 = settings.bPass2;
  return request;
}

}  // namespace

EMateGoal GoalOf(const TProblem& problem) {
  return problem.stipulation.type == TStipulation::kSelfmate ? EMateGoal::kSelfmate
                                                             : EMateGoal::kDirectMate;
}

bool RunsInSafeMode(const TProblem& problem, bool bQuickMode) {
  return !bQuickMode || problem.HasFlag(option::kSafeMode) ||
         heuristicchoice::ForcesSafeMode(problem.start);
}

std::vector<std::unique_ptr<SolvingRequest>> PlanSolvingPasses(
    const TProblem& problem, const TSolvingPlanSettings& settings) {
  const bool bMirrorOnly = problem.HasFlag(option::kMirrorOnly);
  std::vector<std::unique_ptr<SolvingRequest>> passes;
  if (!bMirrorOnly) passes.push_back(MakeRequest(problem, settings, 0));
  // MIRRORONLY names the mirror explicitly, so it wins over NOMIRROR and the switch.
  if (bMirrorOnly || (!problem.HasFlag(option::kNoMirror) && settings.bMirrorSwitch)) {
    auto mirrored = MakeRequest(problem, settings, 1);
    const bool bCastlingIrrelevant = transforms::MirrorFiles(mirrored->board);
    if (bCastlingIrrelevant || bMirrorOnly) passes.push_back(std::move(mirrored));
  }
  // Chosen from each board as it is solved, so that a mirrored pass has its own. The
  // heuristics judge direct mates only: a selfmate runs the pass without them alone.
  if (GoalOf(problem) == EMateGoal::kSelfmate) return passes;
  for (auto& request : passes)
    request->heuristicPasses = heuristicchoice::PassesFor(
        request->board, problem.stipulation.Moves(), problem.heuristicSettings, settings.heuristics,
        settings.bDynamicDlfu);
  return passes;
}

std::optional<TThreadSettings> ForcedThreadSettings(const TProblem& problem,
                                                    const TThreadSettings& configured) {
  if (problem.nThreads == TProblem::kThreadsNotGiven || problem.nThreads == 0) return std::nullopt;
  TThreadSettings forced{problem.nThreads, configured.nLevels};
  if (problem.nSecondLevelThreads > 0) forced.nLevels = problem.nSecondLevelThreads;
  if (forced.nThreads < 2) forced.nLevels = 1;
  if (forced == configured || !IsAdmissibleThreadTotal(forced.nThreads, forced.nLevels))
    return std::nullopt;
  return forced;
}
