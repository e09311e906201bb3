#include "UiTestMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <vector>

#include "app/Options.h"

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

int main(int argc, char** argv) {
  // Without a display the tests draw off screen; ./test gives them an X server.
  if (qEnvironmentVariableIsEmpty("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  Options() = DefaultOptions();
  Options().nLanguageId = kEnglishLanguageId;
  int nFailed = 0;
  for (const TTestFactory& factory : Factories()) {
    const std::unique_ptr<QObject> test = factory();
    nFailed += QTest::qExec(test.get(), argc, argv);
  }
  return nFailed == 0 ? 0 : 1;
}
