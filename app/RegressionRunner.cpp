#include "app/RegressionRunner.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <set>

#include "app/AnswerCheck.h"
#include "app/ExpectedSortCheck.h"
#include "app/MainVariantCheck.h"
#include "app/RegressionTexts.h"
#include "app/SolvingReports.h"
#include "app/TablesService.h"
#include "app/ThreadCountLabel.h"
#include "core/Notation.h"

namespace {

// The online tablebase answers positions of at most this many pieces, kings included.
constexpr int kOnlineLookupMaxPieces = 7;

// Sets the run state for the time of a run and gives the old values back after it.
class CRegressionScope {
 public:
  explicit CRegressionScope(int nTimeLimitSeconds)
      : state(GetRegressionState()),
        bWasRunning(state.bRunning.exchange(true)),
        nOldLimit(state.nSolvingTimeLimitSeconds.exchange(nTimeLimitSeconds)) {}
  ~CRegressionScope() {
    state.nSolvingTimeLimitSeconds.store(nOldLimit);
    state.bRunning.store(bWasRunning);
  }
  CRegressionScope(const CRegressionScope&) = delete;
  CRegressionScope& operator=(const CRegressionScope&) = delete;

 private:
  TRegressionState& state;
  const bool bWasRunning;
  const int nOldLimit;
};

// Clears a problem's find-all flag for the time of its solve.
class CFindAllCleared {
 public:
  CFindAllCleared(TProblem& cleared, bool bClear) : problem(cleared), nOldOptions(cleared.options) {
    if (bClear) problem.options &= static_cast<std::uint16_t>(~option::kAllSolutions);
  }
  ~CFindAllCleared() { problem.options = nOldOptions; }
  CFindAllCleared(const CFindAllCleared&) = delete;
  CFindAllCleared& operator=(const CFindAllCleared&) = delete;

 private:
  TProblem& problem;
  const std::uint16_t nOldOptions;
};

std::string UpperCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

std::string RecordedText(const TProblem& problem) {
  std::vector<std::string> moves;
  for (TMove move : problem.answer) moves.push_back(notation::MoveToText(problem.start, move));
  return regression::FoundText(moves, 0);
}

}  // namespace

CRegressionRunner::TResourceCheck CRegressionRunner::LocalResources(const COptions& options) {
  std::set<std::string> tables;
  for (const TTableMaterial& material :
       CTablesService(TablesSettingsFromOptions(options)).TablesOnDisk())
    tables.insert(UpperCase(material.Name()));
  return [tables](const std::string& resource) {
    std::error_code error;
    return tables.contains(UpperCase(resource)) || std::filesystem::exists(resource, error);
  };
}

TRegressionState& GetRegressionState() {
  static TRegressionState state;
  return state;
}

CRegressionRunner::CRegressionRunner(CSolvingSession& solvingSession, const COptions& options,
                                     const CRegressionLog& regressionLog,
                                     TResourceCheck resourceCheck, TEcho echoSink)
    : session(solvingSession),
      settings(options),
      log(regressionLog),
      isAvailable(std::move(resourceCheck)),
      echo(std::move(echoSink)) {}

void CRegressionRunner::RequestStop() {
  GetRegressionState().bRunning.store(false);
}

TRegressionTally CRegressionRunner::Run(const std::vector<TProblem*>& problems,
                                        const TRegressionSettings& run) {
  log.Rotate();
  TRegressionState& state = GetRegressionState();
  const CRegressionScope scope(run.bQuick ? kQuickTimeLimitSeconds
                                          : state.nSolvingTimeLimitSeconds.load());
  TRegressionTally tally;
  for (TProblem* problem : problems) {
    if (!state.bRunning.load()) {
      tally.bStopped = true;
      break;
    }
    RunProblem(*problem, run, tally);
  }
  return tally;
}

void CRegressionRunner::RunProblem(TProblem& problem, const TRegressionSettings& run,
                                   TRegressionTally& tally) {
  bool bClearFindAll = false;
  if (!CheckClauses(problem, bClearFindAll, tally)) return;
  const CFindAllCleared findAll(problem, bClearFindAll);
  if (problem.HasFlag(option::kExpectedSortWhiteMoves)) {
    const auto start = std::chrono::steady_clock::now();
    const auto misplaced =
        MisplacedExpectedMove(problem, settings.bUseMainVariantAsSortIndications);
    const std::string label = LabelOf(problem, run);
    if (misplaced) {
      Write(regression::FailedLine(label, problem.id, "", regression::SortFailedText(*misplaced)));
      ++tally.nFailed;
      return;
    }
    if (problem.HasFlag(option::kExpectedSortWhiteMovesOnly)) {
      const auto nMs = std::chrono::duration_cast<std::chrono::milliseconds>(
                           std::chrono::steady_clock::now() - start)
                           .count();
      Write(regression::SortOnlyOkLine(label, problem.id, nMs));
      ++tally.nPassed;
      return;
    }
  }
  Solve(problem, run, tally);
}

