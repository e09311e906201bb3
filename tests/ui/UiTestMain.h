#pragma once
// The test classes of the desktop program, each registered by its file and run in turn by one
// program.
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

#include "app/ui/MainWindow.h"

using TTestFactory = std::function<std::unique_ptr<QObject>()>;
bool RegisterUiTest(TTestFactory factory);

// The sample file of the repository, and the id of its problem of the most moves (a solve
// that runs far longer than any test).
QString SampleFilePath();
int LongestSampleProblem();
// A window as the program makes it, English, shown, with the sample file open.
std::unique_ptr<CMainWindow> OpenSampleWindow();
// Answers the next modal question with the button given (a message box's standard button).
void AnswerNextQuestion(int standardButton);
// The text of the message box the window shows now, which is then closed; empty for none.
QString TakeMessage(CMainWindow& window);
// The position the board shows, as the short FEN of its squares.
QString ShownFen(const CMainWindow& window);
// A problem file written for a test: the problems' texts after the file's header.
bool WriteProblemFile(const QString& path, const QString& problems);
