#include "app/ui/SolveController.h"

namespace {

// The status line is cut by the window to its width; here it is composed whole.
constexpr std::size_t kUncutWidth = 1000;

QStringList ToStringList(const std::vector<std::string>& lines) {
  QStringList list;
  for (const std::string& line : lines) list << QString::fromStdString(line);
  return list;
}

}  // namespace

// The global register is not part of the snapshot: its item stays empty.
TStatusItems StatusItemsOf(const TPassProgress& progress) {
  TStatusItems items;
  items.sPass = progress.sPass;
  items.sHeuristics = progress.sHeuristics;
  items.bSafeMode = progress.bSafeModeShown;
  items.nMoves = progress.nMoves;
  items.sTypeMark = "#";
  items.nThreads = progress.nThreads;
  items.dPercentDone = progress.dShareDone * 100.0;
  items.nPositions = static_cast<std::int64_t>(progress.nPositions);
  items.nElapsedSeconds = progress.nElapsedSeconds;
  return items;
}

CSolveController::CSolveController(const COptions& settings, QObject* parent) : QObject(parent) {
  // Each callback copies what it was given and queues it for the GUI thread; a call still
  // queued when this object goes is dropped with it.
  TSessionCallbacks callbacks{
      .onProgress =
          [this](const TPassProgress& progress) {
            guiCalls.Post([this, progress] { OnProgress(progress); });
          },
      .onPassFinished =
          [this](const TPassOutcome& outcome) {
            guiCalls.Post(
                [this, lines = ToStringList(outcome.reportLines)] { Q_EMIT PassFinished(lines); });
          },
      .onSolveFinished =
          [this] {
            guiCalls.Post([this] {
              bRunning = bPaused = false;
              Q_EMIT SolveFinished();
            });
          },
      .onMessage =
          [this](const std::string& text) {
            guiCalls.Post(
                [this, message = QString::fromStdString(text)] { Q_EMIT Message(message); });
          },
      // The window cannot ask from the solving thread without waiting on the GUI: the
      // problem's own thread count is taken, as the console does.
      .askForcedThreads = [](const TThreadSettings&, const std::string&) { return true; }};
  session = std::make_unique<CSolvingSession>(settings, std::move(callbacks));
}

CSolveController::~CSolveController() {
  session.reset();  // stops a running solve and joins its thread while this object still lives
}

std::optional<std::string> CSolveController::Start(const TSolveOrder& order) {
  if (bRunning) return std::string("A problem is being solved already.");
  if (auto refusal = session->Start(order)) return refusal;
  bRunning = true;
  bPaused = false;
  lastProgress = {};
  return std::nullopt;
}

void CSolveController::Stop() {
  session->Stop();  // a stop outranks a pause: parked threads see it too
  bPaused = false;
}

void CSolveController::PauseAll() {
  session->PauseAll();
  bPaused = true;
}

bool CSolveController::PauseOneThread() {
  return session->PauseOneThread();
}

void CSolveController::Resume() {
  session->Resume();
  bPaused = false;
}

void CSolveController::OnProgress(const TPassProgress& progress) {
  lastProgress = progress;
  Q_EMIT ProgressChanged(
      QString::fromStdString(ComposeStatusLine(StatusItemsOf(progress), kUncutWidth)));
}
