// The endgame-table commands of the Advanced menu. Each reads or checks the tables of the
// shown position's type (its material) through the tables service the solves use, on the
// background task; a position found is put on the board when the command ends.
#include <QInputDialog>
#include <QMenu>
#include <QPlainTextEdit>
#include <memory>
#include <string>

#include "app/TablesReports.h"
#include "app/TablesService.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "app/ui/SolveController.h"
#include "core/Fen.h"
#include "registers/TableIndex.h"
#include "registers/TableLookup.h"

namespace {

enum ETableCommand {
  kStatus,
  kVerifyAll,
  kVerifyFromType,
  kMaxNext,
  kMaxPrevious,
  kInformation,
  kVerifyType,
  kPrecalculate
};

// The shown position as the table of its type indexes it (White to move).
struct TTypedPosition {
  std::optional<TTableMaterial> material;
  std::uint64_t nIndex = 0;
  std::string fen;
};

TTypedPosition TypeOf(const TChessboard& board) {
  TTypedPosition position{.material = TTableMaterial::OfBoard(board.squares),
                          .fen = fen::WriteFullFen(board)};
  if (position.material) {
    SquareIndex squares[TTableMaterial::kMaxPieces];
    SquaresInTableOrder(*position.material, board.squares, squares);
    position.nIndex = TTableIndex(*position.material).Encode(squares);
  }
  return position;
}

QString NoTypeText() {
  return WindowText(
      "The position has no type of precalculated data (kings and at most 3 other pieces).");
}

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

QString RegisterStatusText(const CTablesService& service) {
  const TTablesSettings& settings = service.Settings();
  QStringList lines{WindowText("Folder: %1").arg(Text(settings.folder.string())),
                    WindowText("Memory quota: %1 MB").arg(settings.nQuotaBytes >> 20),
                    WindowText("Loaded: %1 tables, %2 KB")
                        .arg(service.Loaded().size())
                        .arg(service.LoadedBytes() >> 10)};
  for (const auto& loaded : service.Loaded())
    lines << QString("  %1  %2 KB").arg(Text(loaded.name)).arg(loaded.nBytes >> 10);
  lines << WindowText("Tables on disk: %1").arg(service.TablesOnDisk().size());
  return lines.join('\n');
}

QString VerifyText(const std::string& name, const TTableVerification& check) {
  QString text = WindowText("%1: %2 positions checked, %3 wrong, %4 with a missing table")
                     .arg(Text(name))
                     .arg(check.nChecked)
                     .arg(check.nWrong)
                     .arg(check.nUnknown);
  for (const std::string& example : check.examples) text += "\n  " + Text(example);
  return text;
}

// Checks the tables in order, each one ending the step after which Stop takes effect.
QString VerifyTables(CTablesService& service, const std::vector<TTableMaterial>& materials,
                     const CBackgroundTask::CContext& context) {
  int nWrong = 0, nChecked = 0;
  for (const TTableMaterial& material : materials) {
    if (context.StopRequested()) break;
    const auto table = service.Acquire(material);
    if (!table) {
      context.Line(WindowText("%1: no table").arg(Text(material.Name())));
      continue;
    }
    const TTableVerification check = VerifyWithService(
        service, *table, [&](double share) { context.Progress(Text(material.Name()), share); });
    context.Line(VerifyText(material.Name(), check));
    nWrong += check.nWrong != 0 ? 1 : 0;
    ++nChecked;
  }
  return WindowText("Tables checked: %1, with wrong values: %2").arg(nChecked).arg(nWrong);
}

// The next (or previous) position after the shown one with the longest mate of its table,
// going round at the end.
QString FindMaxMate(const TEndgameTable& table, const TTypedPosition& shown, int direction,
                    std::string& fen) {
  const auto longest = FindLongestMate(table);
  if (!longest) return WindowText("No position of %1 is a mate").arg(Text(table.Material().Name()));
  const std::uint64_t size = table.Size();
  for (std::uint64_t step = 1; step <= size; ++step) {
    const std::uint64_t i = (shown.nIndex + size + direction * step) % size;
    if (table.Value(true, i) != longest->value) continue;
    fen = PositionAt(table, i).fen;
    return WindowText("Max #n for %1: %2 (index %3)")
        .arg(Text(table.Material().Name()))
        .arg(longest->value)
        .arg(i);
  }
  return {};
}

QString InformationText(CTablesService& service, const TTypedPosition& shown) {
  QString text =
      WindowText("Position type %1, index %2").arg(Text(shown.material->Name())).arg(shown.nIndex);
  const auto answer = ProbeFen(service, shown.fen);
  if (!answer) return text + "\n" + WindowText("No table holds this position");
  text += "\n" + Text(answer->valueText);
  if (!answer->bestMoves.empty()) {
    QStringList moves;
    for (const std::string& move : answer->bestMoves) moves << Text(move);
    text += "\n" + WindowText("Best moves: %1").arg(moves.join(' '));
  }
  return text;
}

}  // namespace

