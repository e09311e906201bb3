// The problem search: the dialog, the set of problems found that F3 and Shift+F3 walk
// through with its status text, the positions like the one shown, and the search by
// heuristics, which is confirmed first and goes through the collection in steps of the event
// loop (it reads the collection the window edits, so it stays on the GUI thread) with a Stop
// button.
#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <filesystem>

#include "app/ProblemSearch.h"
#include "app/SearchReport.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/ProblemSearchDialog.h"

namespace {

// Problems matched per step of a search by heuristics.
constexpr std::size_t kProblemsPerStep = 20;

QString LinesText(const std::vector<std::string>& lines) {
  QStringList texts;
  for (const std::string& line : lines) texts << WindowText(line.c_str());
  return texts.join('\n');
}

}  // namespace

void CMainWindow::OfferSearchCommands() {
  Offer("Find problem...\tCtrl+F", "findProblem", QKeySequence("Ctrl+F"),
        [this] { ShowSearchDialog(); });
  Offer("Find next\tF3", "findNext", QKeySequence("F3"), [this] { FindNext(1); });
  Offer("Find previous\tShift+F3", "findPrevious", QKeySequence("Shift+F3"),
        [this] { FindNext(-1); });
  Offer("Find similar positions", "findSimilar", {}, [this] { FindSimilarPositions(); });
  // The navigation's place in the set found shows in the status line between solves.
  connect(this, &CMainWindow::ProblemShown, this, [this] {
    if (IsSolving() || foundIds.empty()) return;
    statusLine = NavigationText();
    ShowStatusLine();
  });
}

void CMainWindow::ShowSearchDialog() {
  if (collection.Empty() || IsSearching()) return;
  auto* dialog = new CProblemSearchDialog(
      search ? search->Query().criteria : TSearchCriteria{},
      [this](const TSearchCriteria& criteria) { return FindProblems(criteria); }, this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->open();
}

QString CMainWindow::FindProblems(const TSearchCriteria& criteria) {
  if (IsSearching()) return WindowText("A search is running.");
  auto checked = CheckCriteria(criteria);
  if (const auto* refusal = std::get_if<std::string>(&checked)) return WindowText(refusal->c_str());
  const bool bByHeuristics = !criteria.heuristics.empty();
  if (bByHeuristics && IsSolving())
    return WindowText(
        "Problem solving is pending - search by heuristics is unavailable until solving is "
        "complete.");
  if (bByHeuristics &&
      QMessageBox::question(this, WindowText("Question"),
                            WindowText("Search by heuristics is selected - such search may be "
                                       "time-consuming. Do you want to continue?")) !=
          QMessageBox::Yes)
    return WindowText("The search was not started.");
  search = std::make_shared<CProblemSearch>(std::move(std::get<TSearchQuery>(checked)));
  foundIds.clear();
  if (!bByHeuristics) {
    ShowSearchResult(search->Run(collection));
    return {};
  }
  pendingIds.clear();
  for (const auto& [id, problem] : collection.Problems()) pendingIds.push_back(id);
  std::reverse(pendingIds.begin(), pendingIds.end());  // taken from the back
  searchProgress = new QWidget(this);
  searchProgress->setObjectName("searchProgress");
  auto* row = new QHBoxLayout(searchProgress);
  auto* bar = new QProgressBar(searchProgress);
  bar->setRange(0, static_cast<int>(pendingIds.size()));
  auto* stop = new QPushButton(WindowText("&Stop"), searchProgress);
  stop->setObjectName("stopSearch");
  row->addWidget(new QLabel(WindowText("Search by heuristics"), searchProgress));
  row->addWidget(bar, 1);
  row->addWidget(stop);
  connect(stop, &QPushButton::clicked, this, &CMainWindow::StopSearch);
  statusBar()->addPermanentWidget(searchProgress);
  QTimer::singleShot(0, this, &CMainWindow::SearchStep);
  return {};
}

// A problem removed while the search goes on is passed over.
void CMainWindow::SearchStep() {
  if (!searchProgress) return;
  for (std::size_t n = 0; n < kProblemsPerStep && !pendingIds.empty(); ++n) {
    const TProblem* problem = collection.Find(pendingIds.back());
    if (problem && search->Matches(*problem)) foundIds.push_back(problem->id);
    pendingIds.pop_back();
  }
  auto* bar = searchProgress->findChild<QProgressBar*>();
  bar->setValue(bar->maximum() - static_cast<int>(pendingIds.size()));
  if (!pendingIds.empty()) {
    QTimer::singleShot(0, this, &CMainWindow::SearchStep);
    return;
  }
  FinishSearchSteps();
}

bool CMainWindow::IsSearching() const {
  return searchProgress != nullptr;
}

// What was found so far is kept.
void CMainWindow::StopSearch() {
  if (!searchProgress) return;
  pendingIds.clear();
  FinishSearchSteps();
}

// The problems a search in steps matched, still in the collection, make its result.
void CMainWindow::FinishSearchSteps() {
  delete searchProgress;
  searchProgress = nullptr;
  TSearchResult result;
  for (int id : foundIds)
    if (const TProblem* problem = collection.Find(id)) result.hits.push_back({problem});
  ShowSearchResult(result);
}

// The set to walk, the reports written, the message with the count, and the first problem
// found shown.
void CMainWindow::ShowSearchResult(const TSearchResult& result) {
  foundIds.clear();
  for (const TSearchHit& hit : result.hits) foundIds.push_back(hit.pProblem->id);
  WriteSearchReports(std::filesystem::current_path(), search->Query(), result);
  ShowMessage(WindowText("Information"), LinesText(ResultLines(result)));
  if (!foundIds.empty()) GoToProblem(foundIds.front());
  Q_EMIT SearchFinished();
}

bool CMainWindow::FindNext(int direction) {
  if (foundIds.empty() || bSettingMode) return false;
  const auto at = std::find(foundIds.begin(), foundIds.end(), nCurrentId);
  int index = at == foundIds.end() ? (direction > 0 ? 0 : static_cast<int>(foundIds.size()) - 1)
                                   : static_cast<int>(at - foundIds.begin()) + direction;
  if (index < 0 || index >= static_cast<int>(foundIds.size())) return false;
  return GoToProblem(foundIds[index]);
}

QString CMainWindow::NavigationText() const {
  const auto at = std::find(foundIds.begin(), foundIds.end(), nCurrentId);
  if (at == foundIds.end()) return {};
  return WindowText("Problem %1 of %2 that match criteria")
      .arg(at - foundIds.begin() + 1)
      .arg(foundIds.size());
}

// The positions like the one shown (as played out), the problem shown left out.
void CMainWindow::FindSimilarPositions() {
  if (!CurrentProblem() || IsSearching() || bSettingMode) return;
  TPlacement shown;
  std::copy(std::begin(line.Current().squares), std::end(line.Current().squares), shown.begin());
  TSearchResult result;
  result.hits = CProblemSearch::FindSimilar(shown, collection, nCurrentId);
  result.bSimilarOnly = !result.hits.empty();
  search = std::make_shared<CProblemSearch>(std::get<TSearchQuery>(CheckCriteria({})));
  ShowSearchResult(result);
}
