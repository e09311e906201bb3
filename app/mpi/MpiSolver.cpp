#include "app/mpi/MpiSolver.h"

#include <mpi.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <thread>
#include <vector>

#include "app/FirstMoveShares.h"
#include "app/SolvingEvents.h"
#include "engine/RootSearch.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kLeader = 0;
constexpr int kReportTag = 1;  // a rank to the leader: a move's result, or ready for work
constexpr int kTaskTag = 2;    // the leader to a rank: a move to solve, or the problem is over
constexpr std::int32_t kNone = -1;
// How long a rank without news sleeps before it looks again.
constexpr std::chrono::milliseconds kPollInterval{1};

// The ranks run the same program on machines of one kind: the messages go as plain bytes.
struct TTaskMessage {
  std::int32_t nIndex = kNone;  // of the move among the first moves, kNone: problem over
  std::uint32_t nMoveCode = 0;
};

struct TReportMessage {
  std::int32_t nIndex = kNone;  // kNone: no move solved yet
  std::int32_t bKey = 0;
  std::int32_t bStopped = 0;
  std::uint64_t nPositions = 0;
  char error[240] = {};
};

template <typename T>
void SendTo(int rank, int tag, const T& message) {
  MPI_Send(&message, sizeof(T), MPI_BYTE, rank, tag, MPI_COMM_WORLD);
}

// Open MPI's blocking receive keeps its core busy; a rank waiting for work leaves the core
// to the solving threads of the ranks beside it.
template <typename T>
T ReceiveFrom(int rank, int tag) {
  T message;
  MPI_Request request;
  MPI_Irecv(&message, sizeof(T), MPI_BYTE, rank, tag, MPI_COMM_WORLD, &request);
  for (int bDone = 0; MPI_Test(&request, &bDone, MPI_STATUS_IGNORE), bDone == 0;)
    std::this_thread::sleep_for(kPollInterval);
  return message;
}

bool HasMessage(int rank, int tag) {
  int bFlag = 0;
  MPI_Iprobe(rank, tag, MPI_COMM_WORLD, &bFlag, MPI_STATUS_IGNORE);
  return bFlag != 0;
}

TReportMessage ToMessage(int index, const TShareResult& result) {
  TReportMessage message{.nIndex = index,
                         .bKey = result.bKey ? 1 : 0,
                         .bStopped = result.bStopped ? 1 : 0,
                         .nPositions = result.nPositions};
  const std::size_t nLength = std::min(result.sError.size(), sizeof(message.error) - 1);
  std::memcpy(message.error, result.sError.data(), nLength);
  return message;
}

TShareResult FromMessage(const TReportMessage& message) {
  return {.bKey = message.bKey != 0,
          .nPositions = message.nPositions,
          .bStopped = message.bStopped != 0,
          .sError = std::string(message.error, strnlen(message.error, sizeof(message.error)))};
}

TShareResult ResultOf(const CSolvingSession& session) {
  const TSolvingResult& result = session.Requests().front()->result;
  return {.bKey = !result.keys.empty(),
          .nPositions = result.nPositions,
          .bStopped = result.bStopped || !result.bRun,
          .sError = result.sError};
}

// The order of the problem restricted to one first move, for the position as given.
TSolveOrder MoveOrder(const TSolveOrder& order, TMove move) {
  TSolveOrder one = order;
  one.bMirrorSwitch = false;
  one.onlyFirstMoves = {move};
  return one;
}

// A rank other than the leader: solves the moves it is given until the problem is over.
void Serve(CSolvingSession& session, const TSolveOrder& order) {
  SendTo(kLeader, kReportTag, TReportMessage{});
  for (;;) {
    const auto task = ReceiveFrom<TTaskMessage>(kLeader, kTaskTag);
    if (task.nIndex == kNone) return;
    TShareResult result;
    if (const auto refusal = session.Start(MoveOrder(order, TMove::FromCode(task.nMoveCode)))) {
      result.sError = *refusal;
    } else {
      session.Wait({.bQuiet = true});
      result = ResultOf(session);
    }
    SendTo(kLeader, kReportTag, ToMessage(task.nIndex, result));
  }
}

// The leader's side of one problem: its own solves run in the session's thread while it
// answers the other ranks.
class CLeader {
 public:
  CLeader(CSolvingSession& solvingSession, const TSolveOrder& solveOrder, int nRanks)
      : session(solvingSession),
        order(solveOrder),
        shares(solveOrder.pProblem->start,
               MaxSolutions(SolvingModeOf(*solveOrder.pProblem, solveOrder.bFindAll))),
        bServing(static_cast<std::size_t>(nRanks), true) {
    bServing[kLeader] = false;
  }

