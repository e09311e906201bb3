#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "core/PieceCode.h"
#include "engine/KeyLine.h"

// The bits of the special-heuristics word (one per restriction; names in the catalogue of
// problems/HeuristicCatalogue.h). The black king's "don't move" restriction has no catalogue
// name and takes the unnamed bit 0x100.
namespace shbit {
constexpr std::uint32_t kAreKingsNear = 0x1;
constexpr std::uint32_t kSweepingWhiteRook = 0x2;
constexpr std::uint32_t kKeepKingOnTheEdge = 0x4;
constexpr std::uint32_t kOneColorPlay = 0x8;
constexpr std::uint32_t kZugzwangTriangles = 0x10;
constexpr std::uint32_t kDontLeaveMainDiagonal = 0x20;
constexpr std::uint32_t kKeepKingWithinExtEdge = 0x40;
constexpr std::uint32_t kDontLetFigureUnblock = 0x80;
constexpr std::uint32_t kDontLetKingMove = 0x100;
constexpr std::uint32_t kFindForcedMate = 0x200;
constexpr std::uint32_t kDontRecedeBlackKing = 0x400;
constexpr std::uint32_t kDontLetPromotedQueenMove = 0x800;
constexpr std::uint32_t kKeyLine = 0x1000;
constexpr std::uint32_t kKeyDiagonal = 0x2000;
constexpr std::uint32_t kSaveQueenRook = 0x4000;
constexpr std::uint32_t kDontLoseAnyFigures = 0x8000;
constexpr std::uint32_t kDontLetBlackQueenCheckTwice = 0x10000;
constexpr std::uint32_t kUseBlockBlackPawnsLevel = 0x20000;
constexpr std::uint32_t kKeyField = 0x40000;
constexpr std::uint32_t kAssertBlackKingSurrounded = 0x80000;
constexpr std::uint32_t kSingleQueenMate = 0x100000;
constexpr std::uint32_t k3MovesToMate = 0x200000;
constexpr std::uint32_t kKeyWhiteFigure = 0x400000;
constexpr std::uint32_t kCaptureKnight = 0x800000;
constexpr std::uint32_t kSkipWorstWhiteMoves = 0x1000000;
constexpr std::uint32_t kDontLetPromotedFigureMove = 0x2000000;
constexpr std::uint32_t kKeepKingNearCorner = 0x4000000;
constexpr std::uint32_t kSeaSnake = 0x8000000;
constexpr std::uint32_t kReductionToTables = 0x40000000;
constexpr std::uint32_t kZugzwang = 0x80000000;
}  // namespace shbit

// How strictly the king-edge restrictions hold the black king.
enum class EEdgeForm : std::uint8_t {
  kLoose,         // the edge line or the line next to it
  kStrict,        // "strict": the edge line, unless the step allows immediate mate
  kAlmostStrict,  // "ALMOST_STRICT": as strict, and a step out of check is let go as well
  kAllStrict,     // "STRICT": the edge line, no exception
};

// Modes of SH_FINDFORCEDMATE: which White moves are searched. A threat counts when White,
// given the move again, would mate within that many moves; a "plus" mode lets captures and
// promotions through as well.
enum class EForcedMateMode : std::uint8_t {
  kCheckOnly = 2,    // checks
  kMateIn1 = 3,      // checks and moves that threaten mate in one
  kMateIn1Plus = 4,  // as kMateIn1, and captures and promotions
  kMateIn2 = 5,      // checks and moves that threaten mate in two
  kMateIn2Plus = 6,  // as kMateIn2, and captures and promotions
  kMateIn3 = 7,      // checks and moves that threaten mate in three
  kMateIn4 = 8,      // ... in four
  kMateIn5 = 9,      // ... in five
};

