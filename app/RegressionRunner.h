#pragma once
// Solves the problems of a file one after the other through a solving session and compares
// every result with what the file records, writing one line per problem (and pass) to the
// regression log. The run state is process-wide: while a run goes, the regression flag is
// set and the solving time limit is the run's; both get their old values back at the end.
#include <atomic>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/Options.h"
#include "app/RegressionLog.h"
#include "app/SolvingSession.h"
#include "app/ThreadSettings.h"
#include "problems/Problem.h"

struct TRegressionState {
  std::atomic<bool> bRunning{false};  // cleared to end a run after the current problem
  std::atomic<int> nSolvingTimeLimitSeconds{kNoTimeLimit};
};
TRegressionState& GetRegressionState();

struct TRegressionSettings {
  bool bQuick = false;  // every solve stops after kQuickTimeLimitSeconds
  bool bMirrorSwitch = false;
  std::optional<TThreadSettings> threads = std::nullopt;  // the session's defaults when not given
  TWaitSettings wait = {};  // progress output; the time limit comes from the run state
};

struct TRegressionTally {
  int nPassed = 0;        // tests ok, and solves of problems that record no solution
  int nFailed = 0;        // failed tests, errors, solves out of time
  int nSkipped = 0;       // requires clauses not satisfied, problems that are not direct mates
  bool bStopped = false;  // the run ended before its last problem
  bool AllPassed() const { return nFailed == 0 && !bStopped; }
};

class CRegressionRunner {
 public:
  static constexpr int kQuickTimeLimitSeconds = 64;

  // Whether a resource that a requires clause names is at hand.
  using TResourceCheck = std::function<bool(const std::string& resource)>;
  // Where every log line goes besides the log (a console); may be empty.
  using TEcho = std::function<void(const std::string& text)>;

  // The resources on this machine: an endgame table of the name in the table folders, or a
  // file or folder of the name in the working folder. Names are compared without case for
  // tables ("KRK", "krk").
  static TResourceCheck LocalResources(const COptions& settings);

  CRegressionRunner(CSolvingSession& session, const COptions& settings, const CRegressionLog& log,
                    TResourceCheck isAvailable, TEcho echo = nullptr);

  // Rotates the log and runs the problems in order. A problem's find-all flag may be cleared
  // for the time of its solve (an all-solutions clause not satisfied); it is set back after.
  TRegressionTally Run(const std::vector<TProblem*>& problems, const TRegressionSettings& run);
  // Ends the run once the problem being solved is done. Any thread may call it.
  static void RequestStop();

 private:
  void RunProblem(TProblem& problem, const TRegressionSettings& run, TRegressionTally& tally);
  // False when the problem was skipped or failed before a solve.
  bool CheckClauses(TProblem& problem, bool& bClearFindAll, TRegressionTally& tally) const;
  void Solve(const TProblem& problem, const TRegressionSettings& run, TRegressionTally& tally);
  void ReportPass(const SolvingRequest& request, TRegressionTally& tally) const;
  bool AllAvailable(const std::set<std::string>& resources) const;
  bool OnlineLookupPossible(const TProblem& problem) const;
  std::string LabelOf(const TProblem& problem, const TRegressionSettings& run) const;
  void Write(const std::string& text) const;

  CSolvingSession& session;
  const COptions settings;
  const CRegressionLog& log;
  const TResourceCheck isAvailable;
  const TEcho echo;
};
