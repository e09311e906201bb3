#include "app/ProgramState.h"

ProgramState& GetProgramState() {
  static ProgramState state;
  return state;
}
