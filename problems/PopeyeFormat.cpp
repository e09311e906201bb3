#include "problems/PopeyeFormat.h"

#include <array>
#include <cctype>

#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "problems/ForeignFormat.h"
#include "problems/ProblemFileError.h"
#include "problems/ProblemWriter.h"

namespace popeyeformat {
namespace {

enum class EKeyword { kNone, kBegin, kNext, kEnd, kStipulation, kPieces, kRemark, kOption, kOther };

struct TKeywordName {
  const char* name;
  EKeyword keyword;
};
constexpr std::array kKeywords{
    TKeywordName{"beginproblem", EKeyword::kBegin},
    TKeywordName{"nextproblem", EKeyword::kNext},
    TKeywordName{"endproblem", EKeyword::kEnd},
    TKeywordName{"stipulation", EKeyword::kStipulation},
    TKeywordName{"pieces", EKeyword::kPieces},
    TKeywordName{"remark", EKeyword::kRemark},
    TKeywordName{"author", EKeyword::kRemark},
    TKeywordName{"origin", EKeyword::kRemark},
    TKeywordName{"title", EKeyword::kRemark},
    TKeywordName{"award", EKeyword::kRemark},
    TKeywordName{"option", EKeyword::kOption},
    TKeywordName{"condition", EKeyword::kOther},
    TKeywordName{"twin", EKeyword::kOther},
    TKeywordName{"zeroposition", EKeyword::kOther},
    TKeywordName{"protocol", EKeyword::kOther},
};
constexpr const char* kKeyPrefix = "Key:";
constexpr std::string_view kPieceLetters = "KQRBSP";
constexpr std::array<PieceCode, 6> kPieceTypes{piece::kKing,   piece::kQueen,  piece::kRook,
                                               piece::kBishop, piece::kKnight, piece::kPawn};

std::string Lower(std::string_view word) {
  std::string out(word);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

bool IsPrefixOf(std::string_view word, std::string_view full) {
  return word.size() >= 3 && word.size() <= full.size() &&
         Lower(word) == full.substr(0, word.size());
}

EKeyword KeywordOf(std::string_view word) {
  for (const TKeywordName& entry : kKeywords)
    if (IsPrefixOf(word, entry.name)) return entry.keyword;
  return EKeyword::kNone;
}

// Words and whole lines of the text, with the offset of what was read last for errors.
class CWordReader {
 public:
  explicit CWordReader(std::string_view source) : text(source) {}
  bool AtEnd() {
    SkipSpace();
    return at >= text.size();
  }
  std::string_view Word() {
    SkipSpace();
    start = at;
    while (at < text.size() && !std::isspace(static_cast<unsigned char>(text[at]))) ++at;
    return text.substr(start, at - start);
  }
  // The rest of the current line, without the spaces around it.
  std::string_view RestOfLine() {
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
    start = at;
    while (at < text.size() && text[at] != '\n' && text[at] != '\r') ++at;
    std::size_t end = at;
    while (end > start && std::isspace(static_cast<unsigned char>(text[end - 1]))) --end;
    return text.substr(start, end - start);
  }
  void Unread() { at = start; }
  [[noreturn]] void Fail(const std::string& message) const { FailAt(start, message); }

 private:
  void SkipSpace() {
    while (at < text.size() && std::isspace(static_cast<unsigned char>(text[at]))) ++at;
  }
  std::string_view text;
  std::size_t at = 0;
  std::size_t start = 0;
};

// One problem being read.
struct TPending {
  std::optional<TStipulation> stipulation;
  TChessboard board;
  bool bPieces = false;
  std::string description;
  std::vector<TMove> answer;
  bool bAnswer = false;

  TPending() { ClearChessboard(board); }
};

void ReadPieces(CWordReader& reader, TPending& pending) {
  std::optional<PieceCode> colour;
  while (!reader.AtEnd()) {
    const std::string_view word = reader.Word();
    const std::string lower = Lower(word);
    if (IsPrefixOf(word, "white") || IsPrefixOf(word, "black")) {
      colour = lower[0] == 'w' ? piece::kWhite : piece::kBlack;
      continue;
    }
    if (IsPrefixOf(word, "neutral")) reader.Fail("Neutral pieces are not supported");
    if (KeywordOf(word) != EKeyword::kNone) {
      reader.Unread();
      return;
    }
    if (!colour)
      reader.Fail("A colour (White or Black) must come before the pieces: " + std::string(word));
    const std::size_t type = kPieceLetters.find(static_cast<char>(std::toupper(word[0])));
    if (type == std::string_view::npos || word.size() < 3 || (word.size() - 1) % 2 != 0)
      reader.Fail("Unsupported piece or squares: " + std::string(word));
    for (std::size_t i = 1; i < word.size(); i += 2) {
      const char file = static_cast<char>(std::tolower(word[i])), rank = word[i + 1];
      if (file < 'a' || file > 'h' || rank < '1' || rank > '8')
        reader.Fail("Improper square in " + std::string(word));
      pending.board.squares[square::Make(file - 'a', rank - '1')] = *colour | kPieceTypes[type];
    }
    pending.bPieces = true;
  }
}

void ReadKey(CWordReader& reader, std::string_view moves, TPending& pending) {
  std::size_t begin = 0;
  while (begin <= moves.size()) {
    std::size_t end = moves.find(',', begin);
    if (end == std::string_view::npos) end = moves.size();
    std::string move(moves.substr(begin, end - begin));
    std::erase_if(move, [](char c) { return std::isspace(static_cast<unsigned char>(c)); });
    if (!move.empty()) {
      try {
        pending.answer.push_back(notation::FullDescriptionToMove(move, true));
      } catch (const ChessException& error) {
        reader.Fail("Improper key " + move + ": " + error.what());
      }
    }
    begin = end + 1;
  }
  pending.bAnswer = true;
}

void Finish(CWordReader& reader, TPending& pending, TProblemCollection& collection) {
  if (!pending.stipulation) reader.Fail("Problem without a stipulation");
  if (!pending.bPieces) reader.Fail("Problem without pieces");
  try {
    Analyse(pending.board, true);
    fen::CheckStartPosition(pending.board);
  } catch (const ChessException& error) {
    reader.Fail(error.what());
  }
  const int id = collection.Empty() ? 1 : collection.Problems().rbegin()->first + 1;
  auto problem = NewImportedProblem(id, *pending.stipulation, pending.board);
  problem->description = pending.description;
  problem->answer = pending.answer;
  if (pending.bAnswer) problem->options |= option::kAnswerGiven;
  collection.Put(std::move(problem));
  pending = TPending();
}

}  // namespace

void Read(std::string_view text, TProblemCollection& collection) {
  CWordReader reader(text);
  if (reader.AtEnd() || KeywordOf(reader.Word()) != EKeyword::kBegin)
    reader.Fail("The file must begin with BeginProblem");
  TPending pending;
  while (true) {
    if (reader.AtEnd()) reader.Fail("EndProblem missing at the end of the file");
    const std::string_view word = reader.Word();
    switch (KeywordOf(word)) {
      case EKeyword::kStipulation:
        try {
          pending.stipulation = ParseStipulationText(reader.Word());
        } catch (const ChessException& error) {
          reader.Fail(error.what());
        }
        break;
      case EKeyword::kPieces:
        ReadPieces(reader, pending);
        break;
      case EKeyword::kRemark: {
        const std::string_view line = reader.RestOfLine();
        if (line.starts_with(kKeyPrefix)) {
          ReadKey(reader, line.substr(std::string_view(kKeyPrefix).size()), pending);
        } else if (!line.empty()) {
          pending.description += (pending.description.empty() ? "" : "; ") + std::string(line);
        }
        break;
      }
      case EKeyword::kOption:
        reader.RestOfLine();  // how the solver prints its solution: nothing to keep
        break;
      case EKeyword::kNext:
        Finish(reader, pending, collection);
        break;
      case EKeyword::kEnd:
        Finish(reader, pending, collection);
        return;
      case EKeyword::kBegin:
      case EKeyword::kOther:
        reader.Fail("Not supported here: " + std::string(word));
      case EKeyword::kNone:
        reader.Fail("Unknown word: " + std::string(word));
    }
  }
}

namespace {

// A remark ends at the end of its line.
std::string OneLine(std::string text) {
  for (char& c : text)
    if (c == '\n' || c == '\r') c = ' ';
  return text;
}

std::string PiecesOfColour(const TChessboard& board, PieceCode colour) {
  std::string out;
  for (std::size_t type = 0; type < kPieceTypes.size(); ++type) {
    std::string squares;
    for (SquareIndex s = 0; s < 64; ++s)
      if (board.squares[s] == (colour | kPieceTypes[type])) squares += notation::SquareToText(s);
    if (!squares.empty()) out += std::string(" ") + kPieceLetters[type] + squares;
  }
  return out;
}

}  // namespace

std::string Write(const TProblemCollection& collection, std::vector<std::string>& warnings) {
  std::string out;
  for (const auto& [id, problem] : collection.Problems()) {
    if (problem->stipulation.type == TStipulation::kMoveLine) {
      warnings.push_back("problem " + std::to_string(id) +
                         ": a position without a stipulation is left out");
      continue;
    }
    out += out.empty() ? "BeginProblem\n" : "NextProblem\n";
    if (!problem->description.empty()) out += "Remark " + OneLine(problem->description) + "\n";
    out += "Stipulation " + problem->stipulation.Text() + "\n";
    out += "Pieces\n  White" + PiecesOfColour(problem->start, piece::kWhite) + "\n";
    out += "  Black" + PiecesOfColour(problem->start, piece::kBlack) + "\n";
    if (problem->HasFlag(option::kAnswerGiven)) {
      out += std::string("Remark ") + kKeyPrefix;
      for (std::size_t i = 0; i < problem->answer.size(); ++i)
        out += (i > 0 ? ", " : " ") + problemwriter::AnswerText(problem->start, problem->answer[i]);
      out += "\n";
    }
  }
  if (!out.empty()) out += "EndProblem\n";
  return out;
}

}  // namespace popeyeformat
