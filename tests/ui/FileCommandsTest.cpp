// The navigator's memory and list, and the File menu's commands beyond open and save: the files
// opened last, problems appended from another file or removed because it holds them, and the
// other programs' formats opened and saved.
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "UiTestMain.h"
#include "core/Fen.h"

namespace {

TProblemCollection ReadSample() {
  TProblemCollection problems;
  problems.ReadFile(SampleFilePath().toStdString(), {});
  return problems;
}

QString FenOf(const TProblem& problem) {
  return QString::fromStdString(fen::WriteShortFen(problem.start));
}

// The text of a problem file's problem.
QString ProblemText(int id, const QString& stipulation, const QString& fen) {
  return QString("%1 %2\n{\n\tFEN: %3\n}\n\n").arg(id).arg(stipulation, fen);
}

}  // namespace

class CFileCommandsTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void CtrlMinusAndCtrlPlusGoThroughTheProblemsViewed() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    const int first = window->CurrentId();
    QTest::keyClick(window.get(), Qt::Key_End, Qt::ControlModifier);
    const int last = window->CurrentId();
    QVERIFY(window->GoToProblem(5));
    QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(window->CurrentId(), last);
    QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(window->CurrentId(), first);
    QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);  // nothing before
    QCOMPARE(window->CurrentId(), first);
    QTest::keyClick(window.get(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(window->CurrentId(), last);
    QTest::keyClick(window.get(), Qt::Key_Equal, Qt::ControlModifier);  // the same key unshifted
    QCOMPARE(window->CurrentId(), 5);
    // Going elsewhere ends the way forward.
    QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);
    QTest::keyClick(window.get(), Qt::Key_Left);
    QTest::keyClick(window.get(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(window->CurrentId(), last - 1);
    QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(window->CurrentId(), last);
  }

  void CtrlShiftGListsTheProblemsWithTheirDescriptions() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    const TProblemCollection sample = ReadSample();
    QTest::keyClick(window.get(), Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    auto* list = window->findChild<QDialog*>("problemList");
    QVERIFY(list);
    auto* items = list->findChild<QListWidget*>();
    QCOMPARE(items->count(), static_cast<int>(sample.Size()));
    QVERIFY(items->item(1)->text().contains("Meson PID 139280"));
    QVERIFY(items->item(1)->text().contains("#2"));
    items->setCurrentRow(2);
    QTest::mouseClick(list->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok),
                      Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the list closed
    QCOMPARE(window->CurrentId(), std::next(sample.Problems().begin(), 2)->first);
    // The problem number's right click opens the same list; Return chooses.
    auto* number = window->findChild<QPushButton*>("problemLabel");
    Q_EMIT number->customContextMenuRequested(QPoint(2, 2));
    list = window->findChild<QDialog*>("problemList");
    QVERIFY(list && list->isVisible());
    QVERIFY(QTest::qWaitForWindowExposed(list));
    items = list->findChild<QListWidget*>();
    QCOMPARE(items->currentRow(), 2);  // the problem shown
    items->setCurrentRow(0);
    QTest::keyClick(items, Qt::Key_Return);
    QCOMPARE(window->CurrentId(), sample.Problems().begin()->first);
    QVERIFY(!window->IsModified());
  }

  void AppendsAndRemovesTheProblemsOfAnotherFile() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    const TProblemCollection sample = ReadSample();
    const int nSample = static_cast<int>(sample.Size());
    const TProblem& second = *std::next(sample.Problems().begin())->second;
    QTemporaryDir folder;
    const QString other = folder.filePath("other.cp");
    QVERIFY(WriteProblemFile(other, ProblemText(7, "#3", "8/8/8/8/8/1k6/8/1K2Q3") +
                                        ProblemText(1, "#2", FenOf(second))));
    window->chooseFile = [&](EFileQuestion question) {
      return question == EFileQuestion::kAppend ? other : QString();
    };
    window->Action("appendProblems")->trigger();
    QCOMPARE(TakeMessage(*window), QString("Problems appended: 2."));
    QVERIFY(window->IsModified());
    const int lastSample = sample.Problems().rbegin()->first;
    // In the other file's order (by id), numbered on from the last problem, the first shown.
    QCOMPARE(window->CurrentId(), lastSample + 1);
    QCOMPARE(ShownFen(*window), FenOf(second));
    QVERIFY(window->GoToProblem(lastSample + 2));
    QCOMPARE(ShownFen(*window), QString("8/8/8/8/8/1k6/8/1K2Q3"));
    QCOMPARE(window->CurrentProblem()->stipulation.Moves(), 3);

    // The other file holds the sample's second problem, and the first with another stipulation.
    const TProblem& first = *sample.Problems().begin()->second;
    QVERIFY(
        WriteProblemFile(folder.filePath("present.cp"),
                         ProblemText(1, "#2", FenOf(second)) + ProblemText(2, "#9", FenOf(first))));
    window->chooseFile = [&](EFileQuestion question) {
      return question == EFileQuestion::kRemovePresent ? folder.filePath("present.cp") : QString();
    };
    window->Action("removePresent")->trigger();
    QCOMPARE(TakeMessage(*window), QString("Problems removed: 2."));
    QVERIFY(window->IsModified());
    const QString saved = folder.filePath("saved.cp");
    QVERIFY(window->SaveFile(saved));
    TProblemCollection result;
    QVERIFY(!result.ReadFile(saved.toStdString(), {}));
    QCOMPARE(static_cast<int>(result.Size()), nSample);
    QVERIFY(!result.Find(second.id) && !result.Find(lastSample + 1));
    QVERIFY(result.Find(first.id) && result.Find(lastSample + 2));

    // An unreadable file adds nothing and says why.
    window->chooseFile = [&](EFileQuestion) { return folder.filePath("missing.cp"); };
    window->Action("appendProblems")->trigger();
    QVERIFY(!TakeMessage(*window).isEmpty());
    QVERIFY(!window->IsModified());
  }

  void SavesAndOpensTheOtherProgramsFormats_data() {
    QTest::addColumn<QString>("extension");
    QTest::newRow("epd") << "epd";
    QTest::newRow("fen") << "fen";
    QTest::newRow("pop") << "pop";
  }
  void SavesAndOpensTheOtherProgramsFormats() {
    QFETCH(QString, extension);
    auto window = OpenSampleWindow();
    QVERIFY(window);
    const TProblemCollection sample = ReadSample();
    QTemporaryDir folder;
    const QString path = folder.filePath("problems." + extension);
    window->chooseFile = [&](EFileQuestion) { return path; };
    window->Action("saveAs")->trigger();
    TakeMessage(*window);  // what the format cannot hold, if anything
    QCOMPARE(window->FilePath(), path);
    QVERIFY(window->OpenFile(SampleFilePath()));
    window->Action("open")->trigger();
    QCOMPARE(window->FilePath(), path);
    int nShown = 0;
    for (int id = window->CurrentId(); window->GoToProblem(id); ++id, ++nShown) {
      const TProblem& original = *std::next(sample.Problems().begin(), nShown)->second;
      QCOMPARE(ShownFen(*window), FenOf(original));
      QCOMPARE(window->CurrentProblem()->stipulation.Text(), original.stipulation.Text());
    }
    QCOMPARE(nShown, static_cast<int>(sample.Size()));
  }

  void FileDialogsOfferTheOtherProgramsFormats_data() {
    QTest::addColumn<QString>("command");
    for (const char* command : {"open", "saveAs", "appendProblems"})
      QTest::newRow(command) << command;
  }
  void FileDialogsOfferTheOtherProgramsFormats() {
    QFETCH(QString, command);
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QStringList filters;
    // The dialog is modal: it is read and dismissed from the event loop it runs.
    QTimer::singleShot(0, [&filters] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      filters = dialog->nameFilters();
      dialog->reject();
    });
    window->Action(command)->trigger();
    QCOMPARE(filters, (QStringList{"Chess problems (*.cp)", "Problem solver text (*.pop *.txt)",
                                   "EPD (*.epd)", "FEN list (*.fen)", "All files (*)"}));
    QCOMPARE(window->FilePath(), SampleFilePath());
  }

  void RecentFilesOpenAgain() {
    auto window = OpenSampleWindow();
    QVERIFY(window);
    QTemporaryDir folder;
    const QString other = folder.filePath("other.cp");
    QVERIFY(WriteProblemFile(other, ProblemText(3, "#2", "8/8/8/8/8/1k6/8/1K2Q3")));
    QVERIFY(window->OpenFile(other));
    QVERIFY(window->OpenFile(SampleFilePath()));
    QVERIFY(window->OpenFile(other));
    QCOMPARE(window->RecentFiles().mid(0, 2), (QStringList{other, SampleFilePath()}));
    auto* recent = window->findChild<QMenu*>("recentMenu");
    Q_EMIT recent->aboutToShow();
    QCOMPARE(recent->actions().size(), window->RecentFiles().size());
    window->Action("recent2")->trigger();
    QCOMPARE(window->FilePath(), SampleFilePath());
    QCOMPARE(window->CurrentId(), 1);
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CFileCommandsTest>(); });

#include "FileCommandsTest.moc"
