// Problems taken from another file into the open collection, or taken out of it because the
// other file holds them already, and the other file's tags added to the same problems here.
#include <map>
#include <set>

#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "core/Fen.h"

namespace {

// Two problems are the same when their start positions, side to move and castling and en
// passant rights included, and their stipulations are.
std::string Identity(const TProblem& problem) {
  return fen::WriteFullFen(problem.start) + ' ' + problem.stipulation.Text();
}

}  // namespace

bool CMainWindow::ReadOtherFile(const QString& path, TProblemCollection& other,
                                QStringList& notes) {
  if (ReadProblemsFile(path, other, notes)) return true;
  ShowMessage(WindowText("Warning"), notes.join("\n"));
  return false;
}

// The other file's problems keep their order and are numbered on from the last problem.
int CMainWindow::AppendProblems(const QString& path) {
  TProblemCollection other;
  QStringList notes;
  if (!ReadOtherFile(path, other, notes)) return -1;
  int id = collection.Empty() ? 0 : collection.Problems().rbegin()->first;
  const int nFirst = id + 1;
  std::vector<int> ids;
  for (const auto& [nId, problem] : other.Problems()) ids.push_back(nId);
  for (int nId : ids) {
    std::unique_ptr<TProblem> problem = other.Take(nId);
    problem->id = ++id;
    collection.Put(std::move(problem));
  }
  const int nAdded = id - nFirst + 1;
  if (nAdded > 0) {
    SetModified(true);
    ShowProblem(nFirst);
  }
  notes.prepend(WindowText("Problems appended: %1.").arg(nAdded));
  ShowMessage(WindowText("Information"), notes.join("\n"));
  return nAdded;
}

// The problem being solved stays, whatever the other file holds.
int CMainWindow::RemovePresentProblems(const QString& path) {
  TProblemCollection other;
  QStringList notes;
  if (!ReadOtherFile(path, other, notes)) return -1;
  std::set<std::string> present;
  for (const auto& [id, problem] : other.Problems()) present.insert(Identity(*problem));
  std::vector<int> removed;
  for (const auto& [id, problem] : collection.Problems())
    if (present.count(Identity(*problem)) && !(IsSolving() && id == nSolvingId))
      removed.push_back(id);
  for (int id : removed) collection.Remove(id);
  if (!removed.empty()) {
    SetModified(true);
    ShowProblem();
  }
  notes.prepend(WindowText("Problems removed: %1.").arg(removed.size()));
  ShowMessage(WindowText("Information"), notes.join("\n"));
  return static_cast<int>(removed.size());
}

// Each problem here gets the tags of the problems there with its position and stipulation.
int CMainWindow::AppendTags(const QString& path) {
  TProblemCollection other;
  QStringList notes;
  if (!ReadOtherFile(path, other, notes)) return -1;
  std::map<std::string, std::set<std::string>> tagsOf;
  for (const auto& [id, problem] : other.Problems())
    tagsOf[Identity(*problem)].insert(problem->tags.begin(), problem->tags.end());
  int nTagged = 0;
  for (const auto& [id, problem] : collection.Problems()) {
    const auto found = tagsOf.find(Identity(*problem));
    if (found == tagsOf.end()) continue;
    const std::size_t nBefore = problem->tags.size();
    problem->tags.insert(found->second.begin(), found->second.end());
    if (problem->tags.size() > nBefore) ++nTagged;
  }
  if (nTagged > 0) {
    SetModified(true);
    ShowDescription(CurrentProblem());
  }
  notes.prepend(WindowText("Problems with tags appended: %1.").arg(nTagged));
  ShowMessage(WindowText("Information"), notes.join("\n"));
  return nTagged;
}
