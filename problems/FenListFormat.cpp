#include "problems/FenListFormat.h"

#include <sstream>
#include <utility>

#include "core/ChessException.h"
#include "core/Fen.h"
#include "problems/ForeignFormat.h"
#include "problems/ProblemFileError.h"
#include "problems/ShortKeys.h"

namespace fenlistformat {
namespace {

constexpr const char* kAnswerMark = "Answer:";

// Keys may be separated by commas as well as spaces: "Qa5, Nc4".
void AppendKeys(const std::string& word, std::vector<std::string>& keys) {
  std::istringstream parts(word);
  for (std::string key; std::getline(parts, key, ',');)
    if (!key.empty()) keys.push_back(key);
}

bool IsStipulation(const std::string& word) {
  return word.starts_with('#') || word.starts_with("s#") || word.starts_with("S#");
}

void ReadLine(std::string_view line, std::size_t offset, int nDefaultMoves,
              TProblemCollection& collection) {
  std::istringstream words{std::string(line)};
  std::vector<std::string> fields, keys;
  bool bAnswer = false;
  for (std::string word; words >> word;) {
    if (word == kAnswerMark)
      bAnswer = true;
    else if (bAnswer)
      AppendKeys(word, keys);
    else
      fields.push_back(word);
  }
  if (fields.empty() && !bAnswer) return;  // blanks only, of any kind (vertical tabs, form feeds)
  if (fields.empty()) FailAt(offset, "Improper FEN code");
  std::optional<TStipulation> stipulation;
  try {
    if (fields.size() > 1 && IsStipulation(fields.back())) {
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
    FailAt(offset, "No stipulation: give one after the FEN (#3) or a default move count");
  TChessboard board;
  ClearChessboard(board);
  try {
    if (!fen::ReadFen(board, fields[0])) FailAt(offset, "Improper FEN code");
    fen::CheckStartPosition(board);
  } catch (const ProblemSyntaxError&) {
    throw;
  } catch (const ChessException& error) {
    FailAt(offset, error.what());
  }
  const int id = collection.Empty() ? 1 : collection.Problems().rbegin()->first + 1;
  auto problem = NewImportedProblem(id, *stipulation, board);
  if (bAnswer) shortkeys::Read(keys, offset, *problem);
  collection.Put(std::move(problem));
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
  bool bDescriptions = false;
  for (const auto& [id, problem] : collection.Problems()) {
    bDescriptions = bDescriptions || !problem->description.empty();
    out += fen::WriteFullFen(problem->start);
    if (problem->stipulation.type == TStipulation::kMoveLine)
      warnings.push_back("problem " + std::to_string(id) +
                         ": a position without a stipulation reads back as the default #N");
    else
      out += " " + problem->stipulation.Text();
    if (problem->HasFlag(option::kAnswerGiven))
      out += std::string(" ") + kAnswerMark + shortkeys::Write(*problem, warnings);
    out += "\n";
  }
  if (bDescriptions) warnings.push_back("a FEN list holds no descriptions: they are not written");
  return out;
}

}  // namespace fenlistformat
