// Two commands about positions: the identifier of the position shown, and which FEN codes of
// another text are positions of this file's problems.
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QPlainTextEdit>

#include "app/FenCheck.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "core/ChessboardId.h"

void CMainWindow::OfferPositionCommands() {
  Offer("Display &id of current position and copy it to clipboard", "positionId", {},
        [this] { ShowPositionId(); });
  Offer("Check if FEN codes from selected file (any text format) exist in the current file...",
        "checkFens", {}, [this] {
          const QString path = AskFile(EFileQuestion::kCheckFens);
          if (!path.isEmpty()) CheckFensOf(path);
        });
}

QString CMainWindow::ShowPositionId() {
  if (!CurrentProblem()) return {};
  // The identifier the problem search takes back, of the position played out.
  const QString id = QString::fromStdString(TChessboardId(line.Current()).ToAlphanum6());
  QApplication::clipboard()->setText(id);
  ShowMessage(WindowText("Information"),
              WindowText("Position id: %1 (copied to the clipboard)").arg(id));
  return id;
}

QString CMainWindow::CheckFensOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    const QString error = WindowText("Error opening file: %1").arg(path);
    ShowMessage(WindowText("Information"), error);
    return error;
  }
  const QByteArray text = file.readAll();
  const TFenCheck check = CheckFens(collection, std::string_view(text.constData(), text.size()));
  resultView->clear();
  for (const TFenCheckLine& found : check.lines)
    resultView->appendPlainText(QString::fromStdString(FenCheckLineText(found)));
  const QString summary = QString::fromStdString(FenCheckSummary(check, path.toStdString()));
  resultView->appendPlainText(summary);
  return summary;
}