void CMainWindow::BuildTablesCommands(QMenu* advanced) {
  const struct {
    const char* label;
    const char* name;
    const char* key;
    int nCommand;
  } commands[] = {
      {"Display current status of global register (precalculated data in memory)", "tablesStatus",
       "", kStatus},
      {"Verify files of precalulcated data (global register) on disk", "verifyTables", "",
       kVerifyAll},
      {"Verify files of precalulcated data on disk - resume from cur.pos.type",
       "verifyTablesFromType", "", kVerifyFromType},
      {"Show &max #n for positions of this type + next position\tCtrl+M", "maxNext", "Ctrl+M",
       kMaxNext},
      {"Show max #n for positions of this type - previous position\tCtrl+M", "maxPrevious", "",
       kMaxPrevious},
      {"&Information about position\tCtrl+I", "positionInformation", "Ctrl+I", kInformation}};
  askNumber = [this](const QString& question) -> std::optional<qulonglong> {
    bool bOk = false;
    const QString text =
        QInputDialog::getText(this, WindowText("Paste position of this type by index"), question,
                              QLineEdit::Normal, {}, &bOk);
    if (!bOk) return std::nullopt;  // dismissed
    const qulonglong value = text.trimmed().toULongLong(&bOk);
    if (!bOk) return std::nullopt;
    return value;
  };
  for (const auto& command : commands)
    AddCommand(advanced, command.label, command.name, QKeySequence(command.key),
               [this, command] { RunTableCommand(command.label, command.nCommand); });
  AddCommand(advanced, "Paste position of this type by index", "pasteByIndex", {},
             [this] { PastePositionByIndex(); });
  AddCommand(advanced, "Previous position of this type\tShift+Ctrl+P", "previousOfType",
             QKeySequence("Shift+Ctrl+P"), [this] { StepPositionOfType(-1); });
  AddCommand(advanced, "Next position of this type\tShift+Ctrl+N", "nextOfType",
             QKeySequence("Shift+Ctrl+N"), [this] { StepPositionOfType(1); });
  // A table of this program is written whole: a partly generated one is checked as any other,
  // the positions that lead into missing tables counted apart.
  const std::pair<const char*, const char*> checks[] = {
      {"Verify correctness of generated precalculated data (Nalimov) for this position type",
       "verifyType"},
      {"Verify correctness of partially generated precalculated data for this position type",
       "verifyPartialType"}};
  for (const auto& [label, name] : checks)
    AddCommand(advanced, label, name, {}, [this, label] { RunTableCommand(label, kVerifyType); });
  AddCommand(advanced, "&Precalculate data (Nalimov tablebases) for this position type",
             "precalculateType", {}, [this] {
               RunTableCommand("&Precalculate data (Nalimov tablebases) for this position type",
                               kPrecalculate);
             });
}

