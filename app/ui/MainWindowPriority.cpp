// The processor-affinity submenu of the Priority menu: one entry per logical processor, checked
// when the process may run on it.
#include <QAction>
#include <QMenu>
#include <algorithm>
#include <vector>

#include "app/platform/Affinity.h"
#include "app/platform/Machine.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"

namespace {

// The mask holds one bit per processor; a machine with more shows the first ones.
constexpr unsigned kMaxAffinityEntries = 64;

void ShowAffinity(const QList<QAction*>& entries) {
  const auto mask = platform::GetProcessAffinityMask();
  for (int i = 0; i < entries.size(); ++i) {
    entries[i]->setEnabled(mask.has_value());
    entries[i]->setChecked(mask && (*mask >> i & 1U) != 0);
  }
}

}  // namespace

void CMainWindow::BuildAffinityMenu(QMenu* priority) {
  QMenu* affinity = AddMenu(priority, "Processor &affinity");
  affinity->setObjectName("affinityMenu");
  const unsigned nProcessors = std::min(
      platform::LogicalProcessorCount(platform::ECountFreshness::Cached), kMaxAffinityEntries);
  for (unsigned i = 0; i < nProcessors; ++i) {
    QAction* entry = affinity->addAction(QString("Procesor %1").arg(i));
    entry->setObjectName(QString("processor%1").arg(i));
    entry->setCheckable(true);
    // The marks as they stand before the toggle tell whether the mask was changed elsewhere.
    connect(entry, &QAction::triggered, this, [this, affinity, i] {
      const QList<QAction*> entries = affinity->actions();
      const auto mask = platform::GetProcessAffinityMask();
      if (!mask) return ShowAffinity(entries);
      std::vector<bool> marks;
      for (QAction* action : entries) marks.push_back(action->isChecked());
      marks[i] = !marks[i];  // the click has already moved this mark
      const platform::TAffinityToggle toggle = platform::ToggleAffinity(*mask, marks, i);
      if (toggle.bChangedOutside)
        ShowMessage(WindowText("Information"),
                    WindowText("Settings were changed outside the program.\nRetry the attempt to "
                               "change settings."));
      else
        platform::SetProcessAffinityMask(toggle.newMask);
      ShowAffinity(entries);
    });
  }
  connect(affinity, &QMenu::aboutToShow, this, [affinity] { ShowAffinity(affinity->actions()); });
  ShowAffinity(affinity->actions());
}
