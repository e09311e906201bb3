// The stored variants of a problem: the moves played saved as the main variant or under a
// name, shown, played move by move, renamed and removed, from the Variant menu and from the
// variant list pop-up; the comments on the moves; and the variants copied out.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTimer>
#include <QToolButton>

#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "problems/VariantLine.h"

namespace {

constexpr int kAnimationStepMs = 700;

}  // namespace

void CMainWindow::OfferVariantCommands() {
  Offer("Save moves as main variant", "saveMainVariant", {}, [this] { SaveVariant(true); });
  Offer("Save moves as variant...", "saveVariant", {}, [this] {
    if (const auto name = askText(WindowText("Save moves as variant"),
                                  WindowText("Name of the variant:"), QString()))
      SaveVariant(false, *name);
  });
  Offer("Show main variant", "showMainVariant", {}, [this] { ShowVariant(0); });
  Offer("Show variant...", "showVariant", {}, [this] { ShowVariant(AskVariant("Show variant")); });
  Offer("Animate main variant", "animateMainVariant", {}, [this] { AnimateVariant(0); });
  Offer("Animate variant...", "animateVariant", {},
        [this] { AnimateVariant(AskVariant("Animate variant")); });
  Offer("Stop variant animation", "stopAnimation", {}, [this] { StopAnimation(); });
  Offer("Remove variant...", "removeVariant", {},
        [this] { RemoveVariant(AskVariant("Remove variant")); });
  Offer("Copy variants - short notation", "copyVariantsShort", {}, [this] { CopyVariants(true); });
  Offer("Copy variants - full notation", "copyVariantsFull", {}, [this] { CopyVariants(false); });
  Offer("Add/edit &comment to last move\tright mouseclick", "editComment", {}, [this] {
    if (const auto text = askText(WindowText("Comment"), WindowText("Comment to the last move:"),
                                  QString::fromStdString(line.Comment())))
      SetMoveComment(*text);
  });
  moveList->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(moveList, &QWidget::customContextMenuRequested, this, [this](const QPoint& where) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName("moveListMenu");
    QAction* comment = AddLabelled(menu, "Add/edit comment to to this move");
    comment->setEnabled(line.MovesPlayed() > 0);
    connect(comment, &QAction::triggered, Action("editComment"), &QAction::trigger);
    menu->addSeparator();
    AddVariantList(menu);
    menu->popup(moveList->mapToGlobal(where));
  });
}

// The variant list pop-up: the Variant menu's commands, and renaming.
void CMainWindow::AddVariantList(QMenu* menu) {
  const std::pair<const char*, const char*> entries[] = {
      {"Save as main variant", "saveMainVariant"},
      {"Save variant as...", "saveVariant"},
      {"Show main variant", "showMainVariant"},
      {"Show variant...", "showVariant"},
      {"Animate main variant (move by move)", "animateMainVariant"},
      {"Animate variant...", "animateVariant"},
      {"Stop animating variant", "stopAnimation"}};
  for (const auto& [label, name] : entries)
    connect(AddLabelled(menu, label), &QAction::triggered, Action(name), &QAction::trigger);
  connect(AddLabelled(menu, "Rename this variant..."), &QAction::triggered, this, [this] {
    const int index = AskVariant("Rename this variant");
    const TProblem* problem = CurrentProblem();
    if (index < 0 || !problem) return;
    const std::string old = variantline::Parse(problem->variants[index]).name;
    if (const auto name = askText(WindowText("Rename this variant"),
                                  WindowText("Name of the variant:"), QString::fromStdString(old)))
      RenameVariant(index, *name);
  });
  connect(AddLabelled(menu, "Remove variant..."), &QAction::triggered, Action("removeVariant"),
          &QAction::trigger);
}

// The variant chosen from the current problem's list, the main one named so; -1 for none.
int CMainWindow::AskVariant(const char* title) {
  const TProblem* problem = CurrentProblem();
  if (!problem || problem->variants.empty()) {
    ShowMessage(WindowText("Information"), WindowText("The problem has no stored variants."));
    return -1;
  }
  QStringList items;
  for (const std::string& variant : problem->variants)
    items << (items.isEmpty() ? WindowText("Main variant: ") : QString()) +
                 QString::fromStdString(variantline::Title(variant));
  return chooseItem(WindowText(title), items);
}

