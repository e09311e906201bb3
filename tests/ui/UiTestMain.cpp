#include "UiTestMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <vector>

#include "app/Options.h"
#include "app/ui/BoardView.h"
#include "core/Fen.h"

namespace {

std::vector<TTestFactory>& Factories() {
  static std::vector<TTestFactory> factories;
  return factories;
}

}  // namespace

bool RegisterUiTest(TTestFactory factory) {
  Factories().push_back(std::move(factory));
  return true;
}

QString SampleFilePath() {
  return QString(LONGMATE_SOURCE_DIR) + "/data/sample_problems.cp";
}

int LongestSampleProblem() {
  TProblemCollection sample;
  sample.ReadFile(SampleFilePath().toStdString(), {});
  int id = 0, nMost = 0;
  for (const auto& [nId, problem] : sample.Problems())
    if (problem->stipulation.Moves() > nMost) {
      nMost = problem->stipulation.Moves();
      id = nId;
    }
  return id;
}

std::unique_ptr<CMainWindow> OpenSampleWindow() {
  auto window = std::make_unique<CMainWindow>();
  window->show();
  if (!QTest::qWaitForWindowExposed(window.get())) return nullptr;
  if (!window->OpenFile(SampleFilePath())) return nullptr;
  return window;
}

// The question box is modal: the answer is given from the event loop it runs.
void AnswerNextQuestion(int standardButton) {
  QTimer::singleShot(0, [standardButton] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box) box->button(static_cast<QMessageBox::StandardButton>(standardButton))->click();
  });
}

QString TakeMessage(CMainWindow& window) {
  auto* box = window.findChild<QMessageBox*>("messageBox");
  if (!box) return {};
  const QString text = box->text();
  box->setObjectName("answered");
  box->accept();
  return text;
}

QString ShownFen(const CMainWindow& window) {
  TChessboard board;
  ClearChessboard(board);
  std::copy(window.Board()->Squares().begin(), window.Board()->Squares().end(), board.squares);
  return QString::fromStdString(fen::WriteShortFen(board));
}

bool WriteProblemFile(const QString& path, const QString& problems) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  file.write("UTF-8\n\n" + problems.toUtf8());
  return true;
}

int main(int argc, char** argv) {
  // Without a display the tests draw off screen; ctest gives them an X server where xvfb-run
  // is installed.
  if (qEnvironmentVariableIsEmpty("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  // The program writes its settings and logs into its working folder: the tests get a fresh
  // one, whatever folder they are started from.
  const QTemporaryDir workingFolder;
  if (!workingFolder.isValid() || !QDir::setCurrent(workingFolder.path())) return 1;
  // The files opened last are kept apart from the user's own.
  QStandardPaths::setTestModeEnabled(true);
  QApplication::setOrganizationName("LongmateTests");
  Options() = DefaultOptions();
  Options().nLanguageId = kEnglishLanguageId;
  int nFailed = 0;
  for (const TTestFactory& factory : Factories()) {
    const std::unique_ptr<QObject> test = factory();
    nFailed += QTest::qExec(test.get(), argc, argv);
  }
  return nFailed == 0 ? 0 : 1;
}
