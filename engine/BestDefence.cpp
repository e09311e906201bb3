#include "engine/BestDefence.h"

#include <algorithm>
#include <vector>

#include "core/MoveMaking.h"
#include "engine/MateSearch.h"
#include "engine/RegisterKey.h"

namespace {

// The register holds no answers of problems this short, nor of positions this near the end.
constexpr std::uint16_t kMinRegisterRootPlies = 10;
constexpr std::uint16_t kMinRegisterPlies = 3;

// Whether the register may be asked about child, White to move: it records neither the en
// passant right nor answers of short problems.
bool MayAskRegister(const TChessboard& child) {
  return child.rootPlies >= kMinRegisterRootPlies && child.ply >= kMinRegisterPlies &&
         !registerkey::HasEnPassantRight(child);
}

class CDefenceRounds {
 public:
  CDefenceRounds(const TChessboard& board, SearchContext& searchContext)
      : position(board), context(searchContext), search(searchContext, board.ply) {}

  TBestDefence Choose() {
    candidates = movemaking::LegalMoves(position);
    // After the last move of the stipulation nothing can refute a defence.
    if (candidates.size() <= 1 || position.ply == 0) return Answer(0);
    // Black to move has an even ply: the cap is odd.
    const int nCap = std::min(kMaxBestDefencePlies, position.ply - 1);
    for (int k = 1; k <= nCap; k += 2) {
      if (RunRound(k)) return Answer(k);
    }
    RunRound(TBestDefence::kRegisterRound);
    return Answer(TBestDefence::kRegisterRound);
  }

 private:
  // One round over the candidates left; true when it settled the choice early.
  bool RunRound(int k) {
    for (std::size_t i = 0; i < candidates.size();) {
      if (context.run.IsStopping()) {
        candidates.erase(candidates.begin(), candidates.begin() + static_cast<std::ptrdiff_t>(i));
        return true;
      }
      TChessboard child = position;
      child.parent = &position;
      movemaking::MakeBlackMove(child, candidates[i]);
      if (!IsRefuted(child, k)) {
        ++i;
        continue;
      }
      candidates.erase(candidates.begin() + static_cast<std::ptrdiff_t>(i));
      if (candidates.size() == 1) return true;
    }
    return false;
  }

  // Whether White mates after the defence within the round's depth, or, in the register
  // round, by the register's word.
  bool IsRefuted(TChessboard& child, int k) {
    if (k != TBestDefence::kRegisterRound) {
      child.ply = static_cast<std::uint16_t>(k);
      return search.WhiteNode(child) == mate::kMate;
    }
    if (context.pRegister == nullptr || !MayAskRegister(child)) return false;
    const std::uint8_t answer = context.pRegister->FindAnswer(child.ply, registerkey::Build(child));
    if (answer != 0 && answer != 1) return false;
    ++nRegisterAnswers;
    return answer == 1;
  }

  TBestDefence Answer(int nRound) const {
    TBestDefence best{.nRound = nRound, .nRegisterAnswers = nRegisterAnswers};
    if (!candidates.empty()) best.move = candidates.front();
    return best;
  }

  const TChessboard& position;
  SearchContext& context;
  CMateSearch search;
  std::vector<TMove> candidates;  // in generation order
  int nRegisterAnswers = 0;
};

}  // namespace

TBestDefence FindBestDefence(const TChessboard& position, SearchContext& context) {
  return CDefenceRounds(position, context).Choose();
}