// The title is the menu label, its accelerator and marks dropped.
void CMainWindow::RunTableCommand(const char* label, int nCommand) {
  const TTypedPosition shown = TypeOf(line.Current());
  const bool bNeedsType = nCommand != kStatus && nCommand != kVerifyAll;
  if (bNeedsType && !shown.material) return ShowMessage(WindowText("Information"), NoTypeText());
  CTablesService& service = solver->Session().Tables();
  auto fen = std::make_shared<std::string>();
  RunTask(
      label,
      [&service, shown, nCommand, fen](const CBackgroundTask::CContext& context) -> QString {
        switch (nCommand) {
          case kStatus:
            return RegisterStatusText(service);
          case kVerifyAll:
          case kVerifyFromType: {
            auto materials = service.TablesOnDisk();
            if (nCommand == kVerifyFromType)
              while (!materials.empty() && !(materials.front() == *shown.material))
                materials.erase(materials.begin());
            return VerifyTables(service, materials, context);
          }
          case kVerifyType:
            return VerifyTables(service, {*shown.material}, context);
          case kInformation:
            return InformationText(service, shown);
          case kPrecalculate: {
            QStringList lines;
            for (const TGeneratedTable& table : service.Generate(
                     {*shown.material},
                     [&](const std::string&name, double share) {
                       context.Progress(Text(name), share);
                     },
                     context.StopToken()))
              lines << (table.bGenerated ? WindowText("%1: generated in %2 s, %3 bytes")
                                               .arg(Text(table.name))
                                               .arg(table.seconds, 0, 'f', 1)
                                               .arg(table.nBytes)
                                         : WindowText("%1: on disk already, %2 bytes")
                                               .arg(Text(table.name))
                                               .arg(table.nBytes));
            return lines.join('\n');
          }
          default: {
            const auto table = service.Acquire(*shown.material);
            if (!table) return WindowText("No table of %1").arg(Text(shown.material->Name()));
            return FindMaxMate(*table, shown, nCommand == kMaxNext ? 1 : -1, *fen);
          }
        }
      },
      [this, fen] {
        if (!fen->empty()) PastePosition(Text(*fen));
      });
}

// The previous or next index of the table that stands for a position.
void CMainWindow::StepPositionOfType(int direction) {
  const TTypedPosition shown = TypeOf(line.Current());
  if (!shown.material) return ShowMessage(WindowText("Information"), NoTypeText());
  const TTableIndex index(*shown.material);
  SquareIndex squares[TTableMaterial::kMaxPieces];
  const auto step = static_cast<std::uint64_t>(static_cast<std::int64_t>(direction));
  // Below 0 the index wraps round to a value beyond the table, which ends the search too.
  for (std::uint64_t i = shown.nIndex + step; i < index.Size(); i += step) {
    if (!index.Decode(i, squares)) continue;
    TChessboard made;
    if (!CTableLookup::MakeBoard(*shown.material, squares, true, made)) continue;
    PastePosition(Text(fen::WriteFullFen(made)));
    return;
  }
}

void CMainWindow::PastePositionByIndex() {
  const TTypedPosition shown = TypeOf(line.Current());
  if (!shown.material) return ShowMessage(WindowText("Information"), NoTypeText());
  const TTableIndex index(*shown.material);
  const auto chosen = askNumber(WindowText("Index of position %1 (0..%2)")
                                    .arg(Text(shown.material->Name()))
                                    .arg(index.Size() - 1));
  if (!chosen) return;
  SquareIndex squares[TTableMaterial::kMaxPieces];
  TChessboard made;
  if (*chosen >= index.Size() || !index.Decode(*chosen, squares) ||
      !CTableLookup::MakeBoard(*shown.material, squares, true, made))
    return ShowMessage(WindowText("Information"),
                       WindowText("Index %1 stands for no position of %2")
                           .arg(*chosen)
                           .arg(Text(shown.material->Name())));
  PastePosition(Text(fen::WriteFullFen(made)));
}
