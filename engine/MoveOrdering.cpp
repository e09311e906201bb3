#include "engine/MoveOrdering.h"

#include <algorithm>

#include "core/CheckPrediction.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"

namespace ordering {
namespace {
constexpr int kGroups = 4;  // for either side: see the header

// White's answers to a Black reply as generated (pseudo-legal): its evasions after a check.
int WhiteAnswerCount(const TChessboard& board, TMove reply) {
  TChessboard child = board;
  child.parent = &board;
  if (movemaking::MakeBlackMove(child, reply) <= 0) return kMoveBufferSize;  // tried last
  TMove answers[kMoveBufferSize];
  return child.IsWhiteInCheck() ? movegen::GenerateEvasions(child, answers)
                                : movegen::GenerateAllMoves(child, answers);
}

// Makes the legal White moves of board into children and gives each the key
// band * kGroups + group: bandOf(move, child) orders first, the search's groups within a band.
template <typename TBandOf>
int MakeKeyedWhiteChildren(const TChessboard& board, TChessboard* children, TMove killer,
                           int* keyOf, TBandOf bandOf) {
  TMove moves[kMoveBufferSize];
  const int nMoves = movegen::GenerateAllMoves(board, moves);
  int n = 0;
  for (int i = 0; i < nMoves; ++i) {
    TChessboard& child = children[n];
    child = board;
    child.parent = &board;
    if (movemaking::MakeWhiteMove(child, moves[i]) <= 0) continue;
    int group = 3;
    if (moves[i].SameMove(killer))
      group = 0;
    else if (child.IsBlackInCheck())
      group = 1;
    else if (board.squares[moves[i].to] != piece::kEmpty || moves[i].promotion != 0)
      group = 2;
    keyOf[n++] = bandOf(moves[i], child) * kGroups + group;
  }
  return n;
}

// The fewer answers White has, the smaller the tree that proves a refutation: replies go
// in ascending count, generation order among equals.
void SortByWhiteAnswers(const TChessboard& board, TMove* moves, int n) {
  if (n < 2) return;
  struct TKeyedMove {
    int nAnswers;
    TMove move;
  };
  TKeyedMove keyed[kMoveBufferSize];  // not cleared: only the first n are written and read
  for (int i = 0; i < n; ++i) keyed[i] = {WhiteAnswerCount(board, moves[i]), moves[i]};
  std::stable_sort(keyed, keyed + n, [](const TKeyedMove& a, const TKeyedMove& b) {
    return a.nAnswers < b.nAnswers;
  });
  for (int i = 0; i < n; ++i) moves[i] = keyed[i].move;
}
}  // namespace

int MakeOrderedWhiteChildren(const TChessboard& board, TChessboard* children, TMoveIndex* order,
                             TMove killer) {
  int groupOf[kMoveBufferSize];
  const int n = MakeKeyedWhiteChildren(board, children, killer, groupOf,
                                       [](TMove, const TChessboard&) { return 0; });
  // A counting sort keeps generation order within each group.
  int nInGroup[kGroups] = {};
  for (int i = 0; i < n; ++i) ++nInGroup[groupOf[i]];
  int start[kGroups] = {0};
  for (int g = 1; g < kGroups; ++g) start[g] = start[g - 1] + nInGroup[g - 1];
  for (int i = 0; i < n; ++i) order[start[groupOf[i]]++] = static_cast<TMoveIndex>(i);
  return n;
}

int MakeHintedWhiteChildren(const TChessboard& board, TChessboard* children, TMoveIndex* order,
                            TMove killer, const CWhiteMoveHints& hints, std::uint16_t moveNumber) {
  int keyOf[kMoveBufferSize];
  const int n = MakeKeyedWhiteChildren(board, children, killer, keyOf,
                                       [&](TMove move, const TChessboard& child) {
                                         return hints.Band(board, move, child, moveNumber);
                                       });
  for (int i = 0; i < n; ++i) order[i] = static_cast<TMoveIndex>(i);
  std::stable_sort(order, order + n,
                   [&](TMoveIndex a, TMoveIndex b) { return keyOf[a] < keyOf[b]; });
  return n;
}

void OrderBlackReplies(const TChessboard& board, TMove* moves, int n, TMove killer) {
  if (n < 2) return;
  const attacks::CCheckFilter checks(board);
  std::uint8_t groupOf[kMoveBufferSize];
  int nInGroup[kGroups] = {};
  for (int i = 0; i < n; ++i) {
    int group = 3;
    if (checks.MayGiveCheck(moves[i]))
      group = 0;
    else if (board.squares[moves[i].to] != piece::kEmpty)
      group = 1;
    else if (moves[i].SameMove(killer) || moves[i].promotion == piece::kQueen)
      group = 2;
    groupOf[i] = static_cast<std::uint8_t>(group);
    ++nInGroup[group];
  }
  int start[kGroups] = {0};
  for (int g = 1; g < kGroups; ++g) start[g] = start[g - 1] + nInGroup[g - 1];
  TMove sorted[kMoveBufferSize];
  for (int i = 0; i < n; ++i) sorted[start[groupOf[i]]++] = moves[i];
  std::copy(sorted, sorted + n, moves);
  SortByWhiteAnswers(board, moves, nInGroup[0]);
  SortByWhiteAnswers(board, moves + nInGroup[0], nInGroup[1]);
}

}  // namespace ordering
