#include "app/SearchCriteria.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "core/ChessException.h"
#include "core/Fen.h"
#include "problems/Problem.h"

namespace {

// More than this many of a kind cannot stand on a board.
constexpr int kMaxCount = 64;

constexpr const char* kImproperCountTexts[kCountFields] = {
    "Improper number of pieces on chessboard.",
    "Improper number of white pieces on chessboard.",
    "Improper number of black pieces on chessboard.",
    "Improper number of figures on chessboard.",
    "Improper number of white figures on chessboard.",
    "Improper number of black figures on chessboard.",
    "Improper number of major figures on chessboard.",
    "Improper number of white major figures.",
    "Improper number of black major figures.",
    "Improper number of pawns on chessboard.",
    "Improper number of white pawns on chessboard.",
    "Improper number of black pawns on chessboard.",
};

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// A bound as typed: nothing for an empty one, -1 for one that is no number in 0..nMax.
std::optional<int> BoundOf(const std::string& typed, int nMax) {
  const std::string text = Trimmed(typed);
  if (text.empty()) return std::nullopt;
  if (text.size() > 4 ||
      !std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; }))
    return -1;
  const int n = std::stoi(text);
  return n <= nMax ? n : -1;
}

// The range typed, nothing when both ends are empty, -1 ends when it is improper.
std::optional<TRange> RangeOf(const TRangeText& typed, int nMin, int nMax, bool& bImproper) {
  const auto from = BoundOf(typed.from, nMax), to = BoundOf(typed.to, nMax);
  if (!from && !to) return std::nullopt;
  const TRange range{from.value_or(nMin), to.value_or(nMax)};
  bImproper = range.nFrom < nMin || range.nTo < nMin || range.nFrom > range.nTo;
  return range;
}

// The characters of a position identifier's text.
bool MayBeId(const std::string& text) {
  return text.size() >= 12 && std::all_of(text.begin(), text.end(), [](unsigned char c) {
           return std::isalnum(c) != 0 || c == '(' || c == ')';
         });
}

std::string Folded(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

const char* ImproperCountText(ECountField field) {
  return kImproperCountTexts[field];
}

std::string ImproperRegexText(const std::string& reason) {
  return "Improper regular expression: " + reason;
}

std::optional<std::array<PieceCode, 64>> PlacementOf(const std::string& fenText) {
  const std::string text = Trimmed(fenText);
  // A placement names eight ranks; a word of the description never has seven slashes.
  if (std::count(text.begin(), text.end(), '/') != 7) return std::nullopt;
  TChessboard board{};
  try {
    if (!fen::ReadFen(board, text)) return std::nullopt;
  } catch (const ChessException&) {
    return std::nullopt;
  }
  std::array<PieceCode, 64> squares;
  std::memcpy(squares.data(), board.squares, squares.size());
  return squares;
}

std::variant<TSearchQuery, std::string> CheckCriteria(const TSearchCriteria& criteria) {
  TSearchQuery query;
  query.criteria = criteria;
  if (!Trimmed(criteria.fen).empty()) {
    query.fenPosition = PlacementOf(criteria.fen);
    if (!query.fenPosition) return std::string(kImproperFenText);
  }
  bool bImproper = false;
  query.moves = RangeOf(criteria.moves, 1, TStipulation::kMaxMoves, bImproper);
  if (bImproper) return std::string(kImproperMovesText);
  for (int field = 0; field < kCountFields; ++field) {
    query.counts[field] = RangeOf(criteria.counts[field], 0, kMaxCount, bImproper);
    if (bImproper) return std::string(kImproperCountTexts[field]);
  }
  if (!criteria.text.empty()) {
    query.textPosition = PlacementOf(criteria.text);
    query.bTextMayBeId = MayBeId(Trimmed(criteria.text));
    query.foldedText = criteria.bCaseSensitive ? criteria.text : Folded(criteria.text);
    if (criteria.bRegex) {
      auto flags = std::regex::ECMAScript | std::regex::optimize;
      if (!criteria.bCaseSensitive) flags |= std::regex::icase;
      try {
        query.regex.emplace(criteria.text, flags);
      } catch (const std::regex_error& error) {
        return ImproperRegexText(error.what());
      }
    }
  }
  return query;
}
