// The Help menu: the manual in the language of the window and the readme, both built into
// the program, and the threads a solve uses, asked as "T" or "T^L".
#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "app/Options.h"
#include "app/ThreadControls.h"
#include "app/ThreadCountLabel.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"

namespace {

// The manual of the language (0 Polish, 2 Ukrainian, else English).
QString ManualResource(int nLanguageId) {
  return nLanguageId == 0   ? ":/manual/manual_pl.html"
         : nLanguageId == 2 ? ":/manual/manual_uk.html"
                            : ":/manual/manual_en.html";
}

}  // namespace

void CMainWindow::OfferHelpCommands() {
  Offer("Open &manual (quick start)", "manual", QKeySequence("F1"), [this] { ShowManual(); });
  Offer("&Open readme.txt", "readme", {},
        [this] { ShowDocument(":/manual/README.md", WindowText("Readme"), true); });
  Offer("&Threads...", "threadsHelp", {}, [this] { ShowThreads(); });
}

void CMainWindow::ShowManual() {
  ShowDocument(ManualResource(Options().nLanguageId), WindowText("Manual"), false);
}

// A window beside the main one, left open while the user works.
void CMainWindow::ShowDocument(const QString& resource, const QString& title, bool bMarkdown) {
  QFile file(resource);
  if (!file.open(QIODevice::ReadOnly)) return;
  const QString text = QString::fromUtf8(file.readAll());
  auto* dialog = new QDialog(this);
  dialog->setObjectName("document");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(title);
  auto* browser = new QTextBrowser(dialog);
  browser->setObjectName("documentText");
  browser->setOpenExternalLinks(true);
  if (bMarkdown)
    browser->setMarkdown(text);
  else
    browser->setHtml(text);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
  connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
  auto* layout = new QVBoxLayout(dialog);
  layout->addWidget(browser);
  layout->addWidget(buttons);
  dialog->resize(640, 560);
  dialog->show();
}

// The threads of the next solve, typed as the thread control's notation reads them.
void CMainWindow::ShowThreads() {
  const QString current = threads.nLevels > 1
                              ? QString("%1^%2").arg(threads.nThreads).arg(threads.nLevels)
                              : QString::number(threads.nThreads);
  const auto answer =
      askText(WindowText("Threads"),
              WindowText("Threads of the next solve: T, or T^L for T threads on each of L levels "
                         "(up to T^L threads at once; 1..64 each):"),
              current);
  if (!answer) return;
  const TThreadSettingsReading reading = ReadThreadSettings(answer->trimmed().toStdString());
  if (!reading.settings)
    return ShowMessage(WindowText("Warning"), WindowText(reading.sRefusal.c_str()));
  threads = *reading.settings;
  RefreshControls();
  QStringList notes;
  for (const std::string& note : reading.notes) notes << WindowText(note.c_str());
  if (!notes.isEmpty()) ShowMessage(WindowText("Information"), notes.join('\n'));
}
