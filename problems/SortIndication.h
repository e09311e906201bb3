#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/PieceCode.h"
#include "core/TextTwins.h"

// A hint about a white move that the search should try first (or, negated, not want):
// "[~] [n.] [F] f1 [- | : | >] f2 [Q] [+ | ++]", for instance "2. Qd1:d7+".
struct TSortIndication {
  static constexpr std::uint8_t kCaptureEither = 255;  // '-' or no separator
  static constexpr std::uint8_t kNoCapture = 0;        // '>'
  static constexpr std::uint8_t kCapture = 1;          // ':'

  bool bNegated = false;
  std::uint16_t moveNumber = 0;  // 0 when no "n." is given
  PieceCode piece = 0;           // white code of the letter, 0 when no letter is given
  SquareIndex from = square::kNone;
  SquareIndex to = 0;
  std::uint8_t captureMode = kCaptureEither;
  std::uint8_t checkMode = 0;  // 1 for "+", 2 for "++"
  PieceCode promotion = 0;     // piece type, 0 for none

  bool operator==(const TSortIndication&) const = default;
};

// The hints of a problem by move number, each list in text order.
using TSortIndications = std::map<std::uint16_t, std::vector<TSortIndication>>;

namespace sortindication {

// Throws ChessException "Invalid description of SortIndication: " + text, in the interface
// language (0 Polish, 2 Ukrainian, else English).
TSortIndication Parse(const std::string& text, int nLanguageId = kEnglishLanguageId);
// Splits at commas when there is one, otherwise at semicolons; blank pieces are skipped.
TSortIndications ParseList(const std::string& text, int nLanguageId = kEnglishLanguageId);
std::string Render(const TSortIndication& element);
// The elements in move-number order, separated by ", ".
std::string RenderList(const TSortIndications& list);

}  // namespace sortindication
