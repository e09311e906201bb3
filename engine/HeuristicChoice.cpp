#include "engine/HeuristicChoice.h"

#include <algorithm>

#include "engine/HeuristicPlan.h"
#include "problems/HeuristicCatalogue.h"
#include "problems/TextTools.h"

namespace heuristicchoice {
namespace {

std::optional<SquareIndex> ReadSquare(const std::string& word) {
  if (word.size() != 2) return std::nullopt;
  const int file = std::tolower(static_cast<unsigned char>(word[0])) - 'a';
  const int rank = word[1] - '1';
  if (file < 0 || file > 7 || rank < 0 || rank > 7) return std::nullopt;
  return square::Make(file, rank);
}

// "#2", "#2+-Preliminary", "CheckOnly-Custom": the mode, then the kind of run.
bool ApplyForcedMateWord(THeuristicSet& set, std::string word) {
  const auto Strip = [&](std::string_view suffix) {
    const bool bHas =
        word.size() > suffix.size() &&
        text::EqualsNoCase(std::string_view(word).substr(word.size() - suffix.size()), suffix);
    if (bHas) word.resize(word.size() - suffix.size());
    return bHas;
  };
  if (Strip("-Preliminary"))
    set.bPreliminary = true;
  else if (Strip("-Custom"))
    set.bCustom = true;
  static constexpr std::pair<const char*, EForcedMateMode> kModes[] = {
      {"CheckOnly", EForcedMateMode::kCheckOnly}, {"#1", EForcedMateMode::kMateIn1},
      {"#1+", EForcedMateMode::kMateIn1Plus},     {"#2", EForcedMateMode::kMateIn2},
      {"#2+", EForcedMateMode::kMateIn2Plus},     {"#3", EForcedMateMode::kMateIn3},
      {"#4", EForcedMateMode::kMateIn4},          {"#5", EForcedMateMode::kMateIn5}};
  for (const auto& [name, mode] : kModes)
    if (text::EqualsNoCase(word, name)) return set.forcedMateMode = mode, true;
  return false;
}

bool ApplyWord(THeuristicSet& set, std::uint32_t bit, const std::string& word) {
  switch (bit) {
    case shbit::kFindForcedMate:
      return ApplyForcedMateWord(set, word);
    case shbit::kDontLoseAnyFigures:
      if (text::EqualsNoCase(word, "incl.pawns")) return set.nLoseFiguresLevel = 1, true;
      if (text::EqualsNoCase(word, "incl.pawnsBeforePromo")) return set.nLoseFiguresLevel = 2, true;
      return false;
    case shbit::kKeepKingOnTheEdge:
    case shbit::kKeepKingWithinExtEdge:
      // The upper-case forms first: "strict" and "STRICT" differ only in case.
      if (word == "STRICT") return set.edgeForm = EEdgeForm::kAllStrict, true;
      if (word == "strict") return set.edgeForm = EEdgeForm::kStrict, true;
      if (text::EqualsNoCase(word, "ALMOST_STRICT"))
        return set.edgeForm = EEdgeForm::kAlmostStrict, true;
      return false;
    case shbit::kKeyField:
    case shbit::kKeyWhiteFigure:
      if (const auto s = ReadSquare(word)) return set.keySquare = *s, true;
      return false;
    case shbit::kKeepKingNearCorner: {
      const bool bMoves = !word.empty() && (word.back() == 'M' || word.back() == 'm');
      const std::string digits = bMoves ? word.substr(0, word.size() - 1) : word;
      if (digits.size() != 1 || digits[0] < '1' || digits[0] > '7') return false;
      set.nCornerDistance = static_cast<std::uint8_t>(digits[0] - '0');
      set.bCornerInKingMoves = bMoves;
      return true;
    }
    case shbit::kOneColorPlay:
      for (const EOneColour colour :
           {EOneColour::kBishopColour, EOneColour::kLightSquares, EOneColour::kDarkSquares})
        if (text::EqualsNoCase(word, heuristicset::OneColourWord(colour)))
          return set.oneColour = colour, true;
      return false;
    case shbit::kUseBlockBlackPawnsLevel:
      if (word.size() != 1 || word[0] < '1' || word[0] > '8') return false;
      return set.nBlockedPawnsLevel = static_cast<std::uint8_t>(word[0] - '0'), true;
    case shbit::kKeyLine:
      if (const auto line = keyline::ReadLine(word)) return set.keyLine = *line, true;
      return false;
    case shbit::kKeyDiagonal:
      if (const auto line = keyline::ReadDiagonal(word)) return set.keyLine = *line, true;
      return false;
    case shbit::kDontLetKingMove:
      return text::EqualsNoCase(word, "excptns") && (set.bKingMoveExceptions = true);
    default:
      return false;
  }
}

// A forced-mate set the user chose says so in its description, unless it is a preliminary run.
void MarkCustom(THeuristicSet& set) {
  set.bCustom = set.Has(shbit::kFindForcedMate) && !set.bPreliminary;
}

}  // namespace

bool AddMember(THeuristicSet& set, std::uint32_t bit, const std::vector<std::string>& words) {
  set.mask |= bit;
  return std::all_of(words.begin(), words.end(),
                     [&](const std::string& word) { return ApplyWord(set, bit, word); });
}

TNamedSet ReadNamedSet(std::string_view text) {
  TNamedSet named;
  if (text::EqualsNoCase(text, "auto")) return named.bAutomatic = true, named;
  if (text::EqualsNoCase(text, "none")) return named;
  std::size_t start = 0;
  while (start <= text.size() && named.sError.empty()) {
    std::size_t end = start;
    for (int depth = 0; end < text.size() && (text[end] != ',' || depth > 0); ++end)
      depth += text[end] == '(' ? 1 : text[end] == ')' ? -1 : 0;
    const std::string_view item = text.substr(start, end - start);
    const std::size_t open = item.find('(');
    const std::string_view name = item.substr(0, open);
    std::vector<std::string> words;
    if (open != std::string_view::npos && item.back() == ')')
      words.emplace_back(item.substr(open + 1, item.size() - open - 2));
    const int index = heuristics::IndexOfName(name);
    const std::uint32_t bit = text::EqualsNoCase(name, "SH_DONTLETKINGMOVE")
                                  ? shbit::kDontLetKingMove
                              : index >= 0 ? 1u << index
                                           : 0;
    if (bit == 0 || !AddMember(named.set, bit, words)) named.sError = std::string(item);
    start = end + 1;
  }
  MarkCustom(named.set);
  return named;
}

std::vector<THeuristicSet> PassesFor(const TChessboard& start, int nMoves,
                                     const std::map<int, std::vector<std::string>>& settings,
                                     const std::optional<TNamedSet>& named, bool bDynamicDlfu) {
  if (named && !named->bAutomatic) return heuristicplan::RelaxationPath(named->set);
  THeuristicSet initial;
  std::uint32_t off = 0;
  for (const auto& [index, words] : settings) {
    const std::uint32_t bit = 1u << index;
    if (words.size() == 1 && words[0] == "OFF")
      off |= bit;
    else
      AddMember(initial, bit, words);  // words a member does not take are left at defaults
  }
  MarkCustom(initial);
  if (initial.mask != 0) return heuristicplan::RelaxationPath(initial);
  std::vector<THeuristicSet> passes;
  for (THeuristicSet set : heuristicplan::AutomaticPasses(start, nMoves, bDynamicDlfu)) {
    set.mask &= ~off;
    if (set.mask != 0 && (passes.empty() || !(passes.back() == set))) passes.push_back(set);
  }
  return passes;
}

bool ForcesSafeMode(const TChessboard& start) {
  const auto Minors = [&](bool bBlack) {
    return start.nPieces[kWhiteBishops + bBlack] + start.nPieces[kWhiteKnights + bBlack];
  };
  const auto Majors = [&](bool bBlack) {
    return start.nPieces[kWhiteQueens + bBlack] + start.nPieces[kWhiteRooks + bBlack];
  };
  const auto FewMinorsOnly = [&](bool bBlack) {
    return Majors(bBlack) == 0 && Minors(bBlack) >= 1 && Minors(bBlack) <= 2;
  };
  return FewMinorsOnly(false) && FewMinorsOnly(true);
}

}  // namespace heuristicchoice
