// The MPI solver of a program built without MPI: asking for it says how to get it.
#include <stdexcept>

#include "app/mpi/MpiSolver.h"

CMpiSolver::CMpiSolver() {
  throw std::runtime_error(
      "This longmate was built without MPI: configure it with -DLONGMATE_MPI=ON "
      "(scripts/install-deps.sh --mpi installs Open MPI)");
}

CMpiSolver::~CMpiSolver() = default;

std::unique_ptr<SolvingRequest> CMpiSolver::Solve(CSolvingSession&, const TSolveOrder&) {
  return nullptr;
}
