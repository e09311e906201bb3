#pragma once
// The passes of one solve and the settings each runs with, decided before any thread starts.
#include <memory>
#include <optional>
#include <vector>

#include "app/SolvingRequest.h"
#include "app/ThreadSettings.h"
#include "engine/HeuristicChoice.h"
#include "engine/MateGoal.h"
#include "problems/Problem.h"

struct TSolvingPlanSettings {
  ESolvingMode solvingMode = ESolvingMode::SingleSolution;
  TThreadSettings threads = {};
  bool bQuickMode = true;      // the QuickMode setting
  bool bMirrorSwitch = false;  // also run the mirrored pass where the problem allows it
  // A set named by hand; the problem's settings and the position decide when not given.
  std::optional<heuristicchoice::TNamedSet> heuristics = std::nullopt;
  bool bPass2 = true;  // run the pass without heuristics
  // Let the automatic passes hold black pieces once their king has shut them in.
  bool bDynamicDlfu = true;
};

// Pass 0 on the position as given and pass 1 on it mirrored left to right. NOMIRROR drops
// pass 1 and MIRRORONLY pass 0. Where castling is possible the mirrored position is another
// problem (castling only ever starts from the e-file), so pass 1 is dropped unless the
// problem asks for the mirror alone.
std::vector<std::unique_ptr<SolvingRequest>> PlanSolvingPasses(
    const TProblem& problem, const TSolvingPlanSettings& settings);

// What White plays for in a problem with a stipulation (direct mate or selfmate).
EMateGoal GoalOf(const TProblem& problem);

// With quick mode on, a pass runs safe only when the problem says SAFEMODE or its kind of
// position forces safe mode; with quick mode off, every pass runs safe.
bool RunsInSafeMode(const TProblem& problem, bool bQuickMode);

// The thread settings the problem's THREADS option asks for when they differ from the
// configured ones. The number after '^' gives the levels (as in "4^2"); without it the levels
// stay as configured. Nothing when the option is missing, agrees, or names an inadmissible
// total.
std::optional<TThreadSettings> ForcedThreadSettings(const TProblem& problem,
                                                    const TThreadSettings& configured);
