#include "problems/FenListFormat.h"

#include <sstream>

#include "core/ChessException.h"
#include "core/Fen.h"
#include "problems/ForeignFormat.h"
#include "problems/ProblemFileError.h"

namespace fenlistformat {
namespace {

void ReadLine(std::string_view line, std::size_t offset, int nDefaultMoves,
              TProblemCollection& collection) {
  std::istringstream words{std::string(line)};
  std::vector<std::string> fields;
  for (std::string word; words >> word;) fields.push_back(word);
  if (fields.empty()) return;  // blanks only, of any kind (vertical tabs, form feeds)
  std::optional<TStipulation> stipulation;
  try {
    if (fields.back().starts_with('#') || fields.back().starts_with("s#")) {
      stipulation = ParseStipulationText(fields.back());
      fields.pop_back();
    }
  } catch (const ChessException& error) {
    FailAt(offset, error.what());
  }
  if (fields.size() > 1 && fields[1] != "w")
    FailAt(offset, "Only positions with White to move are read (side: " + fields[1] + ")");
  if (!stipulation && nDefaultMoves > 0) stipulation = TStipulation::DirectMate(nDefaultMoves);
  if (!stipulation)
    FailAt(offset, "No stipulation: end the line with one (#3) or give a default move count");
  TChessboard board;
  ClearChessboard(board);
  try {
    if (fields.empty() || !fen::ReadFen(board, fields[0])) FailAt(offset, "Improper FEN code");
    fen::CheckStartPosition(board);
  } catch (const ProblemSyntaxError&) {
    throw;
  } catch (const ChessException& error) {
    FailAt(offset, error.what());
  }
  const int id = collection.Empty() ? 1 : collection.Problems().rbegin()->first + 1;
  collection.Put(NewImportedProblem(id, *stipulation, board));
}

}  // namespace

void Read(std::string_view text, int nDefaultMoves, TProblemCollection& collection) {
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t end = text.find('\n', at);
    if (end == std::string_view::npos) end = text.size();
    ReadLine(text.substr(at, end - at), at, nDefaultMoves, collection);
    at = end + 1;
  }
}

std::string Write(const TProblemCollection& collection, std::vector<std::string>& warnings) {
  std::string out;
  for (const auto& [id, problem] : collection.Problems())
    out += fen::WriteFullFen(problem->start) + "\n";
  if (!collection.Empty())
    warnings.push_back(
        "a FEN list holds positions only: stipulations, answers and descriptions "
        "are not written");
  return out;
}

}  // namespace fenlistformat
