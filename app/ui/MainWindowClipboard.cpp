// The Position menu's work: the problem, its FEN and its diagram copied out, positions pasted
// in (mirrored on request), and the turns, colour swap and shifts of the position.
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QSvgRenderer>

#include "app/Diagram.h"
#include "app/Options.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "problems/ProblemTransforms.h"
#include "problems/ProblemWriter.h"

namespace {

// The diagram as a picture for programs that do not read SVG: twice its drawn size, on white.
constexpr int kDiagramScale = 2;

QImage DrawSvg(const QByteArray& svg) {
  QSvgRenderer renderer(svg);
  QImage image(renderer.defaultSize() * kDiagramScale, QImage::Format_ARGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  renderer.render(&painter);
  return image;
}

}  // namespace

// The problem being solved is the engine's to read: its position stays as it is.
bool CMainWindow::CanChangeProblem() {
  return CurrentProblem() && !(IsSolving() && nSolvingId == nCurrentId);
}

void CMainWindow::CopyFen(bool bFull) {
  TChessboard shown = line.Current();
  if (bSettingMode && TPositionEdits::Validate(edits.Squares(), shown)) return;
  QApplication::clipboard()->setText(
      QString::fromStdString(bFull ? fen::WriteFullFen(shown) : fen::WriteShortFen(shown)));
}

// The problem's text as its file holds it, without the variants or the tags when asked.
void CMainWindow::CopyProblem(bool bVariants, bool bTags) {
  TProblem* problem = CurrentProblem();
  if (!problem) return;
  std::vector<std::string> variants;
  std::set<std::string> tags;
  if (!bVariants) variants.swap(problem->variants);
  if (!bTags) tags.swap(problem->tags);
  std::string text;
  problemwriter::AppendProblem(text, *problem);
  if (!bVariants) variants.swap(problem->variants);
  if (!bTags) tags.swap(problem->tags);
  QApplication::clipboard()->setText(QString::fromStdString(text).trimmed() + '\n');
}

// The printable diagram, as SVG for the programs that take it and as a picture for the rest.
void CMainWindow::CopyDiagram() {
  const TProblem* problem = CurrentProblem();
  if (!problem) return;
  const QByteArray svg = QByteArray::fromStdString(diagram::Svg(*problem));
  auto* content = new QMimeData();
  content->setData("image/svg+xml", svg);
  content->setImageData(DrawSvg(svg));
  QApplication::clipboard()->setMimeData(content);
}

// The clipboard's text is tried as a FEN, then as a problem of a problem file (its position
// and stipulation are taken), then as moves to play from the position shown.
bool CMainWindow::PastePosition(const QString& text, bool bMirror) {
  const std::string pasted = text.trimmed().toStdString();
  TChessboard scratch;
  ClearChessboard(scratch);
  std::optional<TStipulation> stipulation;
  QString refusal;
  try {
    if (!fen::ReadFen(scratch, pasted)) throw ChessException("Improper FEN code");
  } catch (const ChessException& error) {
    refusal = error.what();
    TProblemCollection problems;
    problems.ReadText(pasted, "clipboard");
    if (!problems.Empty()) {
      scratch = problems.Problems().begin()->second->start;
      stipulation = problems.Problems().begin()->second->stipulation;
    } else if (!bSettingMode && !bMirror && line.PlayText(pasted) > 0) {
      ShowPosition();
      return true;
    } else {
      ShowMessage(WindowText("Warning"), WindowText(refusal.toUtf8().constData()));
      return false;
    }
  }
  TPositionEdits::TSquares squares;
  std::copy(std::begin(scratch.squares), std::end(scratch.squares), squares.begin());
  if (bMirror) squares = TPositionEdits::Transformed(squares, transforms::ETransform::kMirrorFiles);
  if (bSettingMode) {
    edits.Replace(squares);
    ShowPosition();
    return true;
  }
  if (!TakeEditedSquares(squares)) return false;
  if (stipulation && stipulation->type != TStipulation::kMoveLine) {
    CurrentProblem()->SetStipulation(*stipulation);
    ShowProblem();
  }
  return true;
}

// Makes squares the start of the current problem (a new one when there is none); false, with
// the reason shown, when they cannot be a problem's start.
bool CMainWindow::TakeEditedSquares(const TPositionEdits::TSquares& squares) {
  TChessboard checked;
  if (const auto error = TPositionEdits::Validate(squares, checked)) {
    ShowMessage(WindowText("Warning"), WindowText(error->c_str()));
    return false;
  }
  if (!CurrentProblem()) NewProblem();
  if (!CanChangeProblem()) return false;
  TProblem* problem = CurrentProblem();
  std::copy(squares.begin(), squares.end(), problem->start.squares);
  problem->ResetLine();
  Analyse(problem->start, true);
  SetModified(true);
  ShowProblem();
  return true;
}

// In setting mode the squares being set up turn; otherwise the problem turns with its answers,
// variants and sort indications, and what the turn changed is said.
void CMainWindow::Transform(transforms::ETransform transform) {
  if (bSettingMode) {
    edits.Replace(TPositionEdits::Transformed(edits.Squares(), transform));
    ShowPosition();
    return;
  }
  if (!CanChangeProblem()) return;
  std::vector<std::string> notes;
  try {
    notes = problemtransforms::Apply(transform, *CurrentProblem(), Options().nLanguageId);
  } catch (const ChessException& error) {
    ShowMessage(WindowText("Warning"), WindowText(error.what()));
    return;
  }
  SetModified(true);
  ShowProblem();
  QStringList lines;
  for (const std::string& note : notes) lines << QString::fromStdString(note);
  if (!lines.isEmpty()) ShowMessage(WindowText("Information"), lines.join("\n"));
}

// A shift that would push a piece off the board is refused. The answers move with the
// position; stored variants and sort indications name the old squares and go.
void CMainWindow::ShiftPosition(int nFiles, int nRanks) {
  TPositionEdits::TSquares squares;
  if (bSettingMode)
    squares = edits.Squares();
  else if (const TProblem* problem = CurrentProblem())
    std::copy(std::begin(problem->start.squares), std::end(problem->start.squares),
              squares.begin());
  else
    return;
  const auto shifted = TPositionEdits::Shifted(squares, nFiles, nRanks);
  if (!shifted)
    return ShowMessage(
        WindowText("Warning"),
        WindowText("The position cannot be shifted: a piece would leave the board."));
  if (bSettingMode) {
    edits.Replace(*shifted);
    ShowPosition();
    return;
  }
  if (!CanChangeProblem()) return;
  std::vector<TMove> answer = CurrentProblem()->answer;
  if (!TakeEditedSquares(*shifted)) return;
  // A key whose target leaves the board is no key of the shifted position.
  const auto shift = [nFiles, nRanks](SquareIndex& s) {
    const int file = square::File(s) + nFiles, rank = square::Rank(s) + nRanks;
    if (file < 0 || file > 7 || rank < 0 || rank > 7) return false;
    s = square::Make(file, rank);
    return true;
  };
  bool bKeysKept = true;
  for (TMove& move : answer) bKeysKept = bKeysKept && shift(move.from) && shift(move.to);
  if (!bKeysKept) answer.clear();
  TProblem* problem = CurrentProblem();
  problem->answer = answer;
  problem->variants.clear();
  problem->sortIndications = {};
  problem->expectedSortedWhiteMoves.clear();
}
