#pragma once
// The commands a running solve takes beyond stop, pause and resume. They reach the solver
// only where it offers them; elsewhere they report that nothing was done, so the session
// and its callers are ready for them before every solver has them.

// The manual reordering of the first-level moves (EnableManualEngineControl).
enum class EManualCommand { ShiftCurrentMoveToEnd, SwapCurrentWithNext, SkipToNextMove };

// Returns whether the solver took the command.
template <typename TSolver>
bool ApplyManualCommand(TSolver& solver, EManualCommand command) {
  switch (command) {
    case EManualCommand::ShiftCurrentMoveToEnd:
      if constexpr (requires { solver.ShiftCurrentMoveToEnd(); }) {
        solver.ShiftCurrentMoveToEnd();
        return true;
      }
      break;
    case EManualCommand::SwapCurrentWithNext:
      if constexpr (requires { solver.SwapCurrentWithNext(); }) {
        solver.SwapCurrentWithNext();
        return true;
      }
      break;
    case EManualCommand::SkipToNextMove:
      if constexpr (requires { solver.SkipToNextMove(); }) {
        solver.SkipToNextMove();
        return true;
      }
      break;
  }
  return false;
}

// Parks the thread of the current move; a solver that cannot park one thread parks them all.
// Returns whether only one was parked.
template <typename TSolver>
bool PauseOneSolverThread(TSolver& solver) {
  if constexpr (requires { solver.PauseOneThread(); }) {
    solver.PauseOneThread();
    return true;
  } else {
    solver.Pause();
    return false;
  }
}

// Hands the levels of the thread settings to a solver whose settings have a place for them.
template <typename TSolverSettings>
void SetSolverLevels(TSolverSettings& settings, unsigned nLevels) {
  if constexpr (requires { settings.nLevels; })
    settings.nLevels = static_cast<decltype(settings.nLevels)>(nLevels);
}
