// longmate-gui: the desktop program. Start-up and shut-down as for every copy of the program
// (settings read once, single-instance check, lowered priority, the GUI log), then the main
// window with the file named on the command line or the user's default file.
#include <QApplication>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>
#include <filesystem>

#include "app/Options.h"
#include "app/Startup.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "problems/Collection.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("longmate-gui");
  QApplication::setOrganizationName("Longmate");
  QStringList notes;
  for (const std::string& warning : ReadOptions()) notes << QString::fromStdString(warning);
  for (const std::string& note : StartProgram(std::filesystem::current_path()))
    notes << QString::fromStdString(note);
  ApplyLanguage(Options().nLanguageId);

  int nExit = 0;
  {
    CMainWindow window;
    QSettings settings;
    window.restoreGeometry(settings.value("geometry").toByteArray());
    window.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1)
      window.OpenFile(arguments.at(1));
    else
      window.Action("openDefault")->trigger();
    if (!notes.isEmpty())
      QMessageBox::information(&window, WindowText("Information"), notes.join("\n"));
    nExit = QApplication::exec();
    settings.setValue("geometry", window.saveGeometry());
  }  // the window's solve, if any, has stopped and its thread has ended here
  ShutDownProgram();
  return nExit;
}