  TSharesOutcome Run() {
    while (bOwnWork || local || std::ranges::any_of(bServing, [](bool b) { return b; })) {
      bool bNews = StepOwnWork();
      for (int rank = 1; rank < static_cast<int>(bServing.size()); ++rank)
        if (bServing[rank] && HasMessage(rank, kReportTag)) {
          Answer(rank);
          bNews = true;
        }
      if (!bNews) std::this_thread::sleep_for(kPollInterval);
    }
    return shares.Outcome();
  }

 private:
  // Collects the leader's own move once solved and starts the next; returns whether
  // anything changed.
  bool StepOwnWork() {
    if (local) {
      if (session.IsRunning()) return false;
      session.Wait({.bQuiet = true});
      shares.Settle(*local, ResultOf(session));
      local.reset();
    }
    if (!bOwnWork) return false;
    const auto next = shares.Take();
    if (!next) {
      bOwnWork = false;
      return true;
    }
    if (const auto refusal = session.Start(MoveOrder(order, shares.Move(*next))))
      shares.Settle(*next, {.sError = *refusal});
    else
      local = next;
    return true;
  }

  // Takes a rank's report and gives it the next move, or tells it the problem is over.
  void Answer(int rank) {
    const auto report = ReceiveFrom<TReportMessage>(rank, kReportTag);
    if (report.nIndex != kNone) shares.Settle(report.nIndex, FromMessage(report));
    TTaskMessage task;
    if (const auto next = shares.Take())
      task = {.nIndex = *next, .nMoveCode = shares.Move(*next).Code()};
    else
      bServing[rank] = false;
    SendTo(rank, kTaskTag, task);
  }

  CSolvingSession& session;
  const TSolveOrder& order;
  CFirstMoveShares shares;
  std::vector<bool> bServing;  // the ranks not yet told the problem is over
  bool bOwnWork = true;        // the leader may take a further move
  std::optional<int> local;    // the move the leader's session solves
};

std::unique_ptr<SolvingRequest> PassOf(const CSolvingSession& session, const TSolveOrder& order) {
  const TProblem& problem = *order.pProblem;
  auto pass = std::make_unique<SolvingRequest>();
  pass->pProblem = &problem;
  pass->board = problem.start;
  pass->solvingMode = SolvingModeOf(problem, order.bFindAll);
  pass->threads = order.threads.value_or(session.DefaultThreads());
  pass->result.bRun = true;
  return pass;
}

}  // namespace

CMpiSolver::CMpiSolver() {
  int nProvided = 0;
  // Only the main thread of a rank talks to the others; the solving threads never do.
  if (MPI_Init_thread(nullptr, nullptr, MPI_THREAD_FUNNELED, &nProvided) != MPI_SUCCESS)
    throw std::runtime_error("MPI could not be started");
  MPI_Comm_rank(MPI_COMM_WORLD, &nRank);
  MPI_Comm_size(MPI_COMM_WORLD, &nRanks);
}

CMpiSolver::~CMpiSolver() {
  MPI_Finalize();
}

std::unique_ptr<SolvingRequest> CMpiSolver::Solve(CSolvingSession& session,
                                                  const TSolveOrder& order) {
  // The moves shared are White's first moves of a direct mate as given: every rank skips
  // the other problems alike.
  const TProblem& problem = *order.pProblem;
  if (problem.stipulation.type != TStipulation::kDirectMate ||
      problem.HasFlag(option::kMirrorOnly)) {
    if (!IsLeader()) return nullptr;
    auto pass = PassOf(session, order);
    pass->result.sError = "--mpi shares the first moves of direct mates as given only";
    pass->MarkDone();
    return pass;
  }
  if (!IsLeader()) {
    Serve(session, order);
    return nullptr;
  }
  const auto start = Clock::now();
  const TSharesOutcome outcome = CLeader(session, order, nRanks).Run();
  auto pass = PassOf(session, order);
  TRootOutcome merged;
  merged.result = outcome.result;
  merged.keys = outcome.keys;
  merged.nPositions = outcome.nPositions;
  RecordOutcome(merged, outcome.bStopped, *pass);
  pass->result.sError = outcome.sError;
  pass->result.nElapsedMs =
      std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
  pass->MarkDone();
  return pass;
}
