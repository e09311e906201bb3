#pragma once
// What a problem search asks for, as the user typed it, and its checked form. Every field is
// optional: an empty one does not restrict. Kings count as pieces and as figures (pieces
// other than pawns); the major figures are the rooks and the queens.
#include <array>
#include <optional>
#include <regex>
#include <string>
#include <variant>
#include <vector>

#include "core/PieceCode.h"

// A range as typed: either end may be empty.
struct TRangeText {
  std::string from, to;
};

// How a wanted heuristic may appear with the problem's others: alone (no heuristic outside
// those asked for), beside any others, or as one of a group of which any one will do.
enum class EHeuristicUse { Alone, WithOthers, Partially };

struct THeuristicWanted {
  int nIndex = 0;  // bit index in the heuristic catalogue
  EHeuristicUse use = EHeuristicUse::WithOthers;
};

// The counted ranges, in the order of the fields (and of their validation).
enum ECountField {
  kPiecesTotal,
  kPiecesWhite,
  kPiecesBlack,
  kFiguresTotal,
  kFiguresWhite,
  kFiguresBlack,
  kMajorsTotal,
  kMajorsWhite,
  kMajorsBlack,
  kPawnsTotal,
  kPawnsWhite,
  kPawnsBlack,
  kCountFields
};

struct TSearchCriteria {
  // Found in the description, or a FEN, or a position identifier.
  std::string text;
  bool bCaseSensitive = false;
  bool bRegex = false;  // ECMAScript
  TRangeText moves;     // the N of #N
  std::array<TRangeText, kCountFields> counts;
  bool bBlackKingOnEdge = false;
  bool bUnsolvedOnly = false;  // no recorded answer
  std::string fen;
  std::string tag;
  std::vector<THeuristicWanted> heuristics;
  bool bIncludeRelaxed = false;  // heuristics a problem turns OFF count as its own too
  bool bForcedSafeMode = false;
};

struct TRange {
  int nFrom = 0, nTo = 0;
  bool Holds(int n) const { return nFrom <= n && n <= nTo; }
};

// The criteria checked and made ready to match.
struct TSearchQuery {
  TSearchCriteria criteria;
  std::optional<std::regex> regex;
  std::string foldedText;  // the text in small letters when the case does not matter
  std::optional<std::array<PieceCode, 64>> textPosition;  // the text read as a FEN
  bool bTextMayBeId = false;                              // the text could be an identifier
  std::optional<std::array<PieceCode, 64>> fenPosition;
  std::optional<TRange> moves;
  std::array<std::optional<TRange>, kCountFields> counts;

  // Whether a position is sought (by the FEN field, or a FEN in the text).
  bool IsPositionSearch() const { return textPosition || fenPosition; }
};

// The checked query, or the text that says which field is wrong: the first in field order.
std::variant<TSearchQuery, std::string> CheckCriteria(const TSearchCriteria& criteria);

// The placement of a FEN (its first field, or the whole text), nothing when it does not read.
std::optional<std::array<PieceCode, 64>> PlacementOf(const std::string& fenText);

// The texts of the validation.
inline constexpr const char* kImproperFenText = "Improper FEN code.";
inline constexpr const char* kImproperMovesText = "Improper number of moves";
const char* ImproperCountText(ECountField field);
std::string ImproperRegexText(const std::string& reason);
