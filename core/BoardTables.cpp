#include "core/BoardTables.h"

namespace tables {
namespace {

constexpr int kDirectionSteps[8][2] = {  // (file step, rank step)
    {0, 1}, {0, -1}, {1, 0}, {-1, 0}, {1, 1}, {-1, 1}, {1, -1}, {-1, -1}};
// Knight: file -1 (rank -2, +2), file -2 (rank -1, +1), file +1 (rank -2, +2), file +2 (rank -1,
// +1).
constexpr int kKnightSteps[8][2] = {{-1, -2}, {-1, 2}, {-2, -1}, {-2, 1},
                                    {1, -2},  {1, 2},  {2, -1},  {2, 1}};
// Black's king: rank below (straight, lower file, higher file), rank above (same), then
// the lower and the higher file on its own rank. White's order is the mirror: rank above first.
constexpr int kBlackKingSteps[8][2] = {{0, -1}, {-1, -1}, {1, -1}, {0, 1},
                                       {-1, 1}, {1, 1},   {-1, 0}, {1, 0}};
constexpr int kWhiteKingSteps[8][2] = {{0, 1},   {-1, 1}, {1, 1},  {0, -1},
                                       {-1, -1}, {1, -1}, {-1, 0}, {1, 0}};

bool OnBoard(int file, int rank) {
  return file >= 0 && file < 8 && rank >= 0 && rank < 8;
}

void FillSteps(TSquareList& list, int from, const int (*steps)[2]) {
  list.n = 0;
  for (int i = 0; i < 8; ++i) {
    const int file = square::File(from) + steps[i][0];
    const int rank = square::Rank(from) + steps[i][1];
    if (OnBoard(file, rank)) list.squares[list.n++] = square::Make(file, rank);
  }
}

TBoardTables Build() {
  TBoardTables t{};
  for (int from = 0; from < 64; ++from) {
    for (int to = 0; to < 64; ++to) t.direction[from][to] = kNoDirection;
    for (int d = 0; d < 8; ++d) {
      TSquareList& ray = t.rays[from][d];
      ray.n = 0;
      int file = square::File(from) + kDirectionSteps[d][0];
      int rank = square::Rank(from) + kDirectionSteps[d][1];
      while (OnBoard(file, rank)) {
        const SquareIndex to = square::Make(file, rank);
        ray.squares[ray.n++] = to;
        t.rayMask[from][d] |= 1ULL << to;
        t.direction[from][to] = static_cast<std::int8_t>(d);
        file += kDirectionSteps[d][0];
        rank += kDirectionSteps[d][1];
      }
    }
    FillSteps(t.knightTargets[from], from, kKnightSteps);
    for (int i = 0; i < t.knightTargets[from].n; ++i)
      t.knightMask[from] |= 1ULL << t.knightTargets[from].squares[i];
    FillSteps(t.whiteKingSteps[from], from, kWhiteKingSteps);
    for (int i = 0; i < t.whiteKingSteps[from].n; ++i)
      t.kingMask[from] |= 1ULL << t.whiteKingSteps[from].squares[i];
    FillSteps(t.blackKingSteps[from], from, kBlackKingSteps);
  }
  return t;
}

}  // namespace

const TBoardTables gBoardTables = Build();

}  // namespace tables
