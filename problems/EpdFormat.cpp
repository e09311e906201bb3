#include "problems/EpdFormat.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <sstream>

#include "core/ChessException.h"
#include "core/Fen.h"
#include "problems/ForeignFormat.h"
#include "problems/ProblemFileError.h"
#include "problems/ShortKeys.h"

namespace epdformat {
namespace {

struct TOperation {
  std::string opcode;
  std::vector<std::string> operands;  // quoted strings without their quotes
};

// The operations after the position fields: "dm 3; bm Qa5 Qb5; c0 \"text; more\";".
std::vector<TOperation> SplitOperations(std::string_view text, std::size_t offset) {
  std::vector<TOperation> operations;
  TOperation current;
  std::string word;
  auto endWord = [&] {
    if (word.empty()) return;
    if (current.opcode.empty())
      current.opcode = word;
    else
      current.operands.push_back(word);
    word.clear();
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') {
      const std::size_t close = text.find('"', i + 1);
      if (close == std::string_view::npos) FailAt(offset + i, "Unterminated string");
      endWord();
      current.operands.emplace_back(text.substr(i + 1, close - i - 1));
      i = close;
    } else if (c == ';') {
      endWord();
      if (!current.opcode.empty()) operations.push_back(current);
      current = TOperation();
    } else if (c == ' ' || c == '\t') {
      endWord();
    } else {
      word += c;
    }
  }
  endWord();
  if (!current.opcode.empty()) operations.push_back(current);
  return operations;
}

std::optional<int> Number(const std::string& text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

void ReadLine(std::string_view line, std::size_t offset, int nDefaultMoves,
              TProblemCollection& collection) {
  std::size_t operationsAt = 0;
  std::string fields[4];
  for (std::string& field : fields) {
    while (operationsAt < line.size() &&
           std::isspace(static_cast<unsigned char>(line[operationsAt])))
      ++operationsAt;
    while (operationsAt < line.size() &&
           !std::isspace(static_cast<unsigned char>(line[operationsAt])))
      field += line[operationsAt++];
  }
  const std::string& placement = fields[0];
  const std::string& side = fields[1];
  if (fields[3].empty()) FailAt(offset, "An EPD line needs four position fields");
  if (side != "w")
    FailAt(offset, "Only positions with White to move are read (side: " + side + ")");
  TChessboard board;
  ClearChessboard(board);
  try {
    if (!fen::ReadFen(board, placement)) FailAt(offset, "Improper FEN code");
    fen::CheckStartPosition(board);
  } catch (const ProblemSyntaxError&) {
    throw;
  } catch (const ChessException& error) {
    FailAt(offset, error.what());
  }
  const auto operations = SplitOperations(line.substr(operationsAt), offset + operationsAt);
  std::optional<TStipulation> stipulation;
  std::optional<int> id;
  std::string description, idText;
  const std::vector<std::string>* keys = nullptr;
  for (const TOperation& operation : operations) {
    const std::string first = operation.operands.empty() ? "" : operation.operands[0];
    if (operation.opcode == "dm" || operation.opcode == "sm") {
      try {
        stipulation = ParseStipulationText((operation.opcode == "sm" ? "s#" : "#") + first);
      } catch (const ChessException& error) {
        FailAt(offset, error.what());
      }
    } else if (operation.opcode == "bm") {
      keys = &operation.operands;
    } else if (operation.opcode == "id") {
      id = Number(first);
      idText = first;
    } else if (operation.opcode == "c0") {
      description = first;
    }
  }
  if (!stipulation && nDefaultMoves > 0) stipulation = TStipulation::DirectMate(nDefaultMoves);
  if (!stipulation) FailAt(offset, "No \"dm\" operation: the number of moves is not known");
  if (id && (*id <= 0 || collection.Find(*id))) id.reset();
  if (!id) id = collection.Empty() ? 1 : collection.Problems().rbegin()->first + 1;
  if (description.empty() && !Number(idText)) description = idText;
  auto problem = NewImportedProblem(*id, *stipulation, board);
  problem->description = description;
  if (keys) shortkeys::Read(*keys, offset, *problem);
  collection.Put(std::move(problem));
}

}  // namespace

void Read(std::string_view text, int nDefaultMoves, TProblemCollection& collection) {
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t end = text.find('\n', at);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(at, end - at);
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.remove_suffix(1);
    if (!line.empty()) ReadLine(line, at, nDefaultMoves, collection);
    at = end + 1;
  }
}

std::string Write(const TProblemCollection& collection, std::vector<std::string>& warnings) {
  std::string out;
  for (const auto& [id, problem] : collection.Problems()) {
    const std::string name = "problem " + std::to_string(id) + ": ";
    if (problem->stipulation.type == TStipulation::kMoveLine) {
      warnings.push_back(name + "a position without a stipulation is left out");
      continue;
    }
    std::istringstream full(fen::WriteFullFen(problem->start));
    std::string placement, side, castling, enPassant;
    full >> placement >> side >> castling >> enPassant;
    out += placement + " " + side + " " + castling + " " + enPassant;
    const bool bSelfmate = problem->stipulation.type == TStipulation::kSelfmate;
    out += (bSelfmate ? " sm " : " dm ") + std::to_string(problem->stipulation.Moves()) + ";";
    if (problem->HasFlag(option::kAnswerGiven))
      out += " bm" + shortkeys::Write(*problem, warnings) + ";";
    out += " id \"" + std::to_string(id) + "\";";
    if (!problem->description.empty()) {
      std::string description = problem->description;
      if (std::ranges::count(description, '"') > 0)
        warnings.push_back(name + "double quotes of the description written as single quotes");
      std::ranges::replace(description, '"', '\'');
      std::ranges::replace(description, '\n', ' ');
      out += " c0 \"" + description + "\";";
    }
    out += "\n";
  }
  return out;
}

}  // namespace epdformat
