// The regression runs of the Advanced menu: every problem of the open file solved and checked
// in the background by a session of its own, one log line per problem in the progress area,
// Stop after the problem being solved, and the log opened at the end.
#include <QDesktopServices>
#include <QMenu>
#include <QMessageBox>
#include <QUrl>
#include <filesystem>
#include <memory>
#include <vector>

#include "app/Options.h"
#include "app/RegressionLog.h"
#include "app/RegressionRunner.h"
#include "app/SolvingReports.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"

namespace {

// What the run works on: the problems of the file as saved, read again, so that the window may
// go on editing it meanwhile, and a session of its own.
struct TRegressionJob {
  TProblemCollection problems;
  COptions settings;  // as they were at the start: the window may change its own meanwhile
  std::unique_ptr<CSolvingSession> session;
  std::unique_ptr<CRegressionLog> log;
  // The running work's link to the progress area, where the session's notices go (a log that
  // cannot be written, an unusable table). The session speaks only while it solves, which is
  // within the work.
  const CBackgroundTask::CContext* context = nullptr;
};

}  // namespace

void CMainWindow::BuildRegressionCommands(QMenu* advanced) {
  AddCommand(advanced, "Run regression test (solve all problems in the current file)",
             "regressionTest", {}, [this] { RunRegression(false); });
  AddCommand(advanced,
             "Run quick regression test (solve single problem for no longer than 64 sec.)",
             "quickRegressionTest", {}, [this] { RunRegression(true); });
  openLog = [](const QString& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); };
}

void CMainWindow::RunRegression(bool bQuick) {
  if (filePath.isEmpty() || IsSolving() || task->IsRunning()) return;
  const auto answer = QMessageBox::information(
      this, WindowText("Information"),
      WindowText("Regression tests are usually a time-consuming operation (moreover it usually "
                 "requires quite many precalculated/Nalimov data on disk)"),
      QMessageBox::Ok | QMessageBox::Cancel);
  if (answer != QMessageBox::Ok) return;
  auto job = std::make_shared<TRegressionJob>();
  QStringList notes;
  if (!ReadProblemsFile(filePath, job->problems, notes))
    return ShowMessage(WindowText("Warning"), notes.join('\n'));
  job->settings = Options();
  job->session = std::make_unique<CSolvingSession>(
      job->settings, TSessionCallbacks{.onMessage = [notices = job.get()](const std::string& text) {
        if (notices->context) notices->context->Line(QString::fromStdString(text));
      }});
  job->log = std::make_unique<CRegressionLog>(std::filesystem::current_path());
  const QString label = filePath;
  const TThreadSettings runThreads = threads;
  RunTask(
      bQuick ? "Run quick regression test (solve single problem for no longer than 64 sec.)"
             : "Run regression test (solve all problems in the current file)",
      [job, bQuick, label, runThreads](const CBackgroundTask::CContext& context) {
        job->context = &context;
        std::size_t nLines = 0;
        CRegressionRunner runner(*job->session, job->settings, *job->log,
                                 CRegressionRunner::LocalResources(job->settings),
                                 [&context, &nLines](const std::string& text) {
                                   const QString logLine = QString::fromStdString(text).trimmed();
                                   context.Line(logLine);
                                   // A Stop pressed before the run began is given again once it
                                   // goes.
                                   if (context.StopRequested()) CRegressionRunner::RequestStop();
                                   context.Progress(
                                       QString("%1: %2").arg(++nLines).arg(logLine.left(60)), -1);
                                 });
        std::vector<TProblem*> problems;
        for (const auto& [id, problem] : job->problems.Problems())
          problems.push_back(problem.get());
        const TRegressionTally tally = runner.Run(
            problems, {.bQuick = bQuick, .threads = runThreads, .wait = {.bQuiet = true}});
        job->context = nullptr;
        const int nLanguage = job->settings.nLanguageId;
        return QString::fromStdString(
                   EngineEndText(nLanguage, label.toStdString(), tally.bStopped)) +
               "\n" +
               WindowText("Passed %1, failed %2, skipped %3")
                   .arg(tally.nPassed)
                   .arg(tally.nFailed)
                   .arg(tally.nSkipped);
      },
      [this, job] {
        if (openLog) openLog(QString::fromStdString(job->log->Path().string()));
      },
      [job](bool bAtOnce) {
        CRegressionRunner::RequestStop();
        if (bAtOnce) job->session->Stop();
      });
  ShowMessage(WindowText("Information"),
              WindowText("Test results will be written to file RegressionTest.log"));
}
