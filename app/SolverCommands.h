#pragma once
// The commands a running solve takes beyond stop, pause and resume.

// The manual reordering of the first-level moves (EnableManualEngineControl).
enum class EManualCommand { ShiftCurrentMoveToEnd, SwapCurrentWithNext, SkipToNextMove };

template <typename TSolver>
void ApplyManualCommand(TSolver& solver, EManualCommand command) {
  switch (command) {
    case EManualCommand::ShiftCurrentMoveToEnd:
      solver.ShiftCurrentMoveToEnd();
      break;
    case EManualCommand::SwapCurrentWithNext:
      solver.SwapCurrentWithNext();
      break;
    case EManualCommand::SkipToNextMove:
      solver.SkipToNextMove();
      break;
  }
}
