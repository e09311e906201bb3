#include "engine/HeuristicSet.h"

#include "problems/HeuristicCatalogue.h"

std::uint32_t THeuristicSet::Params() const {
  return static_cast<std::uint32_t>(forcedMateMode) | (bPreliminary ? 1u << 4 : 0) |
         static_cast<std::uint32_t>(nLoseFiguresLevel & 3) << 5 |
         static_cast<std::uint32_t>(edgeForm) << 7 | (bKingMoveExceptions ? 1u << 9 : 0) |
         static_cast<std::uint32_t>(keySquare) << 10 |
         static_cast<std::uint32_t>(nCornerDistance & 7) << 18 |
         (bCornerInKingMoves ? 1u << 21 : 0) |
         static_cast<std::uint32_t>(nBlockedPawnsLevel & 15) << 22 |
         // kNone packs as 0, so that sets without a key line keep the word they had.
         static_cast<std::uint32_t>((keyLine + 1) & 63) << 26;
}

namespace heuristicset {
namespace {

std::string SquareText(SquareIndex s) {
  if (s > 63) return "";
  return {static_cast<char>('A' + square::File(s)), static_cast<char>('1' + square::Rank(s))};
}

std::string ForcedMateText(const THeuristicSet& set) {
  static constexpr const char* kModes[] = {"CheckOnly", "#1", "#1+", "#2", "#2+", "#3", "#4", "#5"};
  const int mode = static_cast<int>(set.forcedMateMode);
  std::string text = mode >= 2 && mode <= 9 ? kModes[mode - 2] : "";
  if (set.bPreliminary) text += "-Preliminary";
  return text;
}

std::string EdgeText(EEdgeForm form) {
  switch (form) {
    case EEdgeForm::kStrict:
      return "strict";
    case EEdgeForm::kAlmostStrict:
      return "ALMOST_STRICT";
    case EEdgeForm::kAllStrict:
      return "STRICT";
    case EEdgeForm::kLoose:
      break;
  }
  return "";
}

std::string ParameterText(const THeuristicSet& set, std::uint32_t bit) {
  switch (bit) {
    case shbit::kFindForcedMate:
      return ForcedMateText(set);
    case shbit::kDontLoseAnyFigures:
      return set.nLoseFiguresLevel == 0   ? ""
             : set.nLoseFiguresLevel == 1 ? "incl.pawns"
                                          : "incl.pawnsBeforePromo";
    case shbit::kKeyField:
    case shbit::kKeyWhiteFigure:
      return SquareText(set.keySquare);
    case shbit::kKeepKingOnTheEdge:
    case shbit::kKeepKingWithinExtEdge:
      return EdgeText(set.edgeForm);
    case shbit::kKeepKingNearCorner:
      return std::to_string(set.nCornerDistance) + (set.bCornerInKingMoves ? "M" : "");
    case shbit::kUseBlockBlackPawnsLevel:
      return set.nBlockedPawnsLevel == 0 ? "" : std::to_string(set.nBlockedPawnsLevel);
    case shbit::kKeyLine:
    case shbit::kKeyDiagonal:
      return keyline::Text(set.keyLine);
    default:
      return "";
  }
}

}  // namespace

std::string DescribeMember(const THeuristicSet& set, std::uint32_t bit) {
  if (bit == shbit::kDontLetKingMove)
    return set.bKingMoveExceptions ? "SH_DONTLETKINGMOVE(excptns)" : "SH_DONTLETKINGMOVE";
  const std::string parameter = ParameterText(set, bit);
  const std::string name(heuristics::NameOfBit(bit));
  return parameter.empty() ? name : name + "(" + parameter + ")";
}

std::string Describe(const THeuristicSet& set) {
  std::string text;
  for (int i = 0; i < 32; ++i) {
    const std::uint32_t bit = 1u << i;
    if (!set.Has(bit)) continue;
    if (!text.empty()) text += ", ";
    text += DescribeMember(set, bit);
  }
  if (text.empty()) text = "(none)";
  if (set.bCannotApplyDlfuDynamically) text += " (CannotApplyDLFUDynamically)";
  return text;
}

}  // namespace heuristicset