bool CRegressionRunner::CheckClauses(TProblem& problem, bool& bClearFindAll,
                                     TRegressionTally& tally) const {
  const auto Skip = [&](const char* line) {
    Write(line);
    ++tally.nSkipped;
    return false;
  };
  if (!AllAvailable(problem.requiredResources)) return Skip(regression::kRequiresNotSatisfied);
  if (problem.HasFlag(option::kRequiresSyzygy) && !OnlineLookupPossible(problem))
    return Skip(regression::kRequiresSyzygyNotSatisfied);
  if (!problem.HasFlag(option::kAllSolutions)) return true;
  if (!AllAvailable(problem.allSolutionsRequiredResources)) {
    Write(regression::kAllSolutionsRequiresNotSatisfied);
    bClearFindAll = true;
  } else if (problem.HasFlag(option::kAllSolutionsRequiresSyzygy) &&
             !OnlineLookupPossible(problem)) {
    Write(regression::kAllSolutionsRequiresSyzygyNotSatisfied);
    bClearFindAll = true;
  }
  return true;
}

void CRegressionRunner::Solve(const TProblem& problem, const TRegressionSettings& run,
                              TRegressionTally& tally) {
  if (problem.stipulation.type == TStipulation::kMoveLine) {
    Write(regression::ProblemLine(LabelOf(problem, run), problem.id, "",
                                  OnlyMatesText(settings.nLanguageId), 0));
    ++tally.nSkipped;
    return;
  }
  if (const auto refusal = session.Start(
          {.pProblem = &problem, .threads = run.threads, .bMirrorSwitch = run.bMirrorSwitch})) {
    Write(regression::FailedLine(LabelOf(problem, run), problem.id, "", *refusal));
    ++tally.nFailed;
    return;
  }
  TWaitSettings wait = run.wait;
  wait.nTimeLimitSeconds = GetRegressionState().nSolvingTimeLimitSeconds.load();
  const bool bTimedOut = session.Wait(wait) == EWaitOutcome::TimedOut;
  for (const auto& request : session.Requests()) {
    const TSolvingResult& result = request->result;
    if (bTimedOut && (!result.bRun || result.bStopped)) {
      Write(regression::TimeLimitLine(wait.nTimeLimitSeconds));
      ++tally.nFailed;
      return;
    }
    ReportPass(*request, tally);
  }
}

void CRegressionRunner::ReportPass(const SolvingRequest& request, TRegressionTally& tally) const {
  const TProblem& problem = *request.pProblem;
  const TSolvingResult& result = request.result;
  const std::string label =
      ThreadCountLabel(request.threads.nThreads, ThreadLabelModeOf(request.solvingMode));
  const std::string suffix = regression::PassSuffix(request.nMirrorPass);
  const auto Fail = [&](const std::string& line) {
    Write(line);
    ++tally.nFailed;
  };
  if (!result.sError.empty())
    return Fail(regression::FailedLine(label, problem.id, suffix, result.sError));
  if (!result.bRun || result.bStopped)
    return Fail(
        regression::FailedLine(label, problem.id, suffix, ThreadStoppedText(settings.nLanguageId)));
  const std::string found = regression::FoundText(result.keyTexts, request.nMirrorPass);
  switch (CheckAnswer(request)) {
    case EAnswerCheck::NotRecorded:
      Write(regression::ProblemLine(label, problem.id, suffix, found, result.nElapsedMs));
      break;
    case EAnswerCheck::Matched:
      if (request.nMirrorPass == 0)
        if (const auto failure = MainVariantCheckFailure(problem))
          return Fail(regression::FailedLine(label, problem.id, suffix, *failure));
      Write(regression::OkLine(label, problem.id, suffix, result.nElapsedMs));
      break;
    case EAnswerCheck::Mismatched:
      return Fail(
          regression::MismatchLine(label, problem.id, suffix, found, RecordedText(problem)));
  }
  ++tally.nPassed;
}

bool CRegressionRunner::AllAvailable(const std::set<std::string>& resources) const {
  return std::all_of(resources.begin(), resources.end(), [this](const std::string& resource) {
    return isAvailable && isAvailable(resource);
  });
}

bool CRegressionRunner::OnlineLookupPossible(const TProblem& problem) const {
  return (settings.nLichessLevels > 0 || problem.nLichessLevels > 0) &&
         problem.PieceCount() <= kOnlineLookupMaxPieces;
}

std::string CRegressionRunner::LabelOf(const TProblem& problem,
                                       const TRegressionSettings& run) const {
  const TThreadSettings threads = run.threads.value_or(session.DefaultThreads());
  return ThreadCountLabel(threads.nThreads, ThreadLabelModeOf(SolvingModeOf(problem, false)));
}

void CRegressionRunner::Write(const std::string& text) const {
  log.Append(text);
  if (echo) echo(text);
}