namespace forcedmate {
// The moves of the mate a quiet White move must threaten: 0 for checks only.
int ThreatMoves(EForcedMateMode mode);
// Whether captures and promotions are let through without a threat.
bool LetsCapturesThrough(EForcedMateMode mode);
}  // namespace forcedmate
// Which squares White keeps to under SH_ONECOLORPLAYPOSSIBLE.
enum class EOneColour : std::uint8_t {
  kBishopColour,  // "SeparatedBlackBishop": those of White's bishop, the black one on the others
  kLightSquares,  // "WhiteFieldsOnly"
  kDarkSquares,   // "BlackFieldsOnly"
};

// The stricter set a variation falls back to once the black king stands on the edge line: the
// position has become a mating net at the edge, and a king that walks out of it again is
// not the line the problem means.
enum class EFallback : std::uint8_t {
  kNone,
  kKeepOnEdge,  // from then on the king keeps to the edge line, unless White mates at once
  kKingStays,   // from then on any king move is doubtful, unless White mates at once
};

// A set of special heuristics: the mask and the values its members need.
struct THeuristicSet {
  std::uint32_t mask = 0;
  EForcedMateMode forcedMateMode = EForcedMateMode::kCheckOnly;
  bool bPreliminary = false;  // the forced-mate run that comes before the mixture
  bool bCustom = false;       // a forced-mate set the user named
  // The forced-mate depth: SH_FINDFORCEDMATE holds for White's first this many moves, 0 for
  // all of them. Beyond it a preliminary run ends its lines (the end of the forced-mate
  // depth), and any other set goes on under its other members, which hold only there.
  std::uint8_t nForcedMateMoves = 0;
  std::uint8_t nLoseFiguresLevel = 0;  // 0: pieces only, 1: pawns too, 2: pawns before promotion
  EEdgeForm edgeForm = EEdgeForm::kLoose;
  bool bKingMoveExceptions = false;       // the king may step straight back after its own move
  SquareIndex keySquare = square::kNone;  // SH_KEYFIELD and SH_KEYWHITEFIGURE
  std::uint8_t nCornerDistance = 2;       // SH_KEEPKINGNEARCORNER
  bool bCornerInKingMoves = false;        // counted in king moves (else in squares)
  EOneColour oneColour = EOneColour::kBishopColour;
  bool bCannotApplyDlfuDynamically = false;
  // SH_DONTLETFIGUREUNBLOCK set during the analysis: once the black king has gone into a corner
  // and shut its own pieces in, those pieces are held near the squares they had then.
  bool bDynamicDlfu = false;
  EFallback fallback = EFallback::kNone;
  // SH_USEBLOCKBLACKPAWNSLEVEL: how many black pawns must stay blocked; 0 takes the count of
  // the start position.
  std::uint8_t nBlockedPawnsLevel = 0;
  keyline::TLine keyLine = keyline::kNone;  // SH_KEYLINE and SH_KEYDIAGONAL

  bool Has(std::uint32_t bits) const { return (mask & bits) != 0; }
  // Whether SH_FINDFORCEDMATE restricts White's move number nMove (1 is the key), and
  // whether the other members hold there: the forced-mate mixture splits the solution.
  bool ForcedMateHolds(int nMove) const {
    return Has(shbit::kFindForcedMate) && (nForcedMateMoves == 0 || nMove <= nForcedMateMoves);
  }
  bool OthersHold(int nMove) const {
    return !Has(shbit::kFindForcedMate) || nForcedMateMoves == 0 || nMove > nForcedMateMoves;
  }
  // The parameters word: the values of the members the set has, packed, so that two sets
  // with the same mask and word restrict the search alike (bCustom only names the set).
  std::uint32_t Params() const;
  bool operator==(const THeuristicSet&) const = default;
};

namespace heuristicset {
// "SH_FINDFORCEDMATE(#2-Preliminary)": a member's name and its parameter text.
std::string DescribeMember(const THeuristicSet& set, std::uint32_t bit);
// The parameter word of a one-colour form.
std::string_view OneColourWord(EOneColour colour);
// Every member's description, joined with ", "; "(none)" for the empty set.
std::string Describe(const THeuristicSet& set);
}  // namespace heuristicset
