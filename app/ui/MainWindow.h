#pragma once
// The main window: the board, the problem navigator, the solving controls and the progress
// area, with the menus that route every command. It owns the open collection and its own copy
// of the position shown; the engine is reached through the solve controller only.
#include <QMainWindow>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "app/SearchCriteria.h"
#include "app/ThreadSettings.h"
#include "app/ui/BackgroundTask.h"
#include "app/ui/HeuristicsDialog.h"
#include "app/ui/PlayedLine.h"
#include "app/ui/PositionEdits.h"
#include "core/BoardTransforms.h"
#include "problems/Collection.h"

class CBackgroundTask;
class CBoardView;
class CProblemSearch;
class COptionsDialog;
struct TSearchResult;
class CPiecePalette;
class CSolveController;
class CStepControl;
class QAction;
class QLabel;
class QLayout;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QSystemTrayIcon;
class QTimer;
class QToolButton;

// What a file chooser is asked for.
enum class EFileQuestion {
  kOpen,
  kSaveAs,
  kNewFile,
  kAppend,
  kRemovePresent,
  kSaveRegister,
  kReadRegister,
  kCheckFens
};

class CMainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit CMainWindow(QWidget* parent = nullptr);
  ~CMainWindow() override;

  // Opens a problem file (.cp, or one of the foreign formats by its extension) and shows its
  // first problem; false (with a message) when it cannot be read. Unsaved changes are asked
  // about first.
  bool OpenFile(const QString& path);
  // Saves the collection, in the foreign format the extension names or as a problem file.
  bool SaveFile(const QString& path);
  const QString& FilePath() const { return filePath; }
  bool IsModified() const { return bModified; }
  // Asks what to do with unsaved changes; false when the user cancels.
  bool ConfirmDiscard();
  // Adds the other file's problems after the last one; removes the problems whose position
  // and stipulation the other file holds. The number of problems added or removed, -1 when
  // the file cannot be read.
  int AppendProblems(const QString& path);
  int RemovePresentProblems(const QString& path);
  // The files opened last, the newest first.
  QStringList RecentFiles() const;
  // Picks a file for the question; a file dialog unless replaced. Empty when dismissed.
  std::function<QString(EFileQuestion)> chooseFile;

  // The navigator. Every change of problem is remembered for ViewedBack and ViewedForward
  // (Ctrl+Minus, Ctrl+Plus).
  bool GoToProblem(int id);
  void Step(int direction);
  bool ViewedBack();
  bool ViewedForward();
  int CurrentId() const { return nCurrentId; }
  TProblem* CurrentProblem();

  void StartSolve(bool bFindAll);
  // The heuristics selection dialog, and the solve with what it chose when it is confirmed.
  void AskHeuristicsAndSolve(bool bFindAll);
  void StopSolve();
  bool IsSolving() const;

  // Plays a move on the window's copy of the position; the promotion chooser is asked when
  // several promotions fit.
  bool PlayMove(SquareIndex from, SquareIndex to);
  const TPlayedLine& Line() const { return line; }
  // Picks the promotion piece type among the legal ones; a menu at the cursor unless replaced.
  std::function<PieceCode(const std::vector<PieceCode>&)> choosePromotion;

  void SetSettingMode(bool bOn);
  bool IsSettingMode() const { return bSettingMode; }
  // Sets the position from a FEN or a problem text (the clipboard's content); false with a
  // message when it is neither. bMirror pastes it mirrored left to right.
  bool PastePosition(const QString& text, bool bMirror = false);

  // Relabels every menu in the language (0 Polish, 1 English, 2 Ukrainian), makes the other
  // texts follow it and keeps it as LanguageId in the settings file.
  void SetLanguage(int nLanguageId);
  QAction* Action(const QString& name) const;
  CBoardView* Board() const { return board; }
  QString StatusText() const;
  QString ResultText() const;
  QString MoveListText() const;
  QString DescriptionText() const;

  // The stored variants of the current problem, the main one first: the moves played saved
  // (bMain replaces the main variant, else one more is added under the name), shown, played
  // move by move, renamed and removed. False when there is no such variant or nothing to save.
  bool SaveVariant(bool bMain, const QString& name = {});
  bool ShowVariant(int index);
  bool AnimateVariant(int index);
  void StopAnimation();
  bool IsAnimating() const;
  bool RenameVariant(int index, const QString& name);
  bool RemoveVariant(int index);
  // The comment on the last move played; false when no move is played.
  bool SetMoveComment(const QString& text);
  // The current problem's tags; the tags of the other file's problems added to the problems
  // with the same position and stipulation (the count of problems that got a tag, -1 when the
  // file cannot be read).
  bool AddTag(const QString& tag);
  bool RemoveTag(const QString& tag);
  int AppendTags(const QString& path);
  bool SetDescription(const QString& text);
  // Sets the current problem's sort indications from their text; the error text when it does
  // not read, empty when they were taken.
  QString SetSortIndications(const QString& text);

  // The problem search: the problems found become the set that Find next and Find previous
  // (F3, Shift+F3) walk through. A search by heuristics runs in steps with a Stop button; the
  // others at once. The validation text when the criteria are wrong, empty otherwise.
  QString FindProblems(const TSearchCriteria& criteria);
  bool FindNext(int direction);
  void FindSimilarPositions();
  const std::vector<int>& FoundProblems() const { return foundIds; }
  bool IsSearching() const;
  void StopSearch();
  // "Problem k of n that match criteria", empty when the problem shown is not among them.
  QString NavigationText() const;

  // Solves, then shows the whole solution tree and plays its main variation on the board.
  void SolveWholeMainVariant();
  // Plays Black's best defence in the position played out (Black to move); bThorough
  // searches every defence to the end of the stipulation.
  void FindBestDefence(bool bThorough);
  bool IsTaskRunning() const;
  // The whole solution of the last "Solve and show whole main variant", as shown.
  QString SolutionTreeText() const { return treeText; }
  // The identifier of the position shown, copied to the clipboard and shown.
  QString ShowPositionId();
  // Lists in the result area which FEN codes of a text file of any format are positions of
  // the file's problems; returns the summary line, or the error when the file cannot be read.
  QString CheckFensOf(const QString& path);

  // Asks for a line of text (title, prompt, the text to start with); nothing when dismissed.
  // An input dialog unless replaced.
  std::function<std::optional<QString>(const QString&, const QString&, const QString&)> askText;
  // Picks one of items; -1 when dismissed. A list dialog unless replaced.
  std::function<int(const QString&, const QStringList&)> chooseItem;
  // Starts another program with its arguments, not waiting for it; QProcess unless replaced.
  std::function<bool(const QString&, const QStringList&)> startProgram;
  // Writes the problem shown (the position played out, with the moves left) to a file of its
  // own and starts another copy of the program on it.
  bool OpenInNewInstance();
  // The options dialog; its OK applies the settings at once and writes options.ini.
  void ShowOptions();
  // The long commands (endgame tables, regression runs) run here one at a time.
  CBackgroundTask* Task() const { return task; }
  // The register's counters as the view shows them.
  QString RegisterCountersText() const;
  // Opens the regression log when a run ends; the default application unless replaced.
  std::function<void(const QString&)> openLog;
  // Asks for a number (the index of "Paste position of this type by index"); an input box
  // unless replaced. Nothing when dismissed.
  std::function<std::optional<qulonglong>(const QString&)> askNumber;

 Q_SIGNALS:
  // The window's view of a solve changed: started, or finished with its report shown.
  void SolveStarted();
  void SolveReported();
  void ProblemShown(int id);
  // A search has ended (its result shown), and so has a long command beside the solve.
  void SearchFinished();
  void TaskFinished();
  // A long command ended and its outcome is shown.
  void TaskReported(const QString& outcome);
  // The progress line shows a new report of the solve, or another thread's.
  void ProgressShown();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  // The status line is cut again whenever its label changes width.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildLayout();
  QLayout* BuildNavigator(QWidget* central);
  QLayout* BuildControls(QWidget* central);
  QLayout* BuildLineButtons(QWidget* central);
  void StepLine(int nPlies);
  void BuildMenus();
  void BuildFileMenu();
  void BuildRecentMenu(QMenu* file);
  void BuildPositionMenu();
  void BuildTransformCommands(QMenu* position);
  void BuildProblemMenu();
  void BuildNavigatorCommands(QMenu* problem);
  void BuildOtherMenus();
  void BuildPriorityMenu();
  void BuildAffinityMenu(QMenu* priority);
  void BuildAdvancedMenu();
  void BuildRegisterCommands(QMenu* advanced);
  void BuildRegressionCommands(QMenu* advanced);
  void BuildTablesCommands(QMenu* advanced);
  void BuildTaskArea();
  void ApplyOptions(const COptionsDialog& dialog);
  void RebuildSolver();
  void ShowRegisterCounters(std::uint32_t nElements, std::uint32_t nDoubtful);
  void RefreshRegisterCounters();
  void RunTask(const char* title, CBackgroundTask::TWork work, std::function<void()> onDone = {},
               CBackgroundTask::TStopHook onStop = nullptr);
  void OnTaskFinished(const QString& outcome, bool bStopped);
  void RunRegression(bool bQuick);
  void RunTableCommand(const char* title, int nCommand);
  void StepPositionOfType(int direction);
  void PastePositionByIndex();
  void BuildLanguageMenu();
  void ShowLanguage(int nLanguageId);
  QAction* AddCommand(QMenu* menu, const char* text, const QString& name, const QKeySequence& key,
                      std::function<void()> work);
  void ConnectSolver();

  void ShowProblem(int id);
  void ShowProblem();
  void ShowDescription(const TProblem* problem);
  void ShowPosition();
  void RefreshControls();
  void ShowStatusLine();
  void SetModified(bool bValue);
  void ShowMessage(const QString& title, const QString& text);
  void ChangeStipulation(int delta);
  void OnBoardClick(int square, Qt::MouseButton button);
  void OnBoardDrag(int from, int to);
  void ReportLastMove();
  void OnSolveFinished();
  void ShowKeyMove(TMove key);
  bool LeaveSettingMode();
  void UndoEdit(bool bRedo);
  void CopyFen(bool bFull);
  void CopyProblem(bool bVariants, bool bTags);
  void CopyDiagram();
  void Transform(transforms::ETransform transform);
  void ShiftPosition(int nFiles, int nRanks);
  bool TakeEditedSquares(const TPositionEdits::TSquares& squares);
  bool CanChangeProblem();
  // Reads a problem file or another program's file into problems; the notes on its problems
  // and the error that stopped the reading (the problems before it stay) go to notes. False
  // when nothing could be read.
  static bool ReadProblemsFile(const QString& path, TProblemCollection& problems,
                               QStringList& notes);
  // The same for the other file of append and remove; a warning names what went wrong.
  bool ReadOtherFile(const QString& path, TProblemCollection& other, QStringList& notes);
  bool StepThroughViewed(std::vector<int>& from, std::vector<int>& to);
  void OpenNamedFile(const char* name, bool bCreate);
  QString AskFile(EFileQuestion question);
  void RememberRecent(const QString& path);
  void SaveAs();
  void NewProblem();
  void AskProblemNumber();
  void ShowProblemList();
  void OpenLink(const QString& address);
  void MinimizeToTray();
  void HideTrayIcon();
  void ShowLinkMenu(const QPoint& where);

  // The second step's commands, each group in a file of its own: they take the entries the
  // menus show disabled by their labels.
  void OfferCommands();
  void Offer(const char* label, const QString& name, const QKeySequence& key,
             std::function<void()> work);
  void OfferVariantCommands();
  void AddVariantList(QMenu* menu);
  int AskVariant(const char* title);
  void CopyVariants(bool bShort);
  void AnimationStep();
  void OfferProblemCommands();
  void AskTagToRemove();
  void EditDescription();
  void EditSortIndications();
  void OfferSearchCommands();
  void ShowSearchDialog();
  void SearchStep();
  void FinishSearchSteps();
  void ShowSearchResult(const TSearchResult& result);
  void OfferSolvingExtras();
  void ShowBoardMenu(const QPoint& where);
  // The progress line with the thread to peek at and the size of the progress area, which
  // goes from its normal size to the whole column (the move list hidden), then to nothing,
  // then back.
  QLayout* BuildProgressRow(QWidget* central);
  void StepPeek(int direction);
  void ShowProgress();
  void CycleProgressArea();
  void ShowSolutionTree();
  void OnSideTaskFinished(const QVariant& result, bool bStopped);
  void OfferHelpCommands();
  void OfferPositionCommands();
  void ShowManual();
  void ShowDocument(const QString& resource, const QString& title, bool bMarkdown);
  void ShowThreads();

  TProblemCollection collection;
  QString filePath;
  bool bModified = false;
  int nCurrentId = 0;
  std::vector<int> viewedBefore, viewedAfter;  // the ids left by Ctrl+Minus and Ctrl+Plus
  TPlayedLine line;
  TPositionEdits edits;
  bool bSettingMode = false;
  TThreadSettings threads;
  int nSolvingId = 0;
  std::optional<THeuristicsChoice> heuristicsChoice;  // for the next solve only
  bool bSolverOutdated = false;  // the settings changed during a solve: a new session follows
  CBackgroundTask* task = nullptr;
  std::function<void()> taskDone;  // what follows the running command's end on this thread
  QLabel* taskLabel = nullptr;
  QPushButton* taskStop = nullptr;
  QLabel* registerLabel = nullptr;

  CSolveController* solver = nullptr;
  CBoardView* board = nullptr;
  CPiecePalette* palette = nullptr;
  CStepControl* stipulationControl = nullptr;
  CStepControl* threadControl = nullptr;
  QPushButton* startButton = nullptr;
  QPushButton* problemButton = nullptr;
  QLabel* descriptionLabel = nullptr;
  QLabel* progressLabel = nullptr;
  CStepControl* peekControl = nullptr;
  int nPeekThread = 0;  // the thread whose first move the progress line shows; 0 for all
  QToolButton* progressSizeButton = nullptr;
  QLabel* statusLabel = nullptr;
  QPlainTextEdit* moveList = nullptr;
  QPlainTextEdit* resultView = nullptr;
  QMenu* recentMenu = nullptr;
  QSystemTrayIcon* trayIcon = nullptr;
  QString statusLine;
  QString hoveredLink;  // the description's link under the mouse, empty off the links

  QTimer* animation = nullptr;
  // The animated variant's moves with their comments, and how many are shown.
  std::vector<std::pair<TMove, std::string>> animatedMoves;
  std::size_t nAnimated = 0;
  std::shared_ptr<CProblemSearch> search;  // the search going on in steps
  std::vector<int> foundIds;               // the problems of the last search, in order
  std::vector<int> pendingIds;             // the problems a search in steps has not seen yet
  QWidget* searchProgress = nullptr;
  CBackgroundTask* sideTask = nullptr;  // beside the solve: the solution tree or the best defence
  bool bTreeAfterSolve = false;
  int nInstancesStarted = 0;
  QString treeText;
};