bool CMainWindow::SaveVariant(bool bMain, const QString& name) {
  TProblem* problem = CurrentProblem();
  if (!problem || bSettingMode || line.MovesPlayed() == 0) {
    ShowMessage(WindowText("Information"), WindowText("Play the moves of the variant first."));
    return false;
  }
  std::string text =
      variantline::Compose(bMain ? std::string() : name.toStdString(), line.MoveListText());
  if (bMain && !problem->variants.empty())
    problem->variants.front() = std::move(text);
  else
    problem->variants.push_back(std::move(text));
  SetModified(true);
  ShowDescription(problem);
  return true;
}

bool CMainWindow::ShowVariant(int index) {
  const TProblem* problem = CurrentProblem();
  if (!problem || bSettingMode || index < 0 || index >= static_cast<int>(problem->variants.size()))
    return false;
  StopAnimation();
  line.Reset(problem->start);
  line.PlayText(problem->variants[index]);
  ShowPosition();
  return true;
}

// The variant's moves are read on a line of their own, then played one a tick from the start.
bool CMainWindow::AnimateVariant(int index) {
  const TProblem* problem = CurrentProblem();
  if (!problem || bSettingMode || index < 0 || index >= static_cast<int>(problem->variants.size()))
    return false;
  TPlayedLine variant;
  variant.Reset(problem->start);
  variant.PlayText(problem->variants[index]);
  animatedMoves.clear();
  for (; variant.MovesPlayed() > 0; variant.Back())
    animatedMoves.emplace_back(variant.Current().lastMove, variant.Comment());
  std::reverse(animatedMoves.begin(), animatedMoves.end());
  nAnimated = 0;
  line.Reset(problem->start);
  ShowPosition();
  animation->start(kAnimationStepMs);
  return true;
}

void CMainWindow::AnimationStep() {
  if (nAnimated >= animatedMoves.size() || !line.Play(animatedMoves[nAnimated].first)) {
    StopAnimation();
    return;
  }
  line.SetComment(animatedMoves[nAnimated++].second);
  ShowPosition();
}

void CMainWindow::StopAnimation() {
  animation->stop();
  animatedMoves.clear();
  nAnimated = 0;
}

bool CMainWindow::IsAnimating() const {
  return animation->isActive();
}

bool CMainWindow::RenameVariant(int index, const QString& name) {
  TProblem* problem = CurrentProblem();
  if (!problem || index < 0 || index >= static_cast<int>(problem->variants.size())) return false;
  std::string& variant = problem->variants[index];
  variant = variantline::Compose(name.toStdString(), variantline::WithoutName(variant));
  SetModified(true);
  ShowDescription(problem);
  return true;
}

bool CMainWindow::RemoveVariant(int index) {
  TProblem* problem = CurrentProblem();
  if (!problem || index < 0 || index >= static_cast<int>(problem->variants.size())) return false;
  problem->variants.erase(problem->variants.begin() + index);
  SetModified(true);
  ShowDescription(problem);
  return true;
}

bool CMainWindow::SetMoveComment(const QString& text) {
  if (line.MovesPlayed() == 0 || bSettingMode) return false;
  line.SetComment(text.simplified().remove('{').remove('}').toStdString());
  ShowPosition();
  return true;
}

// Every stored variant, one a line, the main one first, in the notation asked for.
void CMainWindow::CopyVariants(bool bShort) {
  const TProblem* problem = CurrentProblem();
  if (!problem) return;
  QStringList lines;
  for (const std::string& variant : problem->variants) {
    TPlayedLine moves;
    moves.Reset(problem->start);
    moves.PlayText(variant);
    lines << QString::fromStdString(
        variantline::Compose(variantline::Parse(variant).name, moves.MoveListText(bShort)));
  }
  QApplication::clipboard()->setText(lines.join('\n'));
}
