#include "engine/HeuristicSet.h"

#include "problems/HeuristicCatalogue.h"

namespace {

// Packs the values of a set's members one after another, only those of the members the set
// has, so that the parameters of a usual set fit the word exactly. Values beyond 32 bits
// (hand-made sets with many parameterised members) are folded into the word: two such sets
// may then share their doubtful answers, which can make a heuristic pass doubtful more
// often but never makes an answer wrong.
class CParamsPacker {
 public:
  void Put(std::uint32_t value, int nBits) {
    value &= (1u << nBits) - 1;
    if (nUsed + nBits <= 32)
      word |= value << nUsed;
    else
      word ^= (value << (nUsed % 32)) | (value >> (32 - nUsed % 32) % 32);
    nUsed += nBits;
  }
  std::uint32_t Word() const { return word; }

 private:
  std::uint32_t word = 0;
  int nUsed = 0;
};

}  // namespace

std::uint32_t THeuristicSet::Params() const {
  CParamsPacker packer;
  if (Has(shbit::kFindForcedMate)) {
    // First, so that a forced-mate set's word starts with its mode number.
    packer.Put(static_cast<std::uint32_t>(forcedMateMode), 4);
    packer.Put(bPreliminary, 1);
    packer.Put(nForcedMateMoves, 8);
  }
  if (Has(shbit::kDontLoseAnyFigures)) packer.Put(nLoseFiguresLevel, 2);
  if (Has(shbit::kKeepKingOnTheEdge | shbit::kKeepKingWithinExtEdge))
    packer.Put(static_cast<std::uint32_t>(edgeForm), 2);
  if (Has(shbit::kDontLetKingMove)) packer.Put(bKingMoveExceptions, 1);
  if (Has(shbit::kKeyField | shbit::kKeyWhiteFigure))
    packer.Put(keySquare > 63 ? 64 : keySquare, 7);
  if (Has(shbit::kKeepKingNearCorner)) {
    packer.Put(nCornerDistance, 3);
    packer.Put(bCornerInKingMoves, 1);
  }
  if (Has(shbit::kUseBlockBlackPawnsLevel)) packer.Put(nBlockedPawnsLevel, 4);
  if (Has(shbit::kKeyLine | shbit::kKeyDiagonal)) packer.Put(keyLine, 6);
  if (Has(shbit::kOneColorPlay)) packer.Put(static_cast<std::uint32_t>(oneColour), 2);
  packer.Put(bDynamicDlfu, 1);
  packer.Put(static_cast<std::uint32_t>(fallback), 2);
  return packer.Word();
}

namespace forcedmate {

int ThreatMoves(EForcedMateMode mode) {
  switch (mode) {
    case EForcedMateMode::kCheckOnly:
      return 0;
    case EForcedMateMode::kMateIn1:
    case EForcedMateMode::kMateIn1Plus:
      return 1;
    case EForcedMateMode::kMateIn2:
    case EForcedMateMode::kMateIn2Plus:
      return 2;
    case EForcedMateMode::kMateIn3:
      return 3;
    case EForcedMateMode::kMateIn4:
      return 4;
    case EForcedMateMode::kMateIn5:
      return 5;
  }
  return 0;
}

bool LetsCapturesThrough(EForcedMateMode mode) {
  return mode == EForcedMateMode::kMateIn1Plus || mode == EForcedMateMode::kMateIn2Plus;
}

}  // namespace forcedmate

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
  if (set.bPreliminary)
    text += "-Preliminary";
  else if (set.bCustom)
    text += "-Custom";
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
    case shbit::kOneColorPlay:
      return std::string(OneColourWord(set.oneColour));
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

std::string_view OneColourWord(EOneColour colour) {
  static constexpr const char* kWords[] = {"SeparatedBlackBishop", "WhiteFieldsOnly",
                                           "BlackFieldsOnly"};
  return kWords[static_cast<int>(colour)];
}

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
  if (set.fallback == EFallback::kKeepOnEdge) text += " (fallback: SH_KEEPKINGONTHEEDGE(STRICT))";
  if (set.fallback == EFallback::kKingStays) text += " (fallback: SH_DONTLETKINGMOVE)";
  if (set.bCannotApplyDlfuDynamically) text += " (CannotApplyDLFUDynamically)";
  return text;
}

}  // namespace heuristicset
