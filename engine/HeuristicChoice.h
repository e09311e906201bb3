#pragma once
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Chessboard.h"
#include "engine/HeuristicSet.h"

// Which heuristic passes a solve runs: named by hand, set in the problem file, or chosen
// from the position.
namespace heuristicchoice {

// What a hand-named set reads as: "auto" (the position decides), "none" (no heuristic
// pass), or names of the catalogue with optional parameter words, "SH_FINDFORCEDMATE(#1),
// SH_KEEPKINGONTHEEDGE(strict)", and SH_DONTLETKINGMOVE with optional "(excptns)".
struct TNamedSet {
  bool bAutomatic = false;
  THeuristicSet set;
  std::string sError;  // what could not be read; empty when all could
};
TNamedSet ReadNamedSet(std::string_view text);

// Gives set the member bit with the parameter words; false on a word the member does not
// take.
bool AddMember(THeuristicSet& set, std::uint32_t bit, const std::vector<std::string>& words);

// The passes of a solve. A named set (not automatic) starts the relaxation path alone;
// otherwise the problem's settings decide: members with parameter words make the initial
// set of a relaxation path, members set "OFF" are taken out of the automatic passes.
// bDynamicDlfu: the automatic passes may set SH_DONTLETFIGUREUNBLOCK during the analysis.
std::vector<THeuristicSet> PassesFor(const TChessboard& start, int nMoves,
                                     const std::map<int, std::vector<std::string>>& settings,
                                     const std::optional<TNamedSet>& named = std::nullopt,
                                     bool bDynamicDlfu = true);

// Whether quick mode could lose a mate in this kind of position, so that it must be solved in
// safe mode: few pieces that can shuffle on both sides, as in duels of bishops and knights,
// where repetitions filed as doubtful hide the one line that wins. Every piece besides kings
// and pawns is a bishop or a knight, one or two on each side.
bool ForcesSafeMode(const TChessboard& start);

}  // namespace heuristicchoice
