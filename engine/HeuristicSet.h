#pragma once
#include <cstdint>
#include <string>

#include "core/PieceCode.h"
#include "engine/KeyLine.h"

// The bits of the special-heuristics word (one per restriction; names in the catalogue of
// problems/HeuristicCatalogue.h). The black king's "don't move" restriction has no catalogue
// name and takes the unnamed bit 0x100.
namespace shbit {
constexpr std::uint32_t kAreKingsNear = 0x1;
constexpr std::uint32_t kKeepKingOnTheEdge = 0x4;
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
constexpr std::uint32_t kZugzwang = 0x80000000;
}  // namespace shbit

// How strictly the king-edge restrictions hold the black king.
enum class EEdgeForm : std::uint8_t {
  kLoose,         // the edge line or the line next to it
  kStrict,        // "strict": the edge line, unless the step allows immediate mate
  kAlmostStrict,  // "ALMOST_STRICT": as strict, and a step out of check is let go as well
  kAllStrict,     // "STRICT": the edge line, no exception
};

// Modes of SH_FINDFORCEDMATE: which White moves are searched.
enum class EForcedMateMode : std::uint8_t {
  kCheckOnly = 2,   // checks
  kMateIn1 = 3,     // checks and moves that threaten mate in one
  kMateIn1Plus = 4  // as kMateIn1, and captures and promotions
};

// A set of special heuristics: the mask and the values its members need.
struct THeuristicSet {
  std::uint32_t mask = 0;
  EForcedMateMode forcedMateMode = EForcedMateMode::kCheckOnly;
  bool bPreliminary = false;           // the forced-mate run that comes before the mixture
  std::uint8_t nLoseFiguresLevel = 0;  // 0: pieces only, 1: pawns too, 2: pawns before promotion
  EEdgeForm edgeForm = EEdgeForm::kLoose;
  bool bKingMoveExceptions = false;       // the king may step straight back after its own move
  SquareIndex keySquare = square::kNone;  // SH_KEYFIELD and SH_KEYWHITEFIGURE
  std::uint8_t nCornerDistance = 2;       // SH_KEEPKINGNEARCORNER
  bool bCornerInKingMoves = false;        // counted in king moves (else in squares)
  bool bCannotApplyDlfuDynamically = false;
  // SH_USEBLOCKBLACKPAWNSLEVEL: how many black pawns must stay blocked; 0 takes the count of
  // the start position.
  std::uint8_t nBlockedPawnsLevel = 0;
  keyline::TLine keyLine = keyline::kNone;  // SH_KEYLINE and SH_KEYDIAGONAL

  bool Has(std::uint32_t bits) const { return (mask & bits) != 0; }
  // The parameters word: every value above packed, so that two sets with the same mask and
  // word restrict the search alike.
  std::uint32_t Params() const;
  bool operator==(const THeuristicSet&) const = default;
};

namespace heuristicset {
// "SH_FINDFORCEDMATE(#2-Preliminary)": a member's name and its parameter text.
std::string DescribeMember(const THeuristicSet& set, std::uint32_t bit);
// Every member's description, joined with ", "; "(none)" for the empty set.
std::string Describe(const THeuristicSet& set);
}  // namespace heuristicset
