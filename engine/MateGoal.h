#pragma once
#include <cstdint>

// What White plays for. The search's answers say whether White forces the goal; only the
// ends of the lines differ between the goals.
//
// Direct mate in N: White mates Black within N moves of White's (2N - 1 plies); a stalemate
// is no mate.
//
// Selfmate in N: White forces Black to mate White within N moves of each side, Black's Nth
// move being the last. The root has 2N + 1 plies, so that White moves at odd plies as in a
// direct mate and the position after Black's Nth move has ply 1:
// - White, to move, has reached the goal when it is checkmated, at any ply: a Black move
//   that mates before the Nth is a shorter selfmate, which counts as a shorter direct mate
//   does. At ply 1 nothing else counts; a stalemated White has failed.
// - A White move after which Black has no legal move (White mated or stalemated Black) fails:
//   the game ended without Black's mate.
// - Black, to move, must have a legal move, and every legal move must either mate White or
//   leave White a selfmate in the moves left. So at Black's Nth move every legal move mates.
enum class EMateGoal { kDirectMate, kSelfmate };

namespace mategoal {

// The plies of a root whose stipulation gives White nMoves moves.
constexpr std::uint16_t RootPlies(EMateGoal goal, int nMoves) {
  return static_cast<std::uint16_t>(goal == EMateGoal::kSelfmate ? 2 * nMoves + 1 : 2 * nMoves - 1);
}

// White's moves in a stipulation whose root has plies plies.
constexpr int Moves(EMateGoal goal, std::uint16_t plies) {
  return goal == EMateGoal::kSelfmate ? plies / 2 : (plies + 1) / 2;
}

}  // namespace mategoal
