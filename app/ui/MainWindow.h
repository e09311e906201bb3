#pragma once
// The main window: the board, the problem navigator, the solving controls and the progress
// area, with the menus that route every command. It owns the open collection and its own copy
// of the position shown; the engine is reached through the solve controller only.
#include <QMainWindow>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "app/ThreadSettings.h"
#include "app/ui/PlayedLine.h"
#include "app/ui/PositionEdits.h"
#include "problems/Collection.h"

class CBoardView;
class CPiecePalette;
class CSolveController;
class CStepControl;
class QAction;
class QLabel;
class QLayout;
class QMenu;
class QPlainTextEdit;
class QPushButton;

class CMainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit CMainWindow(QWidget* parent = nullptr);
  ~CMainWindow() override;

  // Opens a problem file and shows its first problem; false (with a message) when it cannot
  // be read. Unsaved changes are asked about first.
  bool OpenFile(const QString& path);
  bool SaveFile(const QString& path);
  const QString& FilePath() const { return filePath; }
  bool IsModified() const { return bModified; }
  // Asks what to do with unsaved changes; false when the user cancels.
  bool ConfirmDiscard();

  // The navigator.
  bool GoToProblem(int id);
  void Step(int direction);
  int CurrentId() const { return nCurrentId; }
  TProblem* CurrentProblem();

  void StartSolve(bool bFindAll);
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
  // message when it is neither.
  bool PastePosition(const QString& text);

  // Relabels every menu in the language (0 Polish, 1 English, 2 Ukrainian), makes the other
  // texts follow it and keeps it as LanguageId in the settings file.
  void SetLanguage(int nLanguageId);
  QAction* Action(const QString& name) const;
  CBoardView* Board() const { return board; }
  QString StatusText() const;
  QString ResultText() const;
  QString MoveListText() const;

 Q_SIGNALS:
  // The window's view of a solve changed: started, or finished with its report shown.
  void SolveStarted();
  void SolveReported();
  void ProblemShown(int id);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildLayout();
  QLayout* BuildControls(QWidget* central);
  void BuildMenus();
  void BuildFileMenu();
  void BuildPositionMenu();
  void BuildProblemMenu();
  void BuildOtherMenus();
  void BuildLanguageMenu();
  void ShowLanguage(int nLanguageId);
  QAction* AddCommand(QMenu* menu, const char* text, const QString& name, const QKeySequence& key,
                      std::function<void()> work);
  void ConnectSolver();

  void ShowProblem();
  void ShowPosition();
  void RefreshControls();
  void SetModified(bool bValue);
  void ShowMessage(const QString& title, const QString& text);
  void ChangeStipulation(int delta);
  void OnBoardClick(int square, Qt::MouseButton button);
  void OnBoardDrag(int from, int to);
  void OnSolveFinished();
  void ShowKeyMove(TMove key);
  bool LeaveSettingMode();
  void UndoEdit(bool bRedo);
  void CopyFen(bool bFull);
  void OpenNamedFile(const char* name, bool bCreate);
  void SaveAs();
  void NewProblem();
  void AskProblemNumber();

  TProblemCollection collection;
  QString filePath;
  bool bModified = false;
  int nCurrentId = 0;
  TPlayedLine line;
  TPositionEdits edits;
  bool bSettingMode = false;
  TThreadSettings threads;
  int nSolvingId = 0;
  QStringList reportLines;

  CSolveController* solver = nullptr;
  CBoardView* board = nullptr;
  CPiecePalette* palette = nullptr;
  CStepControl* stipulationControl = nullptr;
  CStepControl* threadControl = nullptr;
  QPushButton* startButton = nullptr;
  QLabel* problemLabel = nullptr;
  QLabel* descriptionLabel = nullptr;
  QLabel* progressLabel = nullptr;
  QLabel* statusLabel = nullptr;
  QPlainTextEdit* moveList = nullptr;
  QPlainTextEdit* resultView = nullptr;
  QString statusLine;
};
